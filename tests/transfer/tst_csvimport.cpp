// Books brought in from CSV files of several kinds, the rows refused, names matched as the
// program compares them, a dry run, and a catalogue exported and imported back.
#include "catalogue/cataloguefile.h"
#include "catalogue/scopeddatabase.h"
#include "support/testcatalogue.h"
#include "transfer/catalogueexport.h"
#include "transfer/csvimport.h"
#include "transfertestbooks.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Title | authors | topics | publisher (place) | year | price | condition | cover | pages | notes
QStringList briefLines(const QString &cataloguePath)
{
    QStringList lines;
    for (const QString &line : bookLines(cataloguePath)) {
        const QStringList f = line.split(u" | "_s);
        lines << QStringList{f[1], f[20], f[21], f[18] + u" ("_s + f[19] + u')', f[8], f[6], f[4], f[5], f[2], f[17]}
                     .join(u" | "_s);
    }
    return lines;
}

struct Imported
{
    CsvImport::Summary summary;
    QStringList reports;
};

Imported importCsv(const QString &csvPath, const QString &cataloguePath, bool dryRun = false)
{
    Imported imported;
    CsvImport::Options options;
    options.dryRun = dryRun;
    options.report = [&](const QString &line) { imported.reports << line; };
    imported.summary = CsvImport::run(csvPath, cataloguePath, options);
    return imported;
}

} // namespace

class TestCsvImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsEachKindOfFile_data()
    {
        QTest::addColumn<QByteArray>("csv");
        QTest::addColumn<QString>("encoding");
        QTest::addColumn<QStringList>("books");
        QTest::addColumn<QStringList>("unread");

        const QStringList twoBooks{
            u"Jane Eyre | Brontë / Charlotte | Classics + Fiction | Ashdown & Pryce (London) | 1847 | 4750.0000 | Fair | Half Calf | 304 | "_s,
            u"Emma | Austen / Jane | Fiction | UnKnown () | 0 | 12.5000 |  |  | 0 | "_s};
        QTest::newRow("our own export, commas, UTF-8")
            << QByteArray("Book Number,Title,Authors,Topics,Publisher,Place,Year Published,Condition,Cover,Pages,Price\r\n"
                          "7,Jane Eyre,\"Brontë, Charlotte\",Classics; Fiction,Ashdown & Pryce,London,1847,Fair,Half Calf,304,4750.00\r\n"
                          "9,Emma,\"Austen, Jane\",Fiction,,,,,,,12.50\r\n")
            << u"UTF-8"_s << twoBooks << QStringList();
        QTest::newRow("any order and case, semicolons, BOM")
            << QByteArray("\xEF\xBB\xBFprice;PUBLISHER;title;AUTHOR;subjects;Place;YEAR;Condition;binding;number of pages\n"
                          "4750;Ashdown & Pryce;Jane Eyre;Charlotte Brontë;\"Fiction; Classics\";London;1847;fair;half calf;304\n"
                          "12.5;;Emma;Jane Austen;Fiction;;;;;\n")
            << u"UTF-8 with BOM"_s << twoBooks << QStringList();
        QTest::newRow("tabs, Windows-1252")
            << QByteArray("Title\tAuthor(s)\tTopic\tPublisher\tPlace of publication\tDate published\tValue\tCondition\tCover\tPages\n"
                          "Jane Eyre\tBront\xEB, Charlotte\tClassics;Fiction\tAshdown & Pryce\tLondon\t1847-10-16\t\xA3" "4,750.00\tFair\tHalf Calf\t304\n"
                          "Emma\tAusten, Jane\tFiction\t\t\t\t\xA3" "12.50\t\t\t\n")
            << u"Windows-1252"_s << twoBooks << QStringList();
        QTest::newRow("a reading site's export")
            << QByteArray("Book Id,Title,Author,Author l-f,Additional Authors,ISBN,ISBN13,My Rating,Publisher,Binding,"
                          "Number of Pages,Year Published,Original Publication Year,Bookshelves,Private Notes\n"
                          "101,Good Omens,Terry Pratchett,\"Pratchett, Terry\",Neil Gaiman,\"=\"\"0552137030\"\"\",\"=\"\"9780552137034\"\"\",5,"
                          "Corgi,Mass Market Paperback,398,1991,1990,\"classics, to-read\",Signed\n")
            << u"UTF-8"_s
            << QStringList{u"Good Omens | Gaiman / Neil + Pratchett / Terry |  | Corgi () | 1991 | 0.0000 |  | Paper Back | 398 | "
                           "Signed\nISBN: 0552137030, 9780552137034"_s}
            << QStringList{u"My Rating"_s, u"Bookshelves"_s};
        QTest::newRow("tags parted by commas, an unlisted cover kept in the notes")
            << QByteArray("Title,Creators,Tags,Cover\nThe Hobbit,J. R. R. Tolkien,\"fantasy, Fiction\",Kindle Edition\n")
            << u"UTF-8"_s
            << QStringList{u"The Hobbit | Tolkien / J. R. R. | Fiction + fantasy | UnKnown () | 0 | 0.0000 |  |  | 0 | Cover: Kindle Edition"_s}
            << QStringList();
    }

    void readsEachKindOfFile()
    {
        QFETCH(QByteArray, csv);
        QFETCH(QString, encoding);
        QFETCH(QStringList, books);
        QFETCH(QStringList, unread);
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        const QString catalogue = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        writeFile(csvPath, csv);

        const Imported imported = importCsv(csvPath, catalogue);

        QCOMPARE(TextEncoding::nameOf(imported.summary.encoding), encoding);
        QCOMPARE(imported.summary.unreadColumns, unread);
        QCOMPARE(imported.summary.books, books.size());
        QCOMPARE(imported.summary.skipped, 0);
        QVERIFY(imported.summary.newCatalogue);
        QCOMPARE(briefLines(catalogue), books);
    }

    void refusedRowsAreToldAndSkipped()
    {
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        const QString catalogue = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        writeFile(csvPath, "Title,Price,Year Published,Pages,Illustrated,Condition\n"
                           "Emma,12.50,1952,412,No,Good\n"
                           ",3.00,1900,10,No,Good\n"
                           "Persuasion,abc,1987,254,No,Excl\n"
                           "Villette,18,19th century,520,No,Good\n"
                           "\"Shirley\nin two lines\",5,1849,many,No,Good\n"
                           "Middlemarch,5,1871,700,maybe,Good\n"
                           "Adam Bede,5,1859,500,No,Good,surplus\n"
                           "Silas Marner,4,1861,250,Yes,Very worn\n"
                           "\"Romola, 5, 1863\n");

        const Imported imported = importCsv(csvPath, catalogue);

        QCOMPARE(imported.reports, (QStringList{
            u"line 3: no title; row skipped"_s,
            u"line 4: price \"abc\" is not a number; row skipped"_s,
            u"line 5: year published \"19th century\" is not a year; row skipped"_s,
            u"line 6: pages \"many\" is not a whole number; row skipped"_s,
            u"line 8: illustrated \"maybe\" is not yes or no; row skipped"_s,
            u"line 9: 7 fields where the first line names 6; row skipped"_s,
            u"line 10: Condition: Very worn is not in the book form's list; kept in the notes"_s,
            u"line 11: a quoted field is never closed; row skipped"_s}));
        QCOMPARE(imported.summary.books, 2);
        QCOMPARE(imported.summary.skipped, 7);
        QCOMPARE(briefLines(catalogue), (QStringList{
            u"Emma |  |  | UnKnown () | 1952 | 12.5000 | Good |  | 412 | "_s,
            u"Silas Marner |  |  | UnKnown () | 1861 | 4.0000 |  |  | 250 | Condition: Very worn"_s}));
    }

    void namesAreMatchedAsTheProgramComparesThem()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto count = [&](const QString &table) { return catalogue.scalar(u"SELECT count(*) FROM "_s + table).toInt(); };
        const int authors = count(u"tblAuthor"_s);
        const int topics = count(u"tblTopic"_s);
        const int publishers = count(u"tblPublisher"_s);
        const QStringList before = bookLines(catalogue.path());
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        writeFile(csvPath, "Title,Authors,Topics,Publisher,Place\n"
                           "Shirley,\"BRONTË, CHARLOTTE\",fiction; CLASSICS,ashdown & pryce,LONDON\n"
                           "Sanditon,jane austen; Jane Austen,Fiction,Greywell Books,\n"
                           "Agnes Grey,\"Bronte, Anne\",Fiction,UNKNOWN,\n");

        const Imported imported = importCsv(csvPath, catalogue.path());

        QVERIFY2(imported.reports.isEmpty(), qPrintable(imported.reports.join(u'\n')));
        QCOMPARE(imported.summary.books, 3);
        // "Bronte" without its accent is another name to the program's "=", as in a search.
        QCOMPARE(imported.summary.newAuthors, 1);
        QCOMPARE(imported.summary.newTopics, 0);
        QCOMPARE(imported.summary.newPublishers, 0);
        QCOMPARE(count(u"tblAuthor"_s), authors + 1);
        QCOMPARE(count(u"tblTopic"_s), topics);
        QCOMPARE(count(u"tblPublisher"_s), publishers);
        const QStringList after = bookLines(catalogue.path());
        QCOMPARE(after.first(before.size()), before); // nothing that was there is changed
        const QStringList added = briefLines(catalogue.path()).sliced(before.size());
        QCOMPARE(added, (QStringList{
            u"Shirley | Brontë / Charlotte | Classics + Fiction | Ashdown & Pryce (London) | 0 | 0.0000 |  |  | 0 | "_s,
            u"Sanditon | Austen / Jane | Fiction | Greywell Books (Bath) | 0 | 0.0000 |  |  | 0 | "_s,
            u"Agnes Grey | Bronte / Anne | Fiction | UnKnown () | 0 | 0.0000 |  |  | 0 | "_s}));
    }

    void aDryRunWritesNothing()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        writeFile(csvPath, "Title,Authors,Topics,Publisher\nShirley,Charlotte Brontë,Fiction,Nowhere Press\n"
                           "Lost,New Author,New Topic,\n,nobody,,\n");
        const QByteArray file = contentOf(catalogue.path());
        const QDateTime modified = QFileInfo(catalogue.path()).lastModified();
        const QStringList filesBefore = QDir(catalogue.folder()).entryList(QDir::Files | QDir::Hidden);

        const Imported dry = importCsv(csvPath, catalogue.path(), true);

        QCOMPARE(contentOf(catalogue.path()), file);
        QCOMPARE(QFileInfo(catalogue.path()).lastModified(), modified);
        QCOMPARE(QDir(catalogue.folder()).entryList(QDir::Files | QDir::Hidden), filesBefore);
        const QString newPath = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        const Imported dryNew = importCsv(csvPath, newPath, true);
        QVERIFY(!QFileInfo::exists(newPath));
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), QStringList{u"books.csv"_s});

        // It tells what the import itself then does.
        const Imported real = importCsv(csvPath, catalogue.path());
        const Imported realNew = importCsv(csvPath, newPath);
        for (const auto &[dryRun, run] : {std::pair{dry, real}, std::pair{dryNew, realNew}}) {
            QCOMPARE(dryRun.reports, run.reports);
            QCOMPARE(dryRun.reports, QStringList{u"line 4: no title; row skipped"_s});
            QCOMPARE(dryRun.summary.books, run.summary.books);
            QCOMPARE(dryRun.summary.newAuthors, run.summary.newAuthors);
            QCOMPARE(dryRun.summary.newTopics, run.summary.newTopics);
            QCOMPARE(dryRun.summary.newPublishers, run.summary.newPublishers);
        }
        QCOMPARE(dry.summary.newAuthors, 1);
        QCOMPARE(dry.summary.newTopics, 1);
        QCOMPARE(dry.summary.newPublishers, 1);
        QCOMPARE(dryNew.summary.newAuthors, 2);
        QCOMPARE(dryNew.summary.newTopics, 2);
        QCOMPARE(dryNew.summary.newPublishers, 1); // "UnKnown" is in every catalogue
    }

    void exportThenImportGivesTheSameCatalogue()
    {
        TestCatalogue catalogue(TestCatalogue::Content::Sample);
        addAwkwardBook(catalogue.path());
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        const QString copy = dir.filePath(u"QuireshelfCatalog01.mdb"_s);

        QCOMPARE(CatalogueExport::write(catalogue.path(), csvPath, {}).books, 61);
        const Imported imported = importCsv(csvPath, copy);

        QVERIFY2(imported.reports.isEmpty(), qPrintable(imported.reports.join(u'\n')));
        QCOMPARE(imported.summary.books, 61);
        QCOMPARE(bookLines(copy), bookLines(catalogue.path()));
        // Every author, topic and publisher that a book names, and no other (the publisher
        // "UnKnown" is in every catalogue).
        const auto named = [](const QString &path, const QString &statement) {
            ScopedDatabase file(path, ScopedDatabase::Mode::ReadOnly);
            QSqlQuery query(file.db());
            query.exec(statement);
            return query.next() ? query.value(0).toInt() : -1;
        };
        QCOMPARE(named(copy, u"SELECT count(*) FROM tblAuthor"_s),
                 named(catalogue.path(), u"SELECT count(DISTINCT AuthorID) FROM tblBookAuthor"_s));
        QCOMPARE(named(copy, u"SELECT count(*) FROM tblTopic"_s),
                 named(catalogue.path(), u"SELECT count(DISTINCT TopicID) FROM tblBookTopic"_s));
        QCOMPARE(named(copy, u"SELECT count(*) FROM tblPublisher WHERE PublisherName <> 'UnKnown'"_s),
                 named(catalogue.path(), u"SELECT count(DISTINCT BookPublisherId) FROM tblBook "
                                         "JOIN tblPublisher ON PublisherID = BookPublisherId WHERE PublisherName <> 'UnKnown'"_s));
    }

    void aFileWithoutTitlesChangesNothing()
    {
        TestCatalogue catalogue;
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        writeFile(csvPath, "Name,Author\nEmma,Jane Austen\n");
        const QByteArray before = contentOf(catalogue.path());
        const QString newPath = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        for (const QString &target : {catalogue.path(), newPath}) {
            try {
                importCsv(csvPath, target);
                QFAIL("the import went through");
            } catch (const CatalogueFileError &e) {
                QCOMPARE(e.message(), u"no column of titles: the first line must name the columns, one of them \"Title\""_s);
            }
        }
        QCOMPARE(contentOf(catalogue.path()), before);
        QVERIFY(!QFileInfo::exists(newPath));
    }

    void anOlderJetCatalogueIsNotWrittenInto()
    {
        QTemporaryDir dir;
        const QString csvPath = dir.filePath(u"books.csv"_s);
        writeFile(csvPath, "Title\nEmma\n");
        const QString jet = dir.filePath(u"QuireshelfCatalog01.mdb"_s);
        writeFile(jet, QByteArray("\x00\x01\x00\x00Standard Jet DB\x00", 20) + QByteArray(4076, '\0'));
        const QByteArray before = contentOf(jet);
        try {
            importCsv(csvPath, jet);
            QFAIL("the import went through");
        } catch (const CatalogueFileError &e) {
            QVERIFY2(e.message().contains(u"older Jet format"_s), qPrintable(e.message()));
        }
        QCOMPARE(contentOf(jet), before);
    }
};

QTEST_GUILESS_MAIN(TestCsvImport)
#include "tst_csvimport.moc"
