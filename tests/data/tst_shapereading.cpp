// How the text of a shaping command is read: the reports' two commands, every spelling of
// each part, and the messages for text that cannot be read.
#include "data/providererror.h"
#include "data/shapeparser.h"
#include "shapetexts.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString nested(int levels)
{
    return u"SHAPE ("_s.repeated(levels - 1) + u"SHAPE {SELECT 1} AS a"_s
        + u") AS a"_s.repeated(levels - 1);
}

} // namespace

class TestShapeReading : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsTheBookDetailsCommand()
    {
        const ShapeTree tree = ShapeParser::parse(bookDetailsText());
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
        const ShapeTree tree = ShapeParser::parse(bookDetailsText());
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
        const ShapeTree tree = ShapeParser::parse(byTopicDescriptionText());
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
};

QTEST_GUILESS_MAIN(TestShapeReading)
#include "tst_shapereading.moc"
