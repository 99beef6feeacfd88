// The Jet SQL translator: what it rewrites, what it leaves alone, and that no input, however
// broken, makes it crash, hang or touch the text of a string literal.
#include "data/jetsql.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int RandomStatements = 100000;
constexpr int RandomExpressions = 3000;

// The '...' literals of a SQLite statement, in order, as written; "..." names are skipped
// and the empty literals the translator adds ('') are left out. A literal never closed is
// returned with the rest of the text.
QStringList singleQuotedLiterals(const QString &sql)
{
    QStringList literals;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar quote = sql[i];
        if (quote != u'\'' && quote != u'"')
            continue;
        qsizetype end = i + 1;
        while (end < sql.size() && !(sql[end] == quote && (end + 1 >= sql.size() || sql[end + 1] != quote)))
            end += sql[end] == quote ? 2 : 1;
        const QString literal = sql.mid(i, end + 1 - i);
        if (quote == u'\'' && literal != u"''"_s)
            literals << literal;
        i = end;
    }
    return literals;
}

// Random text built from the pieces that matter to the translator, unbalanced ones included.
QString randomSoup(QRandomGenerator &random)
{
    static const QStringList pieces = {
        u"a"_s, u"tbl.col"_s, u"&"_s, u"&"_s, u"'"_s, u"\""_s, u"["_s, u"]"_s, u"`"_s, u"("_s,
        u")"_s, u"#"_s, u"1.5"_s, u"-"_s, u"+"_s, u"*"_s, u"/"_s, u","_s, u"."_s, u"select"_s,
        u"from"_s, u"where"_s, u"and"_s, u" "_s, u" "_s, u"''"_s, u"'x & y'"_s, u"\"q\"\""_s,
        u"[n m]"_s, u"`q`"_s, u"Null"_s, u"f("_s, u"#1/2/2003#"_s, u"é"_s, u"\t"_s, u"="_s,
        u"1e"_s, u"e+"_s, u"{"_s, u"}"_s, u"\\"_s, u"%"_s, u"?"_s, u";"_s,
    };
    QString text;
    const int count = random.bounded(0, 40);
    for (int i = 0; i < count; ++i)
        text += pieces[random.bounded(qsizetype(pieces.size()))];
    return text;
}

// The text of a literal: characters that mean something outside one, and doubled quotes.
QString randomLiteralText(QRandomGenerator &random, QChar quote)
{
    static const QStringList pieces = {
        u"a"_s, u"Z"_s, u" "_s, u"&"_s, u" & "_s, u"["_s, u"]"_s, u"`"_s, u"#"_s, u"("_s, u")"_s,
        u","_s, u"*"_s, u"%"_s, u"--"_s, u"ë"_s, u"\""_s, u"'"_s,
    };
    QString text;
    const int count = random.bounded(1, 8);
    for (int i = 0; i < count; ++i) {
        const QString piece = pieces[random.bounded(qsizetype(pieces.size()))];
        text += piece == QString(quote) ? piece + piece : piece;
    }
    return text;
}

// Everything outside literals: names, keywords, operators and parentheses, never a quote.
QString randomPlainPiece(QRandomGenerator &random)
{
    static const QStringList pieces = {
        u"a"_s, u"b.c"_s, u" & "_s, u"&"_s, u" "_s, u"("_s, u")"_s, u","_s, u"-"_s, u"+"_s,
        u"*"_s, u"tbl.*"_s, u"[x y]"_s, u"`q`"_s, u"select "_s, u" from "_s, u" where "_s,
        u" and "_s, u"="_s, u"12"_s, u"f("_s, u"Null"_s, u"#1/2/2003#"_s, u"#"_s,
    };
    return pieces[random.bounded(qsizetype(pieces.size()))];
}

// A Jet expression and the text Jet makes of it (empty for null).
struct Expression
{
    QString jet;
    QString value;
    bool null = false;
};

// SQLite's upper() changes only ASCII letters.
QString asciiUpper(QString text)
{
    for (QChar &c : text)
        if (c >= u'a' && c <= u'z')
            c = QChar(c.unicode() - 'a' + 'A');
    return text;
}

QString blanks(QRandomGenerator &random)
{
    return QString(random.bounded(0, 3), u' ');
}

Expression randomChain(QRandomGenerator &random, int depth);

