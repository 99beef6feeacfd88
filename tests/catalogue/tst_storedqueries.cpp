// A catalogue made by an earlier version: its stored queries are brought to today's when the
// program opens it, its tables and rows untouched; one that cannot be written keeps them.
#include "catalogue/session.h"
#include "catalogue/storedqueries.h"
#include "support/testcatalogue.h"

#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The author listing's query as catalogues were made before its entries named the author
// they stand under.
const QString EarlierReport02 =
    u"CREATE VIEW qryReport02 AS\n"
    "SELECT d.BookDets1 AS BookDets1, d.BookDets2 AS BookDets2, d.BookDets3 AS BookDets3,\n"
    "       d.BookPrice AS BookPrice, d.BookID AS Expr1\n"
    "FROM qryBookDets d\n"
    "     LEFT JOIN tblBookAuthor ba ON ba.BookID = d.BookID\n"
    "ORDER BY d.BookDets1, d.BookID"_s;

void makeEarlier(const TestCatalogue &catalogue)
{
    QSqlQuery query(catalogue.db());
    QVERIFY(query.exec(u"DROP VIEW qryReport02"_s));
    QVERIFY2(query.exec(EarlierReport02), qPrintable(query.lastError().text()));
}

QStringList columnsOf(const QSqlDatabase &db, const QString &view)
{
    QSqlQuery query(db);
    query.exec(u"SELECT * FROM "_s + view + u" LIMIT 0"_s);
    QStringList names;
    const QSqlRecord record = query.record();
    for (int i = 0; i < record.count(); ++i)
        names.append(record.fieldName(i));
    return names;
}

} // namespace

class TestStoredQueries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void todaysCatalogueIsLeftAsItIs()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QVariant before = catalogue.scalar(u"PRAGMA schema_version"_s);
        QSqlDatabase db = catalogue.db();
        QVERIFY(StoredQueries::Refresh(db));
        QCOMPARE(catalogue.scalar(u"PRAGMA schema_version"_s), before);
    }

    void openingAnEarlierCatalogueBringsItsQueriesUpToDate()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        makeEarlier(catalogue);
        const QVariant books = catalogue.scalar(u"SELECT count(*) FROM tblBook"_s);
        const QVariant links = catalogue.scalar(u"SELECT count(*) FROM tblBookAuthor"_s);
        QVERIFY(!columnsOf(catalogue.db(), u"qryReport02"_s).contains(u"ListedAuthor"_s));

        Session session;
        session.strCataloguePath = catalogue.path();
        session.connect();
        QVERIFY(columnsOf(session.cnnCatalogue->database(), u"qryReport02"_s)
                    .contains(u"ListedAuthor"_s));
        session.clear();

        QVERIFY(columnsOf(catalogue.db(), u"qryReport02"_s).contains(u"ListedAuthor"_s));
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBook"_s), books);
        QCOMPARE(catalogue.scalar(u"SELECT count(*) FROM tblBookAuthor"_s), links);
        // Every query of today's catalogues is there and reads.
        QSqlQuery views(catalogue.db());
        views.exec(u"SELECT name FROM sqlite_master WHERE type = 'view'"_s);
        int count = 0;
        while (views.next()) {
            ++count;
            QSqlQuery read(catalogue.db());
            QVERIFY2(read.exec(u"SELECT * FROM "_s + views.value(0).toString()),
                     qPrintable(views.value(0).toString()));
        }
        TestCatalogue today;
        QCOMPARE(count, today.scalar(u"SELECT count(*) FROM sqlite_master WHERE type = 'view'"_s)
                            .toInt());
    }

    void aCatalogueThatCannotBeWrittenKeepsItsQueries()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        makeEarlier(catalogue);
        QSqlDatabase readOnly = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"readonly"_s);
        {
            readOnly.setDatabaseName(catalogue.path());
            readOnly.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
            QVERIFY(readOnly.open());
            QVERIFY(!StoredQueries::Refresh(readOnly));
            QVERIFY(!columnsOf(readOnly, u"qryReport02"_s).contains(u"ListedAuthor"_s));
            QSqlQuery read(readOnly);
            QVERIFY(read.exec(u"SELECT * FROM qryReport02"_s));
            QVERIFY(read.next());
            readOnly.close();
        }
        readOnly = {};
        QSqlDatabase::removeDatabase(u"readonly"_s);
    }
};

QTEST_GUILESS_MAIN(TestStoredQueries)
#include "tst_storedqueries.moc"
