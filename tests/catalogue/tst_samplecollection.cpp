// The demo collection: what a person opening it finds.
#include "formlists.h"
#include "snapshot.h"
#include "support/testcatalogue.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

int count(const TestCatalogue &catalogue, const QString &sql)
{
    return catalogue.scalar(sql).toInt();
}

QStringList column(const TestCatalogue &catalogue, const QString &sql)
{
    QStringList values;
    QSqlQuery query(catalogue.db());
    query.exec(sql);
    while (query.next())
        values << query.value(0).toString();
    return values;
}

} // namespace

class TestSampleCollection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsTheStatedNumbersOfRows_data()
    {
        QTest::addColumn<QString>("table");
        QTest::addColumn<int>("rows");
        QTest::newRow("books") << u"tblBook"_s << 60;
        QTest::newRow("authors") << u"tblAuthor"_s << 40;
        QTest::newRow("topics") << u"tblTopic"_s << 15;
        QTest::newRow("publishers") << u"tblPublisher"_s << 20;
        QTest::newRow("owner") << u"tblCatalogueControl"_s << 1;
    }

    void holdsTheStatedNumbersOfRows()
    {
        QFETCH(QString, table);
        QFETCH(int, rows);
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM "_s + table), rows);
    }

    void seedRowsBecameSampleRows()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(catalogue.scalar(u"SELECT BookDescription FROM tblBook WHERE BookID = 1"_s).toString(),
                 u"Pride and Prejudice"_s);
        QCOMPARE(catalogue.scalar(u"SELECT AuthorSurname FROM tblAuthor WHERE AuthorID = 1"_s).toString(),
                 u"Austen"_s);
        QCOMPARE(catalogue.scalar(u"SELECT PublisherID FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s).toInt(), 1);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookDescription = 'My first book'"_s), 0);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookPublisherId = 1"_s), 2);
    }

    void anAuthorAndATopicHaveNoBooks()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(column(catalogue, u"SELECT AuthorFirstName || ' ' || AuthorSurname FROM tblAuthor "
                                   "WHERE AuthorID NOT IN (SELECT AuthorID FROM tblBookAuthor)"_s),
                 QStringList{u"Gilbert White"_s});
        QCOMPARE(column(catalogue, u"SELECT TopicDescription FROM tblTopic "
                                   "WHERE TopicID NOT IN (SELECT TopicID FROM tblBookTopic)"_s),
                 QStringList{u"Bookbinding"_s});
    }

    void everyBookHasAnAuthorAndATopicAndSomeHaveTwo()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookID NOT IN (SELECT BookID FROM tblBookAuthor)"_s), 0);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookID NOT IN (SELECT BookID FROM tblBookTopic)"_s), 0);
        QCOMPARE(column(catalogue, u"SELECT b.BookDescription FROM tblBook b JOIN tblBookAuthor l ON l.BookID = b.BookID "
                                   "GROUP BY b.BookID HAVING count(*) = 2 ORDER BY b.BookID"_s),
                 QStringList({u"Harbours of the North Sea"_s, u"The Kitchen Garden Year"_s}));
        QVERIFY(count(catalogue, u"SELECT count(*) FROM (SELECT BookID FROM tblBookTopic GROUP BY BookID "
                                 "HAVING count(*) = 2)"_s) >= 10);
    }

    void namesCarryApostrophesAndAccents()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(column(catalogue, u"SELECT AuthorFirstName FROM tblAuthor WHERE AuthorSurname = 'O''Brien'"_s),
                 QStringList{u"Declan"_s});
        QCOMPARE(column(catalogue, u"SELECT AuthorFirstName FROM tblAuthor WHERE AuthorSurname = 'Brontë' "
                                   "ORDER BY AuthorFirstName"_s),
                 QStringList({u"Charlotte"_s, u"Emily"_s}));
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblAuthor WHERE AuthorFirstName = 'Zoë'"_s), 1);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookDescription = 'Dvořák in England'"_s), 1);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblTopic WHERE TopicDescription = 'Children''s Books'"_s), 1);
    }

    void pricesYearsAndNotesVary()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(column(catalogue, u"SELECT BookDescription FROM tblBook WHERE BookWhenPublished = 0 ORDER BY BookID"_s),
                 QStringList({u"Kidnapped"_s, u"Little Women"_s, u"Fairy Tales"_s, u"The Odyssey"_s}));
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookPrice >= 1000"_s), 6);
        QCOMPARE(catalogue.scalar(u"SELECT max(BookPrice) FROM tblBook"_s).toDouble(), 8400.0);
        QCOMPARE(catalogue.scalar(u"SELECT BookPrice FROM tblBook WHERE BookDescription = 'Persuasion'"_s).toDouble(), 2.99);
        QVERIFY(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookNotes <> ''"_s) >= 15);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookWhenSold > 0 AND BookSellPrice > 0"_s), 1);
    }

    void valuesAreThoseTheFormsOffer()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QCOMPARE(column(catalogue, u"SELECT DISTINCT BookCondition FROM tblBook ORDER BY 1"_s),
                 QStringList({u"Excl"_s, u"Fair"_s, u"Good"_s, u"Mint"_s, u"Poor"_s}));
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblBook WHERE BookCover NOT IN "_s + FormLists::covers), 0);
        QCOMPARE(count(catalogue, u"SELECT count(*) FROM tblAuthor WHERE AuthorNationality NOT IN "_s
                                      + FormLists::nationalities), 0);
        QCOMPARE(count(catalogue, u"SELECT count(DISTINCT BookCover) FROM tblBook"_s), 8);
        QCOMPARE(count(catalogue, u"SELECT count(DISTINCT AuthorNationality) FROM tblAuthor"_s), 20);
    }

    void ownerDetailsAreFilledIn()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"SELECT * FROM tblCatalogueControl"_s));
        QVERIFY(query.next());
        QStringList owner;
        for (int i = 0; i < query.record().count(); ++i)
            owner << query.value(i).toString();
        QCOMPARE(owner, QStringList({u"The Whitcombe Library"_s, u"Eleanor"_s, u"Whitcombe"_s,
                                     u"Rosemary Cottage"_s, u"12 Church Lane"_s, u"Little Hadham"_s,
                                     u"Ware"_s, u"Hertfordshire"_s, u"SG11 2DX"_s, u"01632 960418"_s,
                                     u"07700 900523"_s, u"01632 960419"_s,
                                     u"eleanor.whitcombe@example.com"_s}));
    }

    void isTheSameEveryTime()
    {
        TestCatalogue first(TestCatalogue::Content::Sample);
        TestCatalogue second(TestCatalogue::Content::Sample);
        QCOMPARE(rowDump(second.db()), rowDump(first.db()));
    }
};

QTEST_GUILESS_MAIN(TestSampleCollection)
#include "tst_samplecollection.moc"
