// The shaping commands the reports read: how their text is read, what each level of the
// result holds, and that no text whatever makes the reader do anything but read or refuse.
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/providererror.h"
#include "data/recordset.h"
#include "data/shape.h"
#include "data/shapeparser.h"
#include "support/testcatalogue.h"

#include <QRandomGenerator>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

// The data environment's two shaped commands, character for character.
const QString bookDetailsText =
    u"BookDetails SHAPE {SELECT BookCondition, BookDescription, BookID, BookPrice, "
    "BookWhenPublished, BookPublisherId FROM tblBook ORDER BY BookID}  AS BookDetails APPEND "
    "({SELECT tblAuthor.AuthorFirstName, tblAuthor.AuthorSurname, tblBookAuthor.BookID FROM "
    "tblBookAuthor, tblAuthor WHERE tblBookAuthor.AuthorID = tblAuthor.AuthorID}  AS "
    "AuthorDetails RELATE 'BookID' TO 'BookID') AS AuthorDetails,({SELECT "
    "tblTopic.TopicDescription, tblBookTopic.BookID FROM tblTopic, tblBookTopic WHERE "
    "tblTopic.TopicID = tblBookTopic.TopicID}  AS TopicDetails RELATE 'BookID' TO 'BookID') AS "
    "TopicDetails,({SELECT PublisherName, PublisherID FROM tblPublisher}  AS PublisherDetails "
    "RELATE 'BookPublisherId' TO 'PublisherID') AS PublisherDetails"_s;

const QString byTopicDescriptionText =
    u"SHAPE ( SHAPE {SELECT * FROM `qryTopicDescForRep3`}  AS cmdReport3 APPEND ({SELECT * "
    "FROM `qryReport03`}  AS cmdReport3Sub RELATE 'BookID' TO 'BookID') AS cmdReport3Sub) "
    "COMPUTE cmdReport3 BY 'TopicDescription'"_s;

const QString syntaxErrorStart = u"Syntax error in shape command at character "_s;

// A tree written back as text in one spelling, every name back-quoted, so that two texts
// read alike exactly when they print alike.
QString reprint(const ShapeNode &node);

QString backQuoted(const QString &name)
{
    return u"`"_s + name + u"`"_s;
}

QString reprint(const ShapeSource &source)
{
    return source.nested ? u"("_s + reprint(*source.nested) + u")"_s
                         : u"{"_s + source.selectText + u"}"_s;
}

QString reprint(const ShapeChild &child)
{
    return u"("_s + reprint(child.source) + u" AS "_s + backQuoted(child.alias) + u" RELATE '"_s
        + child.relateColumn + u"' TO '"_s + child.toColumn + u"') AS "_s
        + backQuoted(child.chapterName);
}

QString reprint(const ShapeNode &node)
{
    if (node.kind == ShapeNode::Kind::Compute) {
        return u"SHAPE "_s + reprint(node.source) + u" COMPUTE "_s + backQuoted(node.alias)
            + u" BY '"_s + node.byColumns.join(u"', '"_s) + u"'"_s;
    }
    QString text = u"SHAPE "_s + reprint(node.source) + u" AS "_s + backQuoted(node.alias);
    QStringList children;
    for (const ShapeChild &child : node.children)
        children.append(reprint(child));
    if (!children.isEmpty())
        text += u" APPEND "_s + children.join(u", "_s);
    return text;
}

QString reprint(const ShapeTree &tree)
{
    const QString name = tree.commandName.isEmpty() ? QString() : backQuoted(tree.commandName) + u" "_s;
    return name + reprint(tree.root);
}

QString nested(int levels)
{
    return u"SHAPE ("_s.repeated(levels - 1) + u"SHAPE {SELECT 1} AS a"_s
        + u") AS a"_s.repeated(levels - 1);
}

// What the random inputs are made of: the grammar's words and marks, in pieces whole and
// broken.
const QStringList pieces{
    u"SHAPE"_s, u"shape"_s, u"APPEND"_s, u"AS"_s, u"RELATE"_s, u"TO"_s, u"COMPUTE"_s, u"BY"_s,
    u"("_s, u")"_s, u"{"_s, u"}"_s, u","_s, u"'"_s, u"`"_s, u"\""_s, u"["_s, u"]"_s, u"''"_s,
    u"'BookID'"_s, u"`qryReport03`"_s, u"{SELECT 1}"_s, u"{SELECT '}'}"_s, u"BookDetails"_s,
    u"x"_s, u" "_s, u"\n"_s, u"\t"_s, u"é"_s, u"%1"_s};