Expression randomOperand(QRandomGenerator &random, int depth)
{
    const int a = random.bounded(-20, 100);
    const int b = random.bounded(0, 100);
    switch (random.bounded(depth > 2 ? 6 : 9)) {
    case 0: {
        const QString text = randomLiteralText(random, u'\'');
        return {u'\'' + text + u'\'', QString(text).replace(u"''"_s, u"'"_s)};
    }
    case 1: {
        const QString text = randomLiteralText(random, u'"');
        return {u'"' + text + u'"', QString(text).replace(u"\"\""_s, u"\""_s)};
    }
    case 2:
        return {u"Null"_s, QString(), true};
    case 3:
        return {QString::number(a), QString::number(a)};
    case 4:
        return {QString::number(a) + u" + "_s + QString::number(b), QString::number(a + b)};
    case 5:
        return {u"-"_s + QString::number(b) + u" * 2"_s, QString::number(-b * 2)};
    case 6: {
        const Expression inner = randomChain(random, depth + 1);
        return {u'(' + inner.jet + u')', inner.value, inner.null};
    }
    case 7: {
        const Expression inner = randomChain(random, depth + 1);
        return {u"upper("_s + inner.jet + u')', asciiUpper(inner.value), inner.null};
    }
    default: {
        const Expression inner = randomChain(random, depth + 1);
        return {u"length("_s + inner.jet + u')',
                inner.null ? QString() : QString::number(inner.value.size()), inner.null};
    }
    }
}

Expression randomChain(QRandomGenerator &random, int depth)
{
    Expression chain = randomOperand(random, depth);
    const int more = random.bounded(0, 4);
    for (int i = 0; i < more; ++i) {
        const Expression next = randomOperand(random, depth);
        chain.jet += blanks(random) + u'&' + blanks(random) + next.jet;
        chain.value += next.value;
        chain.null = false;
    }
    return chain;
}

} // namespace

