// The catalogue listings on a catalogue of 30,000 books: how soon a report window shows its
// first page, how fast pages are laid out and written to PDF, and the memory a report
// holds, beside the time SQLite itself takes for the report's query. Then the label sheet:
// copying the labels into the working table, the sheet's first page, and the catalogue
// tool's whole sheet written to a PDF, with its time and the most memory it took.

#include "benchcatalogue.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/connectionstring.h"
#include "forms/printing/printingforms.h"
#include "forms/printing/reportwindow.h"
#include "reports/dataenvironment.h"
#include "reports/labelreports.h"
#include "reports/labeltable.h"
#include "reports/numberformat.h"
#include "reports/pdfexport.h"
#include "reports/reportpaginator.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>

#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

struct Listing
{
    QString entry;
    QString report;
    QStringList queries; // what the listing's command reads
};

const QList<Listing> listings{
    {u"mnuRepTitleOrder"_s, u"DataReport1"_s, {u"SELECT * FROM qryReport01"_s}},
    {u"mnuRepAuthorOrder"_s, u"DataReport2"_s, {u"SELECT * FROM qryReport02"_s}},
    {u"mnuRepTopicOrder"_s, u"DataReport3"_s,
     {u"SELECT * FROM qryTopicDescForRep3"_s, u"SELECT * FROM qryReport03"_s}},
};

double elapsedMs(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

// Processor time of this process, in ms: on a machine busy with other work it tells what
// the wall-clock time would be on an idle one.
double processorMs()
{
    return double(std::clock()) * 1000.0 / CLOCKS_PER_SEC;
}

// Processor time of the child processes waited for so far, in ms.
double childProcessorMs()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto ms = [](const timeval &t) { return t.tv_sec * 1000.0 + t.tv_usec / 1000.0; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

// File › Print Labels in two steps, copying the labels and the sheet's first page, then the
// catalogue tool's whole sheet written to a PDF, as a separate process.
void benchLabelSheet(const QString &cataloguePath, const QSqlDatabase &db, const QTemporaryDir &output)
{
    std::printf("\nDataReport4 (the label sheet)\n");
    const double rawLabelsMs = bestMilliseconds(3, [&] { readAll(db, u"SELECT * FROM qryBookLabel01"_s); });

    QElapsedTimer timer;
    timer.start();
    {
        Connection connection;
        connection.open(ConnectionString::forCatalogue(cataloguePath));
        FillLabelTable(connection);
    }
    reportFigure("Copying the labels into the label table", elapsedMs(timer), rawLabelsMs, "ms");

    const double rawTableMs = bestMilliseconds(3, [&] { readAll(db, u"SELECT * FROM qryBookLabels"_s); });
    timer.restart();
    const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(cataloguePath);
    ReportDocument sheet = LoadLabelSheet(*deShelvane);
    deShelvane->close();
    sheet.definition.applyPriceFormat(PriceFormat(QLocale()));
    const std::unique_ptr<ReportPaginator> pages = sheet.paginate();
    pages->page(0);
    reportFigure("Label table to the sheet's first page", elapsedMs(timer), rawTableMs, "ms");

    // The whole run of the catalogue tool, as a person types it.
    const QString tool = QCoreApplication::applicationDirPath() + u"/shelvane-catalog"_s;
    const double processorBefore = childProcessorMs();
    timer.restart();
    QProcess run;
    run.start(tool, {u"report"_s, cataloguePath, u"--by"_s, u"labels"_s, u"--pdf"_s,
                     output.filePath(u"labels.pdf"_s)});
    // Read while the tool runs: the figure the system keeps for an ended child counts the
    // benchmark's own memory, which the child shares until it starts the tool.
    double peakMiB = 0;
    while (run.state() != QProcess::NotRunning && !run.waitForFinished(20))
        peakMiB = std::max(peakMiB, peakResidentMiB(run.processId()));
    if (run.exitStatus() != QProcess::NormalExit || run.exitCode() != 0) {
        std::printf("the catalogue tool failed: %s\n", run.readAllStandardError().constData());
        return;
    }
    const double toolMs = elapsedMs(timer);
    std::printf("%-44s %10.1f s, %6.1f s on processor time, %.0f MiB at most\n",
                "Catalogue tool: the label sheet to PDF", toolMs / 1000.0,
                (childProcessorMs() - processorBefore) / 1000.0, peakMiB);
    std::printf("  %s", run.readAllStandardOutput().constData());
}

} // namespace

int main(int argc, char **argv)
{
    // A benchmark shows no windows unless asked to.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int books = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 30000;
    std::printf("Generating a catalogue of %d books...\n", books);
    BenchCatalogue catalogue(books);
    QTemporaryDir output;

    MainFrame frame;
    RegisterPrintingForms(frame);
    frame.show();
    Session &session = frame.session();
    session.strCataloguePath = catalogue.path();
    SetPriceFormat(session, QLocale(QLocale::English, QLocale::UnitedKingdom));
    session.cnnCatalogue = std::make_unique<Connection>();
    session.cnnCatalogue->open(session.connectionString());
    const QSqlDatabase db = session.cnnCatalogue->database();

    for (const Listing &listing : listings) {
        std::printf("\n%s\n", qPrintable(listing.report));
        const double rawQueryMs = bestMilliseconds(3, [&] {
            for (const QString &query : listing.queries)
                readAll(db, query);
        });
        const double memoryBefore = residentMiB();

        // The command, to the first page painted in the window.
        QElapsedTimer timer;
        timer.start();
        frame.action(listing.entry)->trigger();
        auto *window = qobject_cast<ReportWindow *>(frame.forms().find(listing.report));
        if (!window) {
            std::printf("the report did not open\n");
            return 1;
        }
        window->grab();
        const double firstPageMs = elapsedMs(timer);
        reportFigure("Report command to its first page shown", firstPageMs, rawQueryMs, "ms");

        ReportPaginator &pages = window->pages();
        timer.restart();
        double processorStart = processorMs();
        const int pageCount = pages.pageCount();
        const double layoutMs = elapsedMs(timer);
        const double layoutProcessorMs = processorMs() - processorStart;
        std::printf("%-44s %10d pages, %6.0f pages/s (%.0f on processor time)\n",
                    "Laying out every page", pageCount, pageCount / (layoutMs / 1000.0),
                    pageCount / (layoutProcessorMs / 1000.0));

        timer.restart();
        processorStart = processorMs();
        PdfExport::write(pages, output.filePath(listing.report + u".pdf"_s), {}, nullptr);
        const double exportMs = elapsedMs(timer);
        const double exportProcessorMs = processorMs() - processorStart;
        std::printf("%-44s %10.0f ms, %6.0f pages/s (%.0f on processor time)\n",
                    "Export to PDF of the laid-out pages", exportMs,
                    pageCount / (exportMs / 1000.0), pageCount / (exportProcessorMs / 1000.0));

        std::printf("%-44s %10.1f MiB (%.1f MiB in all)\n", "Memory held by the open report",
                    residentMiB() - memoryBefore, residentMiB());
        frame.forms().unload(window);
        QCoreApplication::processEvents();
    }
    benchLabelSheet(catalogue.path(), db, output);
    return 0;
}