QString randomCharacter(QRandomGenerator &random)
{
    // Half plain ASCII, half anything UTF-16 can hold, lone surrogates and NUL included.
    const quint32 limit = random.bounded(2) ? 0x80 : 0x10000;
    return QString(QChar(char16_t(random.bounded(limit))));
}

QString randomPiece(QRandomGenerator &random)
{
    return random.bounded(4) ? pieces.at(random.bounded(int(pieces.size())))
                             : randomCharacter(random);
}

QString mutated(const QString &text, QRandomGenerator &random)
{
    QString result = text;
    const int edits = 1 + random.bounded(4);
    for (int e = 0; e < edits; ++e) {
        const int at = random.bounded(int(result.size()) + 1);
        switch (random.bounded(5)) {
        case 0:
            result.remove(at, 1 + random.bounded(12));
            break;
        case 1:
            result.insert(at, randomPiece(random));
            break;
        case 2:
            result.insert(at, result.mid(random.bounded(int(result.size()) + 1), random.bounded(40)));
            break;
        case 3:
            result.replace(at, 1, randomCharacter(random));
            break;
        default:
            result.truncate(at);
        }
    }
    return result;
}

QString tokenSoup(QRandomGenerator &random)
{
    const QStringList separators{QString(), u" "_s, u"  "_s};
    QString text;
    const int count = 1 + random.bounded(40);
    for (int i = 0; i < count; ++i)
        text += randomPiece(random) + separators.at(random.bounded(int(separators.size())));
    return text;
}

enum class Outcome { Read, Refused, Broken };

// Reads a text; a text that is read must print back to a text that reads the same.
Outcome readOrRefuse(const QString &text, QString *why)
{
    std::optional<QString> printed;
    try {
        printed = reprint(ShapeParser::parse(text));
    } catch (const ProviderError &error) {
        if (error.number == ProviderErrorNumber::Syntax && error.description.startsWith(syntaxErrorStart))
            return Outcome::Refused;
        *why = u"refused with "_s + QString::number(error.number) + u" "_s + error.description;
        return Outcome::Broken;
    } catch (...) {
        *why = u"threw something other than a ProviderError"_s;
        return Outcome::Broken;
    }
    try {
        if (reprint(ShapeParser::parse(*printed)) == *printed)
            return Outcome::Read;
        *why = u"reads differently once printed: "_s + *printed;
    } catch (...) {
        *why = u"cannot read its own print: "_s + *printed;
    }
    return Outcome::Broken;
}

QStringList texts(const Recordset &rows, const QString &field)
{
    const int column = rows.fieldIndex(field);
    if (column < 0)
        return {u"(no field "_s + field + u")"_s};
    QStringList values;
    for (int r = 0; r < rows.recordCount(); ++r)
        values.append(rows.valueAt(r, column).toString());
    return values;
}

// A sample catalogue with a connection open on it, as a report has.
struct OpenCatalogue
{
    TestCatalogue catalogue{TestCatalogue::Content::Sample};
    Connection connection;

    OpenCatalogue() { connection.open(ConnectionString::forCatalogue(catalogue.path())); }

    std::unique_ptr<ShapedRecordset> run(const QString &text)
    {
        return ShapeCommand(text).execute(connection);
    }

    // The first column of a query straight on the file, with one optional bound value.
    QStringList texts(const QString &sql, const QVariant &bound = {}) const
    {
        QSqlQuery query(catalogue.db());
        query.prepare(sql);
        if (bound.isValid())
            query.addBindValue(bound);
        if (!query.exec())
            QTest::qFail(qPrintable(query.lastError().text()), __FILE__, __LINE__);
        QStringList values;
        while (query.next())
            values.append(query.value(0).toString());
        return values;
    }
};

} // namespace

class TestShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheBookDetailsCommand()
    {
        const ShapeTree tree = ShapeParser::parse(bookDetailsText);
        QCOMPARE(tree.commandName, u"BookDetails"_s);
        QCOMPARE(tree.root.kind, ShapeNode::Kind::Append);
        QCOMPARE(tree.root.alias, u"BookDetails"_s);
        QCOMPARE(tree.root.source.selectText,
                 u"SELECT BookCondition, BookDescription, BookID, BookPrice, BookWhenPublished, "
                 "BookPublisherId FROM tblBook ORDER BY BookID"_s);
        QCOMPARE(tree.root.children.size(), std::size_t(3));
    }

    void readsTheBookDetailsChildren_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QString>("chapter");
        QTest::addColumn<QString>("relate");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("selectEnd");
        QTest::newRow("authors") << 0 << u"AuthorDetails"_s << u"BookID"_s << u"BookID"_s
                                 << u"WHERE tblBookAuthor.AuthorID = tblAuthor.AuthorID"_s;
        QTest::newRow("topics") << 1 << u"TopicDetails"_s << u"BookID"_s << u"BookID"_s
                                << u"WHERE tblTopic.TopicID = tblBookTopic.TopicID"_s;
        QTest::newRow("publisher") << 2 << u"PublisherDetails"_s << u"BookPublisherId"_s
                                   << u"PublisherID"_s << u"FROM tblPublisher"_s;
    }

    void readsTheBookDetailsChildren()
    {
        QFETCH(int, index);
        QFETCH(QString, chapter);
        QFETCH(QString, relate);
        QFETCH(QString, to);
        QFETCH(QString, selectEnd);
        const ShapeTree tree = ShapeParser::parse(bookDetailsText);
        const ShapeChild &child = tree.root.children.at(std::size_t(index));
        QCOMPARE(child.alias, chapter);
        QCOMPARE(child.chapterName, chapter);
        QCOMPARE(child.relateColumn, relate);
        QCOMPARE(child.toColumn, to);
        QVERIFY(child.source.selectText.startsWith(u"SELECT "_s));
        QVERIFY(child.source.selectText.endsWith(selectEnd));
        QVERIFY(!child.source.nested);
    }

    void readsTheByTopicDescriptionCommand()
    {
        const ShapeTree tree = ShapeParser::parse(byTopicDescriptionText);
        QCOMPARE(tree.commandName, QString());
        QCOMPARE(tree.root.kind, ShapeNode::Kind::Compute);
        QCOMPARE(tree.root.alias, u"cmdReport3"_s);
        QCOMPARE(tree.root.byColumns, QStringList{u"TopicDescription"_s});
        QVERIFY(tree.root.source.nested);
        const ShapeNode &inner = *tree.root.source.nested;
        QCOMPARE(inner.kind, ShapeNode::Kind::Append);
        QCOMPARE(inner.alias, u"cmdReport3"_s);
        QCOMPARE(inner.source.selectText, u"SELECT * FROM `qryTopicDescForRep3`"_s);
        QCOMPARE(inner.children.size(), std::size_t(1));
        QCOMPARE(inner.children.front().source.selectText, u"SELECT * FROM `qryReport03`"_s);
        QCOMPARE(inner.children.front().chapterName, u"cmdReport3Sub"_s);
        QCOMPARE(inner.children.front().relateColumn, u"BookID"_s);
        QCOMPARE(inner.children.front().toColumn, u"BookID"_s);
    }

    void readsEverySpelling_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("reads");
        QTest::newRow("keywords in any letter case")
            << u"shape {select 1 as a} as x Append ({select 1 as b} aS y relate 'a' To 'b') as z"_s
            << u"SHAPE {select 1 as a} AS `x` APPEND ({select 1 as b} AS `y` RELATE 'a' TO 'b') AS `z`"_s;
        QTest::newRow("no blanks beside marks")
            << u"SHAPE{SELECT 1}AS x APPEND({SELECT 2}AS y RELATE'a'TO'b')AS z,({SELECT 3}AS w RELATE'c'TO'd')AS w"_s
            << u"SHAPE {SELECT 1} AS `x` APPEND ({SELECT 2} AS `y` RELATE 'a' TO 'b') AS `z`, "
               "({SELECT 3} AS `w` RELATE 'c' TO 'd') AS `w`"_s;
        QTest::newRow("line breaks and tabs")
            << u"\tSHAPE\r\n{ SELECT 1 }\n\tAS\tx\n"_s << u"SHAPE {SELECT 1} AS `x`"_s;
        QTest::newRow("back-quoted names")
            << u"`My Command` SHAPE {SELECT 1} AS `rows of books`"_s
            << u"`My Command` SHAPE {SELECT 1} AS `rows of books`"_s;
        QTest::newRow("braces inside the select's literals")
            << u"SHAPE {SELECT '}' AS a, \"{\" AS b, [c}] FROM `t}`} AS x"_s
            << u"SHAPE {SELECT '}' AS a, \"{\" AS b, [c}] FROM `t}`} AS `x`"_s;
        QTest::newRow("braces nested in the select")
            << u"SHAPE {SELECT {fn NOW()} AS a} AS x"_s << u"SHAPE {SELECT {fn NOW()} AS a} AS `x`"_s;
        QTest::newRow("several BY columns")
            << u"SHAPE (SHAPE {SELECT 1} AS a) COMPUTE a BY 'x' , 'y'"_s
            << u"SHAPE (SHAPE {SELECT 1} AS `a`) COMPUTE `a` BY 'x', 'y'"_s;
        QTest::newRow("a nested shape as a child")
            << u"SHAPE {SELECT 1} AS p APPEND ((SHAPE {SELECT 2} AS q APPEND ({SELECT 3} AS r "
               "RELATE 'a' TO 'b') AS r) AS q RELATE 'c' TO 'd') AS q"_s
            << u"SHAPE {SELECT 1} AS `p` APPEND ((SHAPE {SELECT 2} AS `q` APPEND ({SELECT 3} AS "
               "`r` RELATE 'a' TO 'b') AS `r`) AS `q` RELATE 'c' TO 'd') AS `q`"_s;
        QTest::newRow("a nested shape as the parent")
            << u"SHAPE (SHAPE {SELECT 1} AS p) AS q APPEND ({SELECT 2} AS r RELATE 'a' TO 'b') AS r"_s
            << u"SHAPE (SHAPE {SELECT 1} AS `p`) AS `q` APPEND ({SELECT 2} AS `r` RELATE 'a' TO "
               "'b') AS `r`"_s;
        QTest::newRow("groups of groups")
            << u"SHAPE (SHAPE (SHAPE {SELECT 1} AS a) COMPUTE a BY 'x') COMPUTE b BY 'y'"_s
            << u"SHAPE (SHAPE (SHAPE {SELECT 1} AS `a`) COMPUTE `a` BY 'x') COMPUTE `b` BY 'y'"_s;
        QTest::newRow("names of letters and digits in any script")
            << u"Übersicht_2 SHAPE {SELECT 1} AS Bücher_1"_s
            << u"`Übersicht_2` SHAPE {SELECT 1} AS `Bücher_1`"_s;
        QTest::newRow("nested as deep as allowed")
            << nested(ShapeParser::MaxDepth) << nested(ShapeParser::MaxDepth).replace(u"AS a"_s, u"AS `a`"_s);
    }

    void readsEverySpelling()
    {
        QFETCH(QString, text);
        QFETCH(QString, reads);
        QCOMPARE(reprint(ShapeParser::parse(text)), reads);
    }

    void refusesMalformedText_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *name, const QString &text, int character, const QString &what) {
            QTest::newRow(name) << text << syntaxErrorStart + QString::number(character) + u": "_s + what + u"."_s;
        };
        row("empty text", QString(), 1, u"expected 'SHAPE', found the end of the text"_s);
        row("only blanks", u"   "_s, 4, u"expected 'SHAPE', found the end of the text"_s);
        row("a plain select", u"SELECT * FROM tblBook"_s, 8, u"unexpected character '*'"_s);
        row("a name without SHAPE", u"BookDetails {SELECT 1} AS a"_s, 1,
            u"expected 'SHAPE', found 'BookDetails'"_s);
        row("no source", u"SHAPE AS a"_s, 7, u"expected '{' or '(', found 'AS'"_s);
        row("select not closed", u"SHAPE {SELECT 1 AS x"_s, 7, u"'{' has no matching '}'"_s);
        row("closing brace inside a literal", u"SHAPE {SELECT '}' AS x"_s, 7,
            u"'{' has no matching '}'"_s);
        row("empty select", u"SHAPE { } AS x"_s, 7, u"there is no command between '{' and '}'"_s);
        row("no AS", u"SHAPE {SELECT 1} APPEND"_s, 18, u"expected 'AS', found 'APPEND'"_s);
        row("a keyword for a name", u"SHAPE {SELECT 1} AS APPEND"_s, 21,
            u"expected a name, found 'APPEND'"_s);
        row("back-quoted name not closed", u"SHAPE {SELECT 1} AS `a"_s, 21,
            u"the name in back-quotes is not closed"_s);
        row("empty back-quoted name", u"SHAPE {SELECT 1} AS ` `"_s, 21,
            u"the name in back-quotes is empty"_s);
        row("text after the end", u"SHAPE {SELECT 1} AS a b"_s, 23,
            u"expected the end of the text, found 'b'"_s);
        row("a long piece is shortened", u"SHAPE {SELECT 1} AS a {SELECT 2 FROM somewhere}"_s, 23,
            u"expected the end of the text, found '{SELECT 2 FROM somew...'"_s);
        row("a stray character", u"SHAPE {SELECT 1} AS a;"_s, 22, u"unexpected character ';'"_s);
        row("a stray closing brace", u"SHAPE {SELECT 1}} AS a"_s, 17, u"unexpected character '}'"_s);
        row("APPEND with no child", u"SHAPE {SELECT 1} AS a APPEND"_s, 29,
            u"expected '(', found the end of the text"_s);
        row("a child without brackets", u"SHAPE {SELECT 1} AS a APPEND {SELECT 2} AS b"_s, 30,
            u"expected '(', found '{SELECT 2}'"_s);
        row("RELATE without TO",
            u"SHAPE {SELECT 1} AS a APPEND ({SELECT 2} AS b RELATE 'x' 'y') AS b"_s, 58,
            u"expected 'TO', found ''y''"_s);
        row("column name not closed",
            u"SHAPE {SELECT 1} AS a APPEND ({SELECT 2} AS b RELATE 'x TO y) AS b"_s, 54,
            u"the column name in apostrophes is not closed"_s);
        row("empty column name",
            u"SHAPE {SELECT 1} AS a APPEND ({SELECT 2} AS b RELATE '' TO 'y') AS b"_s, 54,
            u"the column name in apostrophes is empty"_s);
        row("a comma after the last child",
            u"SHAPE {SELECT 1} AS a APPEND ({SELECT 2} AS b RELATE 'x' TO 'y') AS b,"_s, 71,
            u"expected '(', found the end of the text"_s);
        row("COMPUTE over a select", u"SHAPE {SELECT 1} COMPUTE a BY 'b'"_s, 18,
            u"expected 'AS', found 'COMPUTE'"_s);
        row("COMPUTE inside the brackets", u"SHAPE (SHAPE {SELECT 1} AS a COMPUTE a BY 'x'"_s, 30,
            u"expected ')', found 'COMPUTE'"_s);
        row("BY without a column", u"SHAPE (SHAPE {SELECT 1} AS a) COMPUTE a BY"_s, 43,
            u"expected a column name in apostrophes, found the end of the text"_s);
        row("BY a column not in apostrophes",
            u"SHAPE (SHAPE {SELECT 1} AS a) COMPUTE a BY TopicDescription"_s, 44,
            u"expected a column name in apostrophes, found 'TopicDescription'"_s);
        row("nested one level too deep", nested(ShapeParser::MaxDepth + 1),
            ShapeParser::MaxDepth * 7 + 1, u"shapes are nested more than 16 deep"_s);
    }

    void refusesMalformedText()
    {
        QFETCH(QString, text);
        QFETCH(QString, error);
        try {
            ShapeParser::parse(text);
            QFAIL("The text was read");
        } catch (const ProviderError &refusal) {
            QCOMPARE(refusal.number, ProviderErrorNumber::Syntax);
            QCOMPARE(refusal.description, error);
        }
    }

    void refusesDeepNestingWithoutExhaustingTheStack_data()
    {
        QTest::addColumn<QString>("text");
        constexpr int depth = 200000;
        QTest::newRow("shapes in shapes") << u"SHAPE ("_s.repeated(depth);
        QTest::newRow("brackets") << u"("_s.repeated(depth);
        QTest::newRow("braces") << u"SHAPE "_s + u"{"_s.repeated(depth);
        QTest::newRow("children in children")
            << u"SHAPE {SELECT 1} AS a APPEND ("_s + u"(SHAPE {SELECT 1} AS a APPEND ("_s.repeated(depth);
    }

    void refusesDeepNestingWithoutExhaustingTheStack()
    {
        QFETCH(QString, text);
        QString why;
        QCOMPARE(readOrRefuse(text, &why), Outcome::Refused);
    }

    // Mutations of the two real commands and random soups of the grammar's pieces: each is
    // read (and prints back to itself) or refused with a syntax error, never anything else.
    void readsOrRefusesAnyText()
    {
        constexpr int inputs = 120000;
        QRandomGenerator random(0x5A4E);
        const QStringList commands{bookDetailsText, byTopicDescriptionText};
        int read = 0;
        for (int i = 0; i < inputs; ++i) {
            const QString text = i % 2 ? tokenSoup(random)
                                       : mutated(commands.at((i / 2) % 2), random);
            QString why;
            const Outcome outcome = readOrRefuse(text, &why);
            if (outcome == Outcome::Broken)
                QFAIL(qPrintable(why + u"\nInput: "_s + text));
            read += outcome == Outcome::Read ? 1 : 0;
        }
        // Both ways out are taken many times: the inputs are neither all good nor all junk.
        QVERIFY2(read > inputs / 100, qPrintable(QString::number(read)));
        QVERIFY2(read < inputs / 2, qPrintable(QString::number(read)));
    }

    void bookDetailsHasEveryBookInBookOrder()
    {
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText);
        QCOMPARE(books->records().fieldNames(),
                 (QStringList{u"BookCondition"_s, u"BookDescription"_s, u"BookID"_s, u"BookPrice"_s,
                              u"BookWhenPublished"_s, u"BookPublisherId"_s}));
        QCOMPARE(texts(books->records(), u"BookID"_s),
                 open.texts(u"SELECT BookID FROM tblBook ORDER BY BookID"_s));
        QCOMPARE(books->chapterNames(),
                 (QStringList{u"AuthorDetails"_s, u"TopicDetails"_s, u"PublisherDetails"_s}));
    }

    void bookDetailsChaptersHoldEachBooksRows_data()
    {
        QTest::addColumn<QString>("chapter");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("ofBook");
        QTest::addColumn<QString>("total");
        QTest::newRow("authors")
            << u"AuthorDetails"_s << u"AuthorSurname"_s
            << u"SELECT a.AuthorSurname FROM tblBookAuthor ba JOIN tblAuthor a "
               "ON a.AuthorID = ba.AuthorID WHERE ba.BookID = ?"_s
            << u"SELECT count(*) FROM tblBookAuthor"_s;
        QTest::newRow("topics")
            << u"TopicDetails"_s << u"TopicDescription"_s
            << u"SELECT t.TopicDescription FROM tblBookTopic bt JOIN tblTopic t "
               "ON t.TopicID = bt.TopicID WHERE bt.BookID = ?"_s
            << u"SELECT count(*) FROM tblBookTopic"_s;
        QTest::newRow("publisher")
            << u"PublisherDetails"_s << u"PublisherName"_s
            << u"SELECT p.PublisherName FROM tblBook b JOIN tblPublisher p "
               "ON p.PublisherID = b.BookPublisherId WHERE b.BookID = ?"_s
            << u"SELECT count(*) FROM tblBook"_s;
    }

    void bookDetailsChaptersHoldEachBooksRows()
    {
        QFETCH(QString, chapter);
        QFETCH(QString, field);
        QFETCH(QString, ofBook);
        QFETCH(QString, total);
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText);
        const Recordset &rows = books->records();
        const int bookId = rows.fieldIndex(u"BookID"_s);
        int related = 0;
        for (int r = 0; r < rows.recordCount(); ++r) {
            const auto rowsOfBook = books->chapter(chapter, r);
            QVERIFY(rowsOfBook);
            QStringList actual = texts(rowsOfBook->records(), field);
            QStringList expected = open.texts(ofBook, rows.valueAt(r, bookId));
            actual.sort();
            expected.sort();
            QCOMPARE(actual, expected);
            related += int(actual.size());
        }
        QCOMPARE(related, open.texts(total).value(0).toInt());
        QVERIFY(related > 0);
    }

    void aBookWithoutAuthorHasAnEmptyAuthorChapter()
    {
        OpenCatalogue open;
        QSqlQuery insert(open.catalogue.db());
        QVERIFY(insert.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId, BookPrice) "
                            "SELECT 'Anonymous Pamphlet', PublisherID, 0 FROM tblPublisher "
                            "WHERE PublisherName = 'UnKnown'"_s));
        const auto books = open.run(bookDetailsText);
        const int last = books->records().recordCount() - 1;
        QCOMPARE(books->records().valueAt(last, books->records().fieldIndex(u"BookDescription"_s)),
                 QVariant(u"Anonymous Pamphlet"_s));

        const auto authors = books->chapter(u"AuthorDetails"_s, last);
        QVERIFY(authors);
        QCOMPARE(authors->records().recordCount(), 0);
        QVERIFY(authors->records().eof());
        QVERIFY(authors->records().fieldIndex(u"AuthorSurname"_s) >= 0);
        QCOMPARE(books->chapter(u"TopicDetails"_s, last)->records().recordCount(), 0);
        const auto publisher = books->chapter(u"PublisherDetails"_s, last);
        QCOMPARE(texts(publisher->records(), u"PublisherName"_s), QStringList{u"UnKnown"_s});
    }

    void findsChaptersByNameInAnyLetterCase()
    {
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText);
        const int count = books->records().recordCount();
        QVERIFY(books->chapter(u"authordetails"_s, 0));
        QVERIFY(!books->chapter(u"Authors"_s, 0));
        QVERIFY(!books->chapter(u"AuthorDetails"_s, -1));
        QVERIFY(!books->chapter(u"AuthorDetails"_s, count));
        QVERIFY(books->chapter(u"AuthorDetails"_s, 0)->chapterNames().isEmpty());
    }

    void byTopicDescriptionHasOneHeadingPerTopicInOrder()
    {
        OpenCatalogue open;
        const auto topics = open.run(byTopicDescriptionText);
        QCOMPARE(topics->records().fieldNames(), QStringList{u"TopicDescription"_s});
        QCOMPARE(topics->chapterNames(), QStringList{u"cmdReport3"_s});
        // A topic without books has no heading.
        QCOMPARE(texts(topics->records(), u"TopicDescription"_s),
                 open.texts(u"SELECT TopicDescription FROM tblTopic WHERE TopicID IN "
                            "(SELECT TopicID FROM tblBookTopic) "
                            "GROUP BY TopicDescription ORDER BY TopicDescription"_s));
    }

    void byTopicDescriptionListsEachTopicsBooks()
    {
        OpenCatalogue open;
        const auto topics = open.run(byTopicDescriptionText);
        const Recordset &headings = topics->records();
        int entries = 0;
        for (int g = 0; g < headings.recordCount(); ++g) {
            const QVariant topic = headings.valueAt(g, 0);
            const auto group = topics->chapter(u"cmdReport3"_s, g);
            QVERIFY(group);
            QCOMPARE(group->chapterNames(), QStringList{u"cmdReport3Sub"_s});
            QCOMPARE(texts(group->records(), u"BookID"_s),
                     open.texts(u"SELECT bt.BookID FROM tblBookTopic bt JOIN tblTopic t "
                                "ON t.TopicID = bt.TopicID JOIN tblBook b ON b.BookID = bt.BookID "
                                "WHERE t.TopicDescription = ? "
                                "ORDER BY t.TopicID, b.BookDescription, bt.BookID"_s,
                                topic));
            for (int b = 0; b < group->records().recordCount(); ++b) {
                const QVariant bookId = group->records().valueAt(b, group->records().fieldIndex(u"BookID"_s));
                const auto entry = group->chapter(u"cmdReport3Sub"_s, b);
                QVERIFY(entry);
                QCOMPARE(texts(entry->records(), u"Expr1"_s), QStringList{bookId.toString()});
                QCOMPARE(texts(entry->records(), u"BookDets1"_s),
                         open.texts(u"SELECT BookDescription FROM tblBook WHERE BookID = ?"_s, bookId));
                ++entries;
            }
        }
        QCOMPARE(entries, open.texts(u"SELECT count(*) FROM tblBookTopic"_s).value(0).toInt());
    }

    void relatesEqualValues_data()
    {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("child");
        QTest::addColumn<QList<int>>("chapterSizes");
        QTest::newRow("whole numbers stored as integers or reals")
            << u"SELECT 1 AS k UNION ALL SELECT 2"_s
            << u"SELECT 1.0 AS k UNION ALL SELECT 1 UNION ALL SELECT 1.5"_s << QList<int>{2, 0};
        QTest::newRow("text in any letter case")
            << u"SELECT 'Fiction' AS k UNION ALL SELECT 'Travel'"_s
            << u"SELECT 'FICTION' AS k UNION ALL SELECT 'fiction' UNION ALL SELECT 'Travels'"_s
            << QList<int>{2, 0};
        QTest::newRow("null matches nothing")
            << u"SELECT NULL AS k UNION ALL SELECT 3"_s
            << u"SELECT NULL AS k UNION ALL SELECT 3 UNION ALL SELECT NULL"_s << QList<int>{0, 1};
        QTest::newRow("no child rows")
            << u"SELECT 1 AS k"_s << u"SELECT 1 AS k WHERE 0"_s << QList<int>{0};
        QTest::newRow("no parent rows")
            << u"SELECT 1 AS k WHERE 0"_s << u"SELECT 1 AS k"_s << QList<int>{};
    }

    void relatesEqualValues()
    {
        QFETCH(QString, parent);
        QFETCH(QString, child);
        QFETCH(QList<int>, chapterSizes);
        OpenCatalogue open;
        const auto shaped = open.run(u"SHAPE {"_s + parent + u"} AS p APPEND ({"_s + child
                                     + u"} AS c RELATE 'K' TO 'k') AS c"_s);
        QList<int> sizes;
        for (int r = 0; r < shaped->records().recordCount(); ++r)
            sizes.append(shaped->chapter(u"c"_s, r)->records().recordCount());
        QCOMPARE(sizes, chapterSizes);
    }

    void groupsEqualValuesTogether()
    {
        OpenCatalogue open;
        const auto groups = open.run(
            u"SHAPE (SHAPE {SELECT 'b' AS t, 1 AS n UNION ALL SELECT NULL, 2 UNION ALL "
            "SELECT 'B', 3 UNION ALL SELECT 'a', 4 UNION ALL SELECT NULL, 5} AS r) COMPUTE r BY 't'"_s);
        QCOMPARE(groups->records().recordCount(), 3);
        QCOMPARE(groups->records().valueAt(0, 0), QVariant(u"b"_s));
        QVERIFY(groups->records().valueAt(1, 0).isNull());
        QCOMPARE(groups->records().valueAt(2, 0), QVariant(u"a"_s));
        const QList<QStringList> members{{u"1"_s, u"3"_s}, {u"2"_s, u"5"_s}, {u"4"_s}};
        for (int g = 0; g < 3; ++g)
            QCOMPARE(texts(groups->chapter(u"r"_s, g)->records(), u"n"_s), members.at(g));
    }

    void namesAColumnThatIsMissing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("error");
        QTest::newRow("RELATE")
            << u"SHAPE {SELECT BookID FROM tblBook} AS Books APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS Links RELATE 'BookNo' TO 'BookID') AS Links"_s
            << u"Shape command: 'BookNo' named after RELATE is not a column of Books."_s;
        QTest::newRow("TO")
            << u"SHAPE {SELECT BookID FROM tblBook} AS Books APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS Links RELATE 'BookID' TO 'BookNo') AS Links"_s
            << u"Shape command: 'BookNo' named after TO is not a column of Links."_s;
        QTest::newRow("BY")
            << u"SHAPE (SHAPE {SELECT * FROM qryTopicDescForRep3} AS Topics) COMPUTE Topics BY 'Topic'"_s
            << u"Shape command: 'Topic' named after BY is not a column of Topics."_s;
        QTest::newRow("one chapter name twice")
            << u"SHAPE {SELECT BookID FROM tblBook} AS b APPEND ({SELECT BookID FROM tblBookAuthor} "
               "AS a RELATE 'BookID' TO 'BookID') AS Links, ({SELECT BookID FROM tblBookTopic} AS t "
               "RELATE 'BookID' TO 'BookID') AS LINKS"_s
            << u"Shape command: the chapter name 'LINKS' is used twice."_s;
        QTest::newRow("a chapter name of the nested parent again")
            << u"SHAPE (SHAPE {SELECT BookID FROM tblBook} AS b APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS a RELATE 'BookID' TO 'BookID') AS Links) AS b APPEND ({SELECT "
               "BookID FROM tblBookTopic} AS t RELATE 'BookID' TO 'BookID') AS links"_s
            << u"Shape command: the chapter name 'links' is used twice."_s;
    }

    void namesAColumnThatIsMissing()
    {
        QFETCH(QString, text);
        QFETCH(QString, error);
        OpenCatalogue open;
        try {
            open.run(text);
            QFAIL("The command ran");
        } catch (const ProviderError &refusal) {
            QCOMPARE(refusal.number, ProviderErrorNumber::Syntax);
            QCOMPARE(refusal.description, error);
        }
    }

    void passesOnTheCataloguesOwnError()
    {
        OpenCatalogue open;
        try {
            open.run(u"SHAPE {SELECT * FROM tblNowhere} AS x"_s);
            QFAIL("The command ran");
        } catch (const ProviderError &refusal) {
            QCOMPARE(refusal.description, u"no such table: tblNowhere"_s);
        }
    }
};

QTEST_GUILESS_MAIN(TestShape)
#include "tst_shape.moc"
