#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/recordset.h"
#include "support/testcatalogue.h"

#include <QFile>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

// Opening catalogues, running commands, and the errors the forms test for.
class TestConnection : public QObject
{
    Q_OBJECT

private:
    static ProviderError openFailure(const QString &path)
    {
        Connection connection;
        try {
            connection.open(ConnectionString::forCatalogue(path));
        } catch (const ProviderError &error) {
            if (connection.isOpen() || connection.errors().value(0).number != error.number)
                return {};
            return error;
        }
        return {};
    }

private Q_SLOTS:
    void opensACatalogueNamedByTheRunTimeString()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()), QString(), QString());
        QVERIFY(connection.isOpen());
        QCOMPARE(connection.filePath(), catalogue.path());
        auto rs = connection.execute(u"select count(*) as n from tblBook"_s);
        QCOMPARE(rs->value(u"n"_s).toInt(), catalogue.scalar(u"select count(*) from tblBook"_s).toInt());
        connection.close();
        QVERIFY(!connection.isOpen());
    }

    // The rollback journal keeps the catalogue one file; EXTRA makes a commit (the journal's
    // deletion) reach the disk before it returns, so it survives a power cut.
    void commitsSurviveAPowerCut()
    {
        TestCatalogue catalogue;
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        QSqlQuery pragma(connection.database());
        QVERIFY(pragma.exec(u"PRAGMA journal_mode"_s) && pragma.next());
        QCOMPARE(pragma.value(0).toString(), u"delete"_s);
        constexpr int Extra = 3;
        QVERIFY(pragma.exec(u"PRAGMA synchronous"_s) && pragma.next());
        QCOMPARE(pragma.value(0).toInt(), Extra);
    }

    void refusesTheDesignTimeString()
    {
        Connection connection;
        QVERIFY_THROWS_EXCEPTION(ProviderError,
                                 connection.open(QString(ConnectionString::designTime)));
        QVERIFY(!connection.isOpen());
    }

    void missingFileNamesThePath()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        const ProviderError error = openFailure(path);
        QCOMPARE(error.number, 3024);
        QCOMPARE(error.description, u"Could not find file '"_s + path + u"'."_s);
        QVERIFY2(!QFile::exists(path), "opening must never create the file");
    }

    void fileThatIsNotACatalogue()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("These are my shopping notes, not a catalogue.\n");
        file.close();
        const ProviderError error = openFailure(path);
        QCOMPARE(error.number, 3343);
        QVERIFY2(error.description.contains(u"not a Shelvane catalogue"_s), qPrintable(error.description));
    }

    void sqliteFileWithoutTheCatalogueTables()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        {
            QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
            db.setDatabaseName(path);
            QVERIFY(db.open());
            QSqlQuery(db).exec(u"create table notes (line text)"_s);
            db.close();
        }
        QSqlDatabase::removeDatabase(u"other"_s);
        QCOMPARE(openFailure(path).number, 3343);
    }

    void olderJetCatalogueNamesTheImportCommand()
    {
        const QString path = QFINDTESTDATA("testdata/older-jet-catalogue.mdb");
        QVERIFY(!path.isEmpty());
        const ProviderError error = openFailure(path);
        QCOMPARE(error.number, 3343);
        QVERIFY2(error.description.contains(u"older Jet format"_s), qPrintable(error.description));
        QVERIFY2(error.description.contains(u"shelvane-catalog import"_s), qPrintable(error.description));
    }

    void tableAndStoredQueryCommands()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        auto table = connection.execute(u"tblTopic"_s, CommandType::Table);
        QCOMPARE(table->recordCount(), catalogue.scalar(u"select count(*) from tblTopic"_s).toInt());
        auto view = connection.execute(u"qryReport01"_s, CommandType::StoredProcedure);
        QCOMPARE(view->recordCount(), catalogue.scalar(u"select count(*) from qryReport01"_s).toInt());
        QVERIFY(view->fieldIndex(u"expr1"_s) >= 0);
        QVERIFY(!view->isUpdatable());
    }

    void actionStatementReportsRowsAffected()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        int affected = -1;
        QVERIFY(!connection.execute(u"Delete from tblcriteriahits"_s, CommandType::Text, &affected));
        QCOMPARE(affected, 0);
        connection.execute(u"Insert into tblcriteriahits (BookID) select BookID from tblBook"_s,
                           CommandType::Text, &affected);
        QCOMPARE(affected, catalogue.scalar(u"select count(*) from tblBook"_s).toInt());
    }

    void duplicateLinkIsSqlState3022()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString book = catalogue.scalar(u"select min(BookID) from tblBookAuthor"_s).toString();
        const QString author =
            catalogue.scalar(u"select min(AuthorID) from tblBookAuthor where BookID = "_s + book).toString();
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        const QString insert =
            u"Insert into tblBookAuthor (BookID,authorID) values ("_s + book + u","_s + author + u")"_s;
        QVERIFY_THROWS_EXCEPTION(ProviderError, connection.execute(insert));
        QCOMPARE(connection.errors().size(), 1);
        QCOMPARE(connection.errors().first().sqlState, u"3022"_s);
        QCOMPARE(catalogue.scalar(u"select count(*) from tblBookAuthor where BookID = "_s + book
                                  + u" and AuthorID = "_s + author).toInt(), 1);
    }

    void deletingAPublisherInUseIsSqlState3200()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString publisher = catalogue.scalar(u"select min(BookPublisherId) from tblBook"_s).toString();
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        auto rs = connection.execute(u"select * from tblPublisher order by PublisherName"_s);
        QVERIFY(rs->find(u"PublisherID = "_s + publisher));
        try {
            rs->deleteCurrent();
            QFAIL("the delete of a publisher in use must be refused");
        } catch (const ProviderError &error) {
            QCOMPARE(error.sqlState, u"3200"_s);
        }
        QCOMPARE(catalogue.scalar(u"select count(*) from tblPublisher where PublisherID = "_s + publisher).toInt(), 1);
        QVERIFY(rs->absolutePosition() > 0);
    }

    void deletingABookRemovesItsLinks()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const QString book = catalogue.scalar(
            u"select min(a.BookID) from tblBookAuthor a join tblBookTopic t on t.BookID = a.BookID"_s).toString();
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        auto rs = connection.execute(u"select * from tblBook order by bookdescription"_s);
        QVERIFY(rs->find(u"BookID = "_s + book));
        rs->deleteCurrent();
        QCOMPARE(catalogue.scalar(u"select count(*) from tblBook where BookID = "_s + book).toInt(), 0);
        QCOMPARE(catalogue.scalar(u"select count(*) from tblBookAuthor where BookID = "_s + book).toInt(), 0);
        QCOMPARE(catalogue.scalar(u"select count(*) from tblBookTopic where BookID = "_s + book).toInt(), 0);
    }

    void writeLockedCatalogueIs3356()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlDatabase holder = catalogue.db();
        QVERIFY(QSqlQuery(holder).exec(u"BEGIN IMMEDIATE"_s));
        Connection connection;
        connection.open(ConnectionString::forCatalogue(catalogue.path()));
        try {
            connection.execute(u"Delete from tblcriteriahits"_s);
            QFAIL("a catalogue another connection is writing must refuse the write");
        } catch (const ProviderError &error) {
            QCOMPARE(error.number, 3356);
        }
        QVERIFY(QSqlQuery(holder).exec(u"ROLLBACK"_s));
    }

    void exclusivelyLockedCatalogueRefusesTheOpenWith3356()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlDatabase holder = catalogue.db();
        QVERIFY(QSqlQuery(holder).exec(u"BEGIN EXCLUSIVE"_s));
        QVERIFY(QSqlQuery(holder).exec(u"DELETE FROM tblCriteriaHits"_s));
        QCOMPARE(openFailure(catalogue.path()).number, 3356);
        QVERIFY(QSqlQuery(holder).exec(u"ROLLBACK"_s));
    }
};

QTEST_GUILESS_MAIN(TestConnection)
#include "tst_connection.moc"
