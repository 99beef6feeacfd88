// The statements that change rows the user typed: a book's author and topic links, and the
// owner's details.
#include "statementfixture.h"

#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QString ownerUpdate(const QStringList &boxes)
{
    return u"Update tblCatalogueControl Set CatalogueName = '"_s + boxes[0] + u"', Firstname = '"_s
        + boxes[1] + u"',Surname = '"_s + boxes[2] + u"',Addr1 = '"_s + boxes[3]
        + u"',Addr2 = '"_s + boxes[4] + u"',Addr3 = '"_s + boxes[5] + u"',Addr4 = '"_s + boxes[6]
        + u"',Addr5 = '"_s + boxes[7] + u"',PostCode = '"_s + boxes[8] + u"',TelNo1 = '"_s
        + boxes[9] + u"',TelNo2 = '"_s + boxes[10] + u"',FaxNo = '"_s + boxes[11]
        + u"',Email = '"_s + boxes[12] + u"'"_s;
}

const QStringList ownerColumns = {
    u"CatalogueName"_s, u"Firstname"_s, u"Surname"_s, u"Addr1"_s, u"Addr2"_s, u"Addr3"_s,
    u"Addr4"_s, u"Addr5"_s, u"PostCode"_s, u"TelNo1"_s, u"TelNo2"_s, u"FaxNo"_s, u"Email"_s,
};

QStringList ownerRow(const TestCatalogue &catalogue)
{
    QSqlQuery query(catalogue.db());
    query.exec(u"SELECT "_s + ownerColumns.join(u", "_s) + u" FROM tblCatalogueControl"_s);
    QStringList values;
    while (query.next())
        for (int column = 0; column < ownerColumns.size(); ++column)
            values << cell(query.value(column));
    return values;
}

} // namespace

class TestEditStatements : public StatementTest
{
    Q_OBJECT

private Q_SLOTS:
    void links_data()
    {
        QTest::addColumn<QString>("insert");
        QTest::addColumn<QString>("remove");
        QTest::addColumn<QString>("removeKey");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("column");
        QTest::addColumn<qint64>("key");
        QTest::newRow("author picker OK, Delete Author")
            << u"Insert into tblBookAuthor (BookID,authorID) values ("_s
            << u"Delete from tblBookauthor where BookID = "_s << u" and authorID = "_s
            << u"tblBookAuthor"_s << u"AuthorID"_s << qint64(0);
        QTest::newRow("topic picker OK, Delete Topic")
            << u"Insert into tblBookTopic (BookID,TopicID) values ("_s
            << u"Delete from tblBookTopic where BookID = "_s << u" and TopicID = "_s
            << u"tblBookTopic"_s << u"TopicID"_s << qint64(1);
    }

    // A link is made once; the second time the duplicate key refuses it with state 3022.
    void links()
    {
        QFETCH(QString, insert);
        QFETCH(QString, remove);
        QFETCH(QString, removeKey);
        QFETCH(QString, table);
        QFETCH(QString, column);
        QFETCH(qint64, key);
        const qint64 book = bookId(u"Emma"_s);
        const qint64 other = key == 0 ? authorId(u"Dickens"_s) : topicId(u"Travel"_s);
        const QString pair = u"SELECT count(*) FROM "_s + table + u" WHERE BookID = "_s
            + QString::number(book) + u" AND "_s + column + u" = "_s + QString::number(other);
        const QString all = u"SELECT count(*) FROM "_s + table;
        const int links = count(all);
        QCOMPARE(count(pair), 0);

        const QString statement = insert + QString::number(book) + u","_s + QString::number(other) + u")"_s;
        QCOMPARE(run(statement), 1);
        QCOMPARE(count(pair), 1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, run(statement));
        QCOMPARE(m_connection.errors().value(0).sqlState, u"3022"_s);
        QCOMPARE(count(pair), 1);
        QCOMPARE(count(all), links + 1);

        QCOMPARE(run(remove + QString::number(book) + removeKey + QString::number(other)), 1);
        QCOMPARE(count(pair), 0);
        QCOMPARE(count(all), links);
    }

    void ownerDetails()
    {
        const QStringList boxes = {
            u"The Whitcombe Library & Archive"_s, u"Eleanor"_s, u"Whitcombe-Hale"_s, u"Rosemary Cottage"_s,
            u"12 Church Lane"_s, u"Little Hadham"_s, u" "_s, u"Hertfordshire"_s, u"SG11 2DX"_s,
            u"01632 960418"_s, u" "_s, u"01632 960419"_s, u"eleanor@example.com"_s,
        };
        QCOMPARE(run(ownerUpdate(boxes)), 1);
        QCOMPARE(ownerRow(catalogue()), boxes);

        const auto owner = m_connection.execute(u"tblCatalogueControl"_s, CommandType::Table);
        QCOMPARE(owner->fieldNames(), ownerColumns);
        QCOMPARE(owner->value(0).toString(), boxes[0]);
    }

    void ownerDetailsWithAnApostropheFail()
    {
        const QStringList before = ownerRow(catalogue());
        QStringList boxes = before;
        boxes[2] = u"O'Brien"_s;
        boxes[0] = u"Changed"_s;
        QVERIFY_THROWS_EXCEPTION(ProviderError, run(ownerUpdate(boxes)));
        QCOMPARE(ownerRow(catalogue()), before);
    }
};

QTEST_GUILESS_MAIN(TestEditStatements)
#include "tst_editstatements.moc"
