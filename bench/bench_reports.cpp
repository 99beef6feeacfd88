// The catalogue listings on a catalogue of 30,000 books: how soon a report window shows its
// first page, how fast pages are laid out and written to PDF, and the memory a report
// holds, beside the time SQLite itself takes for the report's query.

#include "benchcatalogue.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "forms/printing/printingforms.h"
#include "forms/printing/reportwindow.h"
#include "reports/numberformat.h"
#include "reports/pdfexport.h"
#include "reports/reportpaginator.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>

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
    return 0;
}
