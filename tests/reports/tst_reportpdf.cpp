// Listings as PDF files: through the export the report window uses and through
// `shelvane-catalog report`, the same text either way; the tool's errors; no partial files.
#include "reportfixture.h"
#include "reports/pdfexport.h"
#include "reports/reportpaginator.h"
#include "support/testcatalogue.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QStandardPaths>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

struct Listing
{
    CatalogueListing listing;
    QString by;
    QString name;
};

const QList<Listing> listings{{CatalogueListing::ByTitle, u"title"_s, u"DataReport1"_s},
                              {CatalogueListing::ByAuthor, u"author"_s, u"DataReport2"_s},
                              {CatalogueListing::ByTopic, u"topic"_s, u"DataReport3"_s}};

} // namespace

class TestReportPdf : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QVERIFY2(!QStandardPaths::findExecutable(u"pdftotext"_s).isEmpty(),
                 "pdftotext (Debian package poppler-utils) is needed");
    }

    void exportAndToolWriteTheSameListing_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < listings.size(); ++i)
            QTest::newRow(qPrintable(listings[i].by)) << i;
    }

    void exportAndToolWriteTheSameListing()
    {
        QFETCH(int, index);
        const Listing &listing = listings[index];
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QTemporaryDir folder;
        const QString exported = folder.filePath(u"exported.pdf"_s);
        const QString written = folder.filePath(u"written.pdf"_s);

        const auto report = LoadListingOf(catalogue.path(), listing.listing).paginate();
        QString error;
        QCOMPARE(PdfExport::write(*report, exported, {}, &error), PdfExport::Outcome::Written);
        const ToolRun run = RunCatalogueTool({u"report"_s, catalogue.path(), u"--by"_s, listing.by,
                                              u"--pdf"_s, written});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
        QVERIFY(run.out.startsWith(written + u": "_s));

        const QString text = PdfText(exported);
        QVERIFY(!text.isEmpty());
        QCOMPARE(PdfText(written), text);
        for (const QString &expected : {u"The Whitcombe Library"_s, u"Eleanor Whitcombe"_s,
                                        u"Page: 2"_s, u"Ravensworth & Co., Durham"_s,
                                        u"Declan O'Brien"_s, u"Dvořák in England"_s,
                                        u"£8,400.00"_s, u"End of listing"_s})
            QVERIFY2(text.contains(expected), qPrintable(expected));
        QVERIFY(!text.contains(u"07700 900523"_s));
        QVERIFY2(SavePdfPictures(written, listing.name, 1, 3), "pdftoppm could not draw the pages");
        const int middle = report->pageCount() / 2 + 1;
        QVERIFY(SavePdfPictures(written, listing.name + u"-middle"_s, middle, middle));
    }

    // The sheet of every label, staged into the catalogue's label table first.
    void toolWritesTheLabelSheet()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QSqlQuery(catalogue.db()).exec(u"DELETE FROM tblLabelTable"_s);
        QTemporaryDir folder;
        const QString written = folder.filePath(u"labels.pdf"_s);
        const ToolRun run = RunCatalogueTool({u"report"_s, catalogue.path(), u"--by"_s,
                                              u"labels"_s, u"--pdf"_s, written});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
        QVERIFY2(run.out.startsWith(written + u": Catalogue Labels, "_s), qPrintable(run.out));
        const int labels = catalogue.scalar(u"select count(*) from qryBookLabel01"_s).toInt();
        const int rows = catalogue.scalar(u"select count(*) from tblLabelTable"_s).toInt();
        QCOMPARE(rows, (labels + 3) / 4);
        // Every label once; the padding of the last row prints nothing.
        const QString text = PdfText(written);
        QCOMPARE(text.count(u"Book Number :"_s), labels);
        for (const QString &expected : {u"Pride and Prejudice"_s, u"Ashdown & Pryce"_s, u"£385.00"_s})
            QVERIFY2(text.contains(expected), qPrintable(expected));
    }

    void toolRefusesBadInputWithOneLineAndStatusTwo_data()
    {
        QTest::addColumn<QString>("catalogue");
        QTest::addColumn<QString>("by");
        QTest::addColumn<QString>("output");
        QTest::addColumn<QString>("message");
        QTest::newRow("missing catalogue") << u"missing"_s << u"title"_s << u"out.pdf"_s
                                           << u"no such catalogue file"_s;
        QTest::newRow("not a catalogue") << u"text"_s << u"title"_s << u"out.pdf"_s << u": "_s;
        QTest::newRow("no owner row") << u"ownerless"_s << u"topic"_s << u"out.pdf"_s
                                      << u"Either BOF or EOF is True"_s;
        QTest::newRow("bad choice") << u"good"_s << u"price"_s << u"out.pdf"_s
                                    << u"--by must be title, author, topic or labels, not \"price\""_s;
        QTest::newRow("unwritable output") << u"good"_s << u"author"_s << u"no/such/folder/out.pdf"_s
                                           << u"Cannot write"_s;
    }

    void toolRefusesBadInputWithOneLineAndStatusTwo()
    {
        QFETCH(QString, catalogue);
        QFETCH(QString, by);
        QFETCH(QString, output);
        QFETCH(QString, message);
        const TestCatalogue good(TestCatalogue::Content::Sample);
        QTemporaryDir folder;
        QString path = good.path();
        if (catalogue == u"missing") {
            path = folder.filePath(u"QuireshelfCatalog01.mdb"_s);
        } else if (catalogue == u"text") {
            path = folder.filePath(u"notes.mdb"_s);
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("not a catalogue at all, just some words\n");
        } else if (catalogue == u"ownerless") {
            QSqlQuery(good.db()).exec(u"DELETE FROM tblCatalogueControl"_s);
        }
        const QString pdf = folder.filePath(output);
        const ToolRun run = RunCatalogueTool({u"report"_s, path, u"--by"_s, by, u"--pdf"_s, pdf});
        QCOMPARE(run.status, 2);
        QVERIFY2(run.err.startsWith(u"shelvane-catalog: "_s) && run.err.contains(message),
                 qPrintable(run.err));
        QCOMPARE(run.err.count(u'\n'), 1);
        QVERIFY(!QFile::exists(pdf));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).filter(u".pdf"_s), QStringList());
    }

    void cancelledExportLeavesNoFileAndAnOlderOneUntouched()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QTemporaryDir folder;
        const QString path = folder.filePath(u"listing.pdf"_s);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTopic).paginate();
        QCOMPARE(PdfExport::write(*report, path, [](int pages) { return pages < 3; }, nullptr),
                 PdfExport::Outcome::Cancelled);
        QVERIFY(!QFile::exists(path));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList());

        QFile older(path);
        QVERIFY(older.open(QIODevice::WriteOnly));
        older.write("an older listing");
        older.close();
        QCOMPARE(PdfExport::write(*report, path, [](int pages) { return pages < 2; }, nullptr),
                 PdfExport::Outcome::Cancelled);
        QVERIFY(older.open(QIODevice::ReadOnly));
        QCOMPARE(older.readAll(), QByteArray("an older listing"));
    }

    void exportReportsEveryPageItWrites()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        QTemporaryDir folder;
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        QList<int> told;
        QCOMPARE(PdfExport::write(*report, folder.filePath(u"a.pdf"_s),
                                  [&told](int pages) { told.append(pages); return true; }, nullptr),
                 PdfExport::Outcome::Written);
        QCOMPARE(told.size(), report->pageCount());
        QCOMPARE(told.constLast(), report->pageCount());
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestReportPdf)
#include "tst_reportpdf.moc"
