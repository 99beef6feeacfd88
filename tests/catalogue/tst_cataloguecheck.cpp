// The catalogue check: sound files pass, damaged ones fail with a line naming the damage.
#include "catalogue/cataloguecheck.h"
#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "catalogue/samplecollection.h"
#include "snapshot.h"
#include "support/testcatalogue.h"

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// tblCatalogueControl made again with Firstname and Surname swapped, content kept.
const QStringList swapOwnerNameColumns = {
    u"CREATE TABLE swapped (CatalogueName TEXT NOT NULL DEFAULT '', Surname TEXT NOT NULL DEFAULT '', "
    "Firstname TEXT NOT NULL DEFAULT '', Addr1 TEXT NOT NULL DEFAULT '', Addr2 TEXT NOT NULL DEFAULT '', "
    "Addr3 TEXT NOT NULL DEFAULT '', Addr4 TEXT NOT NULL DEFAULT '', Addr5 TEXT NOT NULL DEFAULT '', "
    "PostCode TEXT NOT NULL DEFAULT '', TelNo1 TEXT NOT NULL DEFAULT '', TelNo2 TEXT NOT NULL DEFAULT '', "
    "FaxNo TEXT NOT NULL DEFAULT '', Email TEXT NOT NULL DEFAULT '')"_s,
    u"INSERT INTO swapped SELECT CatalogueName, Surname, Firstname, Addr1, Addr2, Addr3, Addr4, Addr5, "
    "PostCode, TelNo1, TelNo2, FaxNo, Email FROM tblCatalogueControl"_s,
    u"DROP TABLE tblCatalogueControl"_s,
    u"ALTER TABLE swapped RENAME TO tblCatalogueControl"_s};

// A link table made again with the given column definitions, content and index kept. The
// views naming the table are not checked while it is away (legacy renaming).
QStringList rebuildLinkTable(const QString &table, const QString &other, const QString &definition)
{
    return {u"PRAGMA foreign_keys = OFF"_s,
            u"PRAGMA legacy_alter_table = ON"_s,
            u"CREATE TABLE rebuilt (%1)"_s.arg(definition),
            u"INSERT INTO rebuilt SELECT BookID, %1 FROM %2"_s.arg(other, table),
            u"DROP TABLE %1"_s.arg(table),
            u"ALTER TABLE rebuilt RENAME TO %1"_s.arg(table),
            u"CREATE INDEX idx%1%2 ON %1 (%2)"_s.arg(table, other)};
}

QString makeCatalogue(const QTemporaryDir &dir, const CatalogueFile::Filler &fill)
{
    const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
    CatalogueFile::create(path, false /* overwrite */, fill);
    return path;
}

void generateBooks(QSqlDatabase &db)
{
    Generator::fill(db, {.books = 500, .seed = 3, .progress = {}});
}

// What each command of the tool puts into a new catalogue.
CatalogueFile::Filler fillerOf(const QString &command)
{
    if (command == u"sample"_s)
        return SampleCollection::fill;
    if (command == u"generate"_s)
        return generateBooks;
    return {};
}


} // namespace

class TestCatalogueCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void soundCataloguesPass_data()
    {
        QTest::addColumn<QString>("command");
        QTest::newRow("create") << u"create"_s;
        QTest::newRow("sample") << u"sample"_s;
        QTest::newRow("generate 500") << u"generate"_s;
    }

    void soundCataloguesPass()
    {
        QFETCH(QString, command);
        QTemporaryDir dir;
        const QString path = makeCatalogue(dir, fillerOf(command));
        QCOMPARE(CatalogueCheck::problemsIn(path), QStringList());
    }

    void damagedCataloguesFailNamingTheDamage_data()
    {
        QTest::addColumn<QStringList>("damage");
        QTest::addColumn<QStringList>("problems");
        QTest::newRow("view missing") << QStringList{u"DROP VIEW qryReport03"_s}
            << QStringList{u"qryReport03: the view is missing"_s};
        QTest::newRow("columns swapped") << swapOwnerNameColumns
            << QStringList{u"tblCatalogueControl: column 2 is Surname, expected Firstname"_s,
                           u"tblCatalogueControl: column 3 is Firstname, expected Surname"_s};
        QTest::newRow("column added") << QStringList{u"ALTER TABLE tblAuthor ADD COLUMN AuthorBorn INTEGER"_s}
            << QStringList{u"tblAuthor: column 6, AuthorBorn, is not expected"_s};
        QTest::newRow("view made a table")
            << QStringList{u"DROP VIEW qryReport01"_s, u"CREATE TABLE qryReport01 (BookDets1 TEXT)"_s}
            << QStringList{u"qryReport01: is a table, expected a view"_s};
        QTest::newRow("table missing") << QStringList{u"DROP TABLE tblLabelTable"_s}
            << QStringList{u"tblLabelTable: the table is missing"_s,
                           u"trgLabelMoneyInsert: the trigger is missing"_s,
                           u"qryBookLabels: cannot be read: no such table: main.tblLabelTable"_s};
        QTest::newRow("trigger missing") << QStringList{u"DROP TRIGGER trgBookMoneyUpdate"_s}
            << QStringList{u"trgBookMoneyUpdate: the trigger is missing"_s};
        QTest::newRow("link without unique key")
            << rebuildLinkTable(u"tblBookTopic"_s, u"TopicID"_s,
                                u"BookID INTEGER NOT NULL REFERENCES tblBook (BookID) ON DELETE CASCADE, "
                                "TopicID INTEGER NOT NULL REFERENCES tblTopic (TopicID) ON DELETE CASCADE"_s)
            << QStringList{u"tblBookTopic: unique key (BookID, TopicID) is missing"_s};
        QTest::newRow("link without cascade")
            << rebuildLinkTable(u"tblBookAuthor"_s, u"AuthorID"_s,
                                u"BookID INTEGER NOT NULL REFERENCES tblBook (BookID), "
                                "AuthorID INTEGER NOT NULL REFERENCES tblAuthor (AuthorID) ON DELETE CASCADE, "
                                "UNIQUE (BookID, AuthorID)"_s)
            << QStringList{u"tblBookAuthor: (BookID) references tblBook (BookID) on delete CASCADE is missing"_s,
                           u"tblBookAuthor: unexpected (BookID) references tblBook (BookID) on delete NO ACTION"_s};
        QTest::newRow("no UnKnown publisher")
            << QStringList{u"UPDATE tblPublisher SET PublisherName = 'Not known' WHERE PublisherName = 'UnKnown'"_s}
            << QStringList{u"tblPublisher: no publisher named UnKnown"_s};
        QTest::newRow("no topic") << QStringList{u"DELETE FROM tblTopic"_s}
            << QStringList{u"tblTopic: holds no rows, at least one is required"_s};
        QTest::newRow("two owner rows") << QStringList{u"INSERT INTO tblCatalogueControl DEFAULT VALUES"_s}
            << QStringList{u"tblCatalogueControl: holds 2 rows, expected exactly one"_s};
        QTest::newRow("link to a missing book")
            << QStringList{u"PRAGMA foreign_keys = OFF"_s,
                           u"INSERT INTO tblBookAuthor (rowid, BookID, AuthorID) VALUES (1000, 999, 1)"_s}
            << QStringList{u"tblBookAuthor: row 1000 refers to a tblBook row that does not exist"_s};
    }

    void damagedCataloguesFailNamingTheDamage()
    {
        QFETCH(QStringList, damage);
        QFETCH(QStringList, problems);
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlQuery query(catalogue.db());
        for (const QString &statement : damage)
            QVERIFY2(query.exec(statement), qPrintable(query.lastError().text()));

        QCOMPARE(CatalogueCheck::problemsIn(catalogue.path()), problems);
    }

    void unreadableFilesFail_data()
    {
        QTest::addColumn<bool>("truncate");
        QTest::addColumn<QString>("problem");
        QTest::newRow("cut to half its size") << true
            << u"cannot be read as an SQLite database: database disk image is malformed"_s;
        QTest::newRow("plain text") << false
            << u"cannot be read as an SQLite database: file is not a database"_s;
    }

    void unreadableFilesFail()
    {
        QFETCH(bool, truncate);
        QFETCH(QString, problem);
        QTemporaryDir dir;
        const QString path = makeCatalogue(dir, generateBooks);
        QFile file(path);
        if (truncate) {
            QVERIFY(file.resize(file.size() / 2));
        } else {
            QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write("Books to buy:\nThe Natural History of Selborne\n");
            file.close();
        }

        QCOMPARE(CatalogueCheck::problemsIn(path), QStringList{problem});
    }

    void checkLeavesTheFileAlone()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlQuery(catalogue.db()).exec(u"DROP VIEW qryReport02"_s);
        const QByteArray before = fileFingerprint(catalogue.path());

        QVERIFY(!CatalogueCheck::problemsIn(catalogue.path()).isEmpty());

        QCOMPARE(fileFingerprint(catalogue.path()), before);
        QCOMPARE(QDir(catalogue.folder()).entryList(QDir::Files), QStringList{u"QuireshelfCatalog01.mdb"_s});
    }

    void aMissingFileIsAFailureNotAProblem()
    {
        QTemporaryDir dir;
        const QString path = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        QVERIFY_THROWS_EXCEPTION(CatalogueFileError, CatalogueCheck::problemsIn(path));
        QVERIFY(!QFile::exists(path));
    }
};

QTEST_GUILESS_MAIN(TestCatalogueCheck)
#include "tst_cataloguecheck.moc"