class TestJetSql : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"jetsql"_s);
        db.setDatabaseName(u":memory:"_s);
        QVERIFY(db.open());
    }

    void cleanupTestCase()
    {
        QSqlDatabase::database(u"jetsql"_s).close();
        QSqlDatabase::removeDatabase(u"jetsql"_s);
    }

    void translates_data()
    {
        QTest::addColumn<QString>("jet");
        QTest::addColumn<QString>("sqlite");

        QTest::newRow("plain select kept byte for byte")
            << u"select * from tblBook order by bookdescription"_s
            << u"select * from tblBook order by bookdescription"_s;
        QTest::newRow("letter case and doubled and trailing blanks kept")
            << u"Select tblbooktopic.topicId, tblbooktopic.BookId  from tbltopic  "_s
            << u"Select tblbooktopic.topicId, tblbooktopic.BookId  from tbltopic  "_s;
        QTest::newRow("all columns of a qualified table kept")
            << u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID"_s
            << u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID"_s;
        QTest::newRow("empty statement") << QString() << QString();
        QTest::newRow("concatenation of two names")
            << u"select a & b from t"_s << u"select ifnull(a,'') || ifnull(b,'') from t"_s;
        QTest::newRow("concatenation without blanks")
            << u"select a&b from t"_s << u"select ifnull(a,'') || ifnull(b,'') from t"_s;
        QTest::newRow("chain with a literal after a comma")
            << u"select authorid,authorsurname & ' ,  ' & authorfirstname from tblauthor order by authorsurname"_s
            << u"select authorid,ifnull(authorsurname,'') || ifnull(' ,  ','') || ifnull(authorfirstname,'') from tblauthor order by authorsurname"_s;
        QTest::newRow("chain of qualified names ending at an alias")
            << u"select tblAuthor.AuthorID, tblAuthor.AuthorFirstName & ' ' & tblAuthor.AuthorSurName as AuthorName,  tblBook.BookID"_s
            << u"select tblAuthor.AuthorID, ifnull(tblAuthor.AuthorFirstName,'') || ifnull(' ','') || ifnull(tblAuthor.AuthorSurName,'') as AuthorName,  tblBook.BookID"_s;
        QTest::newRow("parenthesised operands")
            << u"select (a + 1) & (b) from t"_s << u"select ifnull((a + 1),'') || ifnull((b),'') from t"_s;
        QTest::newRow("function call operands")
            << u"select Ucase(a) & Mid (b, 2, 3) from t"_s
            << u"select ifnull(Ucase(a),'') || ifnull(Mid (b, 2, 3),'') from t"_s;
        QTest::newRow("arithmetic binds tighter than &")
            << u"select a + 1 & b * 2 - c from t"_s << u"select ifnull(a + 1,'') || ifnull(b * 2 - c,'') from t"_s;
        QTest::newRow("comparison binds looser than &")
            << u"select * from t where a & b = 'xy' and c = 1"_s
            << u"select * from t where ifnull(a,'') || ifnull(b,'') = 'xy' and c = 1"_s;
        QTest::newRow("unary signs belong to the operand")
            << u"select -a & +b, 2 * -c & d"_s << u"select ifnull(-a,'') || ifnull(+b,''), ifnull(2 * -c,'') || ifnull(d,'')"_s;
        QTest::newRow("concatenation inside parentheses")
            << u"select * from t where (a & b) = c"_s << u"select * from t where (ifnull(a,'') || ifnull(b,'')) = c"_s;
        QTest::newRow("nested concatenation")
            << u"select (a & b) & c"_s << u"select ifnull((ifnull(a,'') || ifnull(b,'')),'') || ifnull(c,'')"_s;
        QTest::newRow("chain going on after a nested chain")
            << u"select a & f(b & c) & d"_s
            << u"select ifnull(a,'') || ifnull(f(ifnull(b,'') || ifnull(c,'')),'') || ifnull(d,'')"_s;
        QTest::newRow("concatenation inside function arguments")
            << u"select f(a & b, c)"_s << u"select f(ifnull(a,'') || ifnull(b,''), c)"_s;
        QTest::newRow("bracketed and back-quoted operands")
            << u"select [First Name] & ' ' & `Surname` from t"_s
            << u"select ifnull(\"First Name\",'') || ifnull(' ','') || ifnull(\"Surname\",'') from t"_s;
        QTest::newRow("null and number operands")
            << u"select Null & 1.5 & .5 & 2e-3"_s
            << u"select ifnull(Null,'') || ifnull(1.5,'') || ifnull(.5,'') || ifnull(2e-3,'')"_s;
        QTest::newRow("& inside a literal untouched")
            << u"select * from tblPublisher where PublisherName = 'Ashdown & Pryce'"_s
            << u"select * from tblPublisher where PublisherName = 'Ashdown & Pryce'"_s;
        QTest::newRow("& without a left operand left alone")
            << u"select & b from t"_s << u"select & b from t"_s;
        QTest::newRow("& without a right operand left alone")
            << u"select a & from t"_s << u"select a & from t"_s;
        QTest::newRow("chain broken at its end closes what it wrapped")
            << u"select a & b & from t"_s << u"select ifnull(a,'') || ifnull(b,'') & from t"_s;
        QTest::newRow("bracketed names")
            << u"select [Book Price] from [tblBook]"_s << u"select \"Book Price\" from \"tblBook\""_s;
        QTest::newRow("back-quoted stored query")
            << u"select * from `qryBookLabel01` where BookId = 17"_s
            << u"select * from \"qryBookLabel01\" where BookId = 17"_s;
        QTest::newRow("double quote inside a bracketed name doubled")
            << u"select [a\"b] from t"_s << u"select \"a\"\"b\" from t"_s;
        QTest::newRow("double-quoted literal")
            << u"select * from t where a = \"abc\""_s << u"select * from t where a = 'abc'"_s;
        QTest::newRow("apostrophe in a double-quoted literal doubled")
            << u"select \"it's\""_s << u"select 'it''s'"_s;
        QTest::newRow("doubled double quote in a double-quoted literal")
            << u"select \"say \"\"hi\"\"\""_s << u"select 'say \"hi\"'"_s;
        QTest::newRow("doubled apostrophe kept")
            << u"select * from tblAuthor where AuthorSurname = 'O''Brien'"_s
            << u"select * from tblAuthor where AuthorSurname = 'O''Brien'"_s;
        QTest::newRow("unterminated literal kept")
            << u"select * from tblAuthor where AuthorSurname = 'O'Brien'"_s
            << u"select * from tblAuthor where AuthorSurname = 'O'Brien'"_s;
        QTest::newRow("unterminated double-quoted literal kept")
            << u"select \"abc & d"_s << u"select \"abc & d"_s;
        QTest::newRow("unterminated bracket kept")
            << u"select [abc & d from t"_s << u"select [abc & d from t"_s;
        QTest::newRow("date literal kept")
            << u"select * from t where d = #1/2/2003#"_s << u"select * from t where d = #1/2/2003#"_s;
        QTest::newRow("shape braces kept")
            << u"SHAPE {SELECT a & b FROM t}  AS x"_s << u"SHAPE {SELECT ifnull(a,'') || ifnull(b,'') FROM t}  AS x"_s;
    }

    void translates()
    {
        QFETCH(QString, jet);
        QFETCH(QString, sqlite);
        QCOMPARE(JetSql::toSqlite(jet), sqlite);
    }

    void evaluatesAsJet_data()
    {
        QTest::addColumn<QString>("jet");
        QTest::addColumn<QVariant>("value");

        QTest::newRow("null first operand is empty") << u"Null & ' Smith'"_s << QVariant(u" Smith"_s);
        QTest::newRow("null last operand is empty") << u"'Smith ' & Null"_s << QVariant(u"Smith "_s);
        QTest::newRow("null in the middle of a chain") << u"'a' & Null & 'b'"_s << QVariant(u"ab"_s);
        QTest::newRow("arithmetic operand computed first") << u"1 + 2 & 'x'"_s << QVariant(u"3x"_s);
        QTest::newRow("comparison of a concatenation") << u"'a' & 'b' = 'ab'"_s << QVariant(1);
        QTest::newRow("double-quoted literal is text") << u"\"it's\" & 'x'"_s << QVariant(u"it'sx"_s);
        QTest::newRow("function and parenthesised operands")
            << u"upper('a') & (1 & 2)"_s << QVariant(u"A12"_s);
    }

    void evaluatesAsJet()
    {
        QFETCH(QString, jet);
        QFETCH(QVariant, value);
        QSqlQuery query(QSqlDatabase::database(u"jetsql"_s));
        QVERIFY2(query.exec(u"SELECT "_s + JetSql::toSqlite(jet)), qPrintable(query.lastError().text()));
        QVERIFY(query.next());
        QCOMPARE(query.value(0).toString(), value.toString());
    }

    void unterminatedLiteralStillFails()
    {
        QSqlQuery query(QSqlDatabase::database(u"jetsql"_s));
        QVERIFY(!query.exec(JetSql::toSqlite(u"SELECT 'O'Brien' & 'x'"_s)));
    }

    // Text without any of & [ ` " has nothing to rewrite, so it comes back unchanged; any
    // text at all comes back.
    void survivesRandomText()
    {
        QRandomGenerator random(20240611);
        for (int i = 0; i < RandomStatements; ++i) {
            const QString jet = randomSoup(random);
            const QString sqlite = JetSql::toSqlite(jet);
            static const QRegularExpression rewritten(u"[&\\[`\"]"_s);
            if (!jet.contains(rewritten))
                QCOMPARE(sqlite, jet);
        }
    }

    void survivesDeepNesting()
    {
        const QString deep = QString(200000, u'(') + u"a & b"_s + QString(200000, u')');
        QVERIFY(JetSql::toSqlite(deep).contains(u"ifnull(a,'') || ifnull(b,'')"_s));
        QCOMPARE(JetSql::toSqlite(QString(200000, u'&')), QString(200000, u'&'));
    }

    // Literals keep their text through any statement around them: '...' byte for byte,
    // "..." as the same text in single quotes; one left open at the end stays open.
    void keepsLiteralTextInRandomStatements()
    {
        QRandomGenerator random(19470101);
        for (int i = 0; i < RandomStatements; ++i) {
            QString jet;
            QStringList expected;
            const int parts = random.bounded(1, 12);
            bool afterLiteral = false;
            for (int part = 0; part < parts; ++part) {
                // Two literals side by side would be one literal holding a doubled quote.
                if (afterLiteral || random.bounded(3) != 0) {
                    jet += randomPlainPiece(random);
                    afterLiteral = false;
                    continue;
                }
                afterLiteral = true;
                const QChar quote = random.bounded(2) ? u'\'' : u'"';
                const QString text = randomLiteralText(random, quote);
                jet += quote + text + quote;
                expected << (quote == u'\''
                                 ? u'\'' + text + u'\''
                                 : u'\'' + QString(text).replace(u"\"\""_s, u"\""_s).replace(u'\'', u"''"_s) + u'\'');
            }
            if (!afterLiteral && random.bounded(10) == 0) {
                const QString open = u"'"_s + randomLiteralText(random, u'\'');
                jet += open;
                expected << open;
            }
            const QString sqlite = JetSql::toSqlite(jet);
            if (singleQuotedLiterals(sqlite) != expected)
                QFAIL(qPrintable(u"literals changed in: "_s + jet + u"\n  gave: "_s + sqlite));
        }
    }

    // Random chains evaluated by SQLite give the text Jet gives.
    void evaluatesRandomChainsAsJet()
    {
        QRandomGenerator random(1066);
        QSqlQuery query(QSqlDatabase::database(u"jetsql"_s));
        for (int i = 0; i < RandomExpressions; ++i) {
            const Expression expression = randomChain(random, 0);
            const QString sql = u"SELECT "_s + JetSql::toSqlite(expression.jet);
            if (!query.exec(sql) || !query.next())
                QFAIL(qPrintable(expression.jet + u"\n  gave: "_s + sql + u"\n  "_s + query.lastError().text()));
            if (query.value(0).toString() != expression.value)
                QFAIL(qPrintable(expression.jet + u"\n  gave: "_s + query.value(0).toString()
                                 + u"\n  expected: "_s + expression.value));
        }
    }
};

QTEST_GUILESS_MAIN(TestJetSql)
#include "tst_jetsql.moc"
