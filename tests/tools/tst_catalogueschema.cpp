// The catalogue file as made by the catalogue tool: tables, keys, relationships, views.
#include "formlists.h"
#include "support/testcatalogue.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList columnsOf(const QSqlDatabase &db, const QString &table)
{
    QStringList names;
    QSqlQuery query(db);
    query.exec(u"SELECT name FROM pragma_table_info('%1') ORDER BY cid"_s.arg(table));
    while (query.next())
        names << query.value(0).toString();
    return names;
}

QStringList resultColumnsOf(const QSqlDatabase &db, const QString &view)
{
    QSqlQuery query(db);
    query.exec(u"SELECT * FROM %1"_s.arg(view));
    const QSqlRecord record = query.record();
    QStringList names;
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
    return names;
}

// Runs a statement that must fail and returns SQLite's message.
QString failureOf(const QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    if (query.exec(statement))
        return {};
    return query.lastError().databaseText();
}

QStringList labelColumns()
{
    const QStringList fields = {
        u"BookId"_s, u"BookDescription"_s, u"BookNotes"_s, u"BookPrice"_s, u"BookPagesText"_s,
        u"BookBibliography"_s, u"Book1stEd"_s, u"TopicDescription"_s, u"AuthorFirstName"_s,
        u"AuthorSurname"_s, u"PublisherName"_s, u"PublisherPlace"_s, u"BookWhenPublished"_s};
    QStringList columns;
    for (int label = 1; label <= 4; ++label) {
        for (const QString &field : fields)
            columns << field + QString::number(label);
    }
    return columns;
}

} // namespace

