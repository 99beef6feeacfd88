#pragma once

#include "reports/cataloguereports.h"
#include "support/testenvironment.h"

#include <QGuiApplication>
#include <QList>
#include <QProcess>
#include <QString>
#include <QStringList>
#include <QTest>

class ReportPaginator;
struct ReportPage;
struct PageItem;

// The main function of a test of report production: fonts and painting, no widgets.
#define SHELVANE_PRINTING_TEST_MAIN(TestObject)                                               \
    int main(int argc, char *argv[])                                                          \
    {                                                                                         \
        QGuiApplication app(argc, argv);                                                      \
        TestEnvironment environment;                                                          \
        TestObject test;                                                                      \
        QTEST_SET_MAIN_SOURCE_PATH                                                            \
        return QTest::qExec(&test, argc, argv);                                               \
    }

// The price format an en_GB session gives the reports.
inline const QString PoundsFormat = QStringLiteral("£###,##0.00");

// A listing as the report window and the catalogue tool load it: fresh rows, the front page
// filled, the price box given `priceFormat`.
ReportDocument LoadListingOf(const QString &cataloguePath, CatalogueListing listing,
                             const QString &priceFormat = PoundsFormat);

// Every page, laid out.
QList<const ReportPage *> AllPages(ReportPaginator &report);
// The first item a control printed on a page; nullptr when it printed none there.
const PageItem *itemOf(const ReportPage &page, const QString &control);
// What one control printed, page after page, in order.
QStringList TextsOf(const QList<const ReportPage *> &pages, const QString &control);

// The text of a PDF as pdftotext reads it; a null string when it could not be read.
QString PdfText(const QString &pdfPath);
// Pictures of pages of a PDF, saved beside the tests' screenshots as <name>-<n>.png.
bool SavePdfPictures(const QString &pdfPath, const QString &name, int first, int last);

// Runs the catalogue tool in a locale (LANG and LC_ALL), en_GB unless told, with no display.
struct ToolRun
{
    int status = -1;
    QString out;
    QString err;
};
ToolRun RunCatalogueTool(const QStringList &arguments,
                         const QString &lang = QStringLiteral("en_GB.UTF-8"));