class TestCatalogueSchema : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownerDetailsColumnsAreInTheirFixedOrder()
    {
        TestCatalogue catalogue;
        QCOMPARE(columnsOf(catalogue.db(), u"tblCatalogueControl"_s),
                 QStringList({u"CatalogueName"_s, u"Firstname"_s, u"Surname"_s, u"Addr1"_s,
                              u"Addr2"_s, u"Addr3"_s, u"Addr4"_s, u"Addr5"_s, u"PostCode"_s,
                              u"TelNo1"_s, u"TelNo2"_s, u"FaxNo"_s, u"Email"_s}));
    }

    void labelTableColumnsAreInLabelOrder()
    {
        TestCatalogue catalogue;
        const QStringList columns = columnsOf(catalogue.db(), u"tblLabelTable"_s);
        QCOMPARE(columns.size(), 52);
        QCOMPARE(columns, labelColumns());
    }

    void bookColumnsAreAllThere()
    {
        TestCatalogue catalogue;
        QCOMPARE(columnsOf(catalogue.db(), u"tblBook"_s),
                 QStringList({u"BookID"_s, u"BookDescription"_s, u"BookPagesText"_s,
                              u"BookPagesInto"_s, u"BookCondition"_s, u"BookCover"_s,
                              u"BookPublisherId"_s, u"BookPrice"_s, u"BookSellPrice"_s,
                              u"BookWhenPublished"_s, u"BookWhenPurchased"_s, u"BookWhenSold"_s,
                              u"BookIllustrated"_s, u"BookIllustrations"_s, u"BookPlans"_s,
                              u"BookMaps"_s, u"Book1stEd"_s, u"BookBibliography"_s,
                              u"BookNotes"_s}));
    }

    void requiredRowsArePresent()
    {
        TestCatalogue catalogue;
        for (const QString &table : {u"tblBook"_s, u"tblAuthor"_s, u"tblTopic"_s, u"tblPublisher"_s})
            QVERIFY2(catalogue.scalar(u"SELECT count(*) FROM "_s + table).toInt() >= 1, qPrintable(table));
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s).toInt(), 1);
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblCatalogueControl"_s).toInt(), 1);
        QCOMPARE(catalogue.scalar(
                     u"SELECT count(*) FROM tblCatalogueControl WHERE Firstname IS NULL OR Surname IS NULL "
                     "OR Addr1 IS NULL OR Addr5 IS NULL OR PostCode IS NULL OR TelNo2 IS NULL OR Email IS NULL"_s).toInt(), 0);
    }

    void seedBookHasAConditionAndCoverTheBookFormOffers()
    {
        TestCatalogue catalogue;
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBook WHERE BookCondition IN "_s + FormLists::conditions
                                  + u" AND BookCover IN "_s + FormLists::covers).toInt(), 1);
    }

    void secondIdenticalLinkIsADuplicateKey()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblBookAuthor (BookID, AuthorID) VALUES (1, 1)"_s));
        QVERIFY(failureOf(catalogue.db(), u"INSERT INTO tblBookAuthor (BookID, AuthorID) VALUES (1, 1)"_s)
                    .startsWith(u"UNIQUE constraint failed"_s));
        QVERIFY(query.exec(u"INSERT INTO tblBookTopic (BookID, TopicID) VALUES (1, 1)"_s));
        QVERIFY(failureOf(catalogue.db(), u"INSERT INTO tblBookTopic (BookID, TopicID) VALUES (1, 1)"_s)
                    .startsWith(u"UNIQUE constraint failed"_s));
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBookAuthor"_s).toInt(), 1);
    }

    void deletingABookAuthorOrTopicRemovesItsLinks_data()
    {
        QTest::addColumn<QString>("deletion");
        QTest::addColumn<int>("authorLinksLeft");
        QTest::addColumn<int>("topicLinksLeft");
        QTest::newRow("book") << u"DELETE FROM tblBook WHERE BookID = 2"_s << 1 << 1;
        QTest::newRow("author") << u"DELETE FROM tblAuthor WHERE AuthorID = 2"_s << 1 << 2;
        QTest::newRow("topic") << u"DELETE FROM tblTopic WHERE TopicID = 2"_s << 2 << 1;
    }

    void deletingABookAuthorOrTopicRemovesItsLinks()
    {
        QFETCH(QString, deletion);
        QFETCH(int, authorLinksLeft);
        QFETCH(int, topicLinksLeft);
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId) VALUES ('Second', 1)"_s));
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Second')"_s));
        QVERIFY(query.exec(u"INSERT INTO tblTopic (TopicDescription) VALUES ('Second')"_s));
        QVERIFY(query.exec(u"INSERT INTO tblBookAuthor (BookID, AuthorID) VALUES (1, 1), (2, 2)"_s));
        QVERIFY(query.exec(u"INSERT INTO tblBookTopic (BookID, TopicID) VALUES (1, 1), (2, 2)"_s));

        QVERIFY2(query.exec(deletion), qPrintable(query.lastError().text()));

        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBookAuthor"_s).toInt(), authorLinksLeft);
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBookTopic"_s).toInt(), topicLinksLeft);
    }

    void deletingAPublisherInUseIsRefused()
    {
        TestCatalogue catalogue;
        QVERIFY(failureOf(catalogue.db(), u"DELETE FROM tblPublisher WHERE PublisherID = 1"_s)
                    .startsWith(u"FOREIGN KEY constraint failed"_s));
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblPublisher WHERE PublisherID = 1"_s).toInt(), 1);
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBook WHERE BookPublisherId = 1"_s).toInt(), 1);
    }

    void keysAreNeverReused()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Gone')"_s));
        const int gone = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"DELETE FROM tblAuthor WHERE AuthorID = %1"_s.arg(gone)));
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Next')"_s));
        QVERIFY(query.lastInsertId().toInt() > gone);
    }

    void textComparesAndSortsWithoutCase()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Smith'), ('adams'), ('Brown')"_s));
        QCOMPARE(catalogue.scalar(u"SELECT AuthorSurname FROM tblAuthor WHERE AuthorSurname = 'smith'"_s).toString(), u"Smith"_s);
        QVERIFY(query.exec(u"SELECT AuthorSurname FROM tblAuthor WHERE AuthorSurname <> 'UnKnown' ORDER BY AuthorSurname"_s));
        QStringList order;
        while (query.next())
            order << query.value(0).toString();
        QCOMPARE(order, QStringList({u"adams"_s, u"Brown"_s, u"Smith"_s}));
    }

    void moneyIsRoundedToFourPlaces()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"UPDATE tblBook SET BookPrice = 12.345678, BookSellPrice = 1.00005001"_s));
        QCOMPARE(catalogue.scalar(u"SELECT BookPrice FROM tblBook"_s).toDouble(), 12.3457);
        QCOMPARE(catalogue.scalar(u"SELECT BookSellPrice FROM tblBook"_s).toDouble(), 1.0001);
    }

    void viewsDeliverTheirColumns_data()
    {
        QTest::addColumn<QString>("view");
        QTest::addColumn<QStringList>("columns");
        const QStringList listing = {u"BookDets1"_s, u"BookDets2"_s, u"BookDets3"_s, u"BookPrice"_s, u"Expr1"_s};
        QTest::newRow("qryBookLabel01") << u"qryBookLabel01"_s
            << QStringList({u"BookID"_s, u"BookDescription"_s, u"BookNotes"_s, u"AuthorFirstName"_s,
                            u"AuthorSurname"_s, u"PublisherName"_s, u"PublisherPlace"_s,
                            u"BookWhenPublished"_s, u"Book1stEd"_s, u"BookBibliography"_s,
                            u"BookPagesText"_s, u"BookPrice"_s, u"TopicDescription"_s});
        QTest::newRow("qryBookLabels") << u"qryBookLabels"_s << labelColumns();
        QTest::newRow("qryReport01") << u"qryReport01"_s << listing;
        QTest::newRow("qryReport02") << u"qryReport02"_s << (listing + QStringList({u"ListedAuthor"_s}));
        QTest::newRow("qryTopicDescForRep3") << u"qryTopicDescForRep3"_s
            << QStringList({u"TopicDescription"_s, u"BookID"_s});
        QTest::newRow("qryReport03") << u"qryReport03"_s << (QStringList({u"BookID"_s}) + listing);
    }

    void viewsDeliverTheirColumns()
    {
        QFETCH(QString, view);
        QFETCH(QStringList, columns);
        TestCatalogue catalogue;
        QCOMPARE(resultColumnsOf(catalogue.db(), view), columns);
    }

    void detailLinesOfABareBookSayNoNull()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        // Publisher with no place, no author, year unknown.
        QVERIFY(query.exec(u"INSERT INTO tblPublisher (PublisherName) VALUES ('Bare Press')"_s));
        const int publisher = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId, BookWhenPublished) "
                           "VALUES ('A bare book', %1, 0)"_s.arg(publisher)));
        QVERIFY(query.exec(u"SELECT BookDets1, BookDets2, BookDets3 FROM qryReport01 WHERE BookDets1 = 'A bare book'"_s));
        QVERIFY(query.next());
        QCOMPARE(query.value(0).toString(), u"A bare book"_s);
        QCOMPARE(query.value(1).toString(), u"Bare Press"_s);
        QCOMPARE(query.value(2).toString(), QString());
        QVERIFY(!query.value(1).isNull());
    }

    void detailLinesOfAFullBook()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblPublisher (PublisherName, PublisherPlace) VALUES ('Collins', 'London')"_s));
        const int publisher = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId, BookWhenPublished, "
                           "BookCondition, BookCover, BookPagesText, BookIllustrated, BookIllustrations, "
                           "BookMaps, Book1stEd, BookNotes) VALUES ('Master and Commander', %1, 1970, "
                           "'Good', 'Hardback', 412, 1, 3, 1, 1, 'Signed')"_s.arg(publisher)));
        const int book = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorFirstName, AuthorSurname) VALUES ('Patrick', 'O''Brian')"_s));
        const int author = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Anon')"_s));
        const int anon = query.lastInsertId().toInt();
        QVERIFY(query.exec(u"INSERT INTO tblBookAuthor VALUES (%1, %2), (%1, %3)"_s.arg(book).arg(author).arg(anon)));

        QVERIFY(query.exec(u"SELECT BookDets2, BookDets3 FROM qryReport03 WHERE BookID = %1"_s.arg(book)));
        QVERIFY(query.next());
        QCOMPARE(query.value(0).toString(), u"Anon, Patrick O'Brian; Collins, London; 1970"_s);
        QCOMPARE(query.value(1).toString(),
                 u"Condition: Good; Hardback; 412 pages; illustrated (3); 1 map; first edition; Signed"_s);
    }

    void listingsAreInTitleAndAuthorOrder()
    {
        TestCatalogue catalogue;
        QSqlQuery query(catalogue.db());
        QVERIFY(query.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId) VALUES ('zebra', 1), ('Apple', 1)"_s));
        QVERIFY(query.exec(u"INSERT INTO tblAuthor (AuthorSurname) VALUES ('Young'), ('Abbot')"_s));
        // zebra by Abbot, Apple by Young, "My first book" by nobody.
        QVERIFY(query.exec(u"INSERT INTO tblBookAuthor SELECT b.BookID, a.AuthorID FROM tblBook b, tblAuthor a "
                           "WHERE (b.BookDescription = 'zebra' AND a.AuthorSurname = 'Abbot') "
                           "OR (b.BookDescription = 'Apple' AND a.AuthorSurname = 'Young')"_s));
        auto titles = [&](const QString &view) {
            QStringList result;
            QSqlQuery rows(catalogue.db());
            rows.exec(u"SELECT BookDets1 FROM "_s + view);
            while (rows.next())
                result << rows.value(0).toString();
            return result;
        };
        QCOMPARE(titles(u"qryReport01"_s), QStringList({u"Apple"_s, u"My first book"_s, u"zebra"_s}));
        QCOMPARE(titles(u"qryReport02"_s), QStringList({u"zebra"_s, u"Apple"_s, u"My first book"_s}));
    }
};

QTEST_GUILESS_MAIN(TestCatalogueSchema)
#include "tst_catalogueschema.moc"
