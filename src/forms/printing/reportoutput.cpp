#include "forms/printing/reportoutput.h"

#include "forms/printing/workprogress.h"
#include "recordform/msgbox.h"
#include "reports/pagepainter.h"
#include "reports/pdfexport.h"
#include "reports/reportpaginator.h"

#include <QFileDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>

using namespace Qt::StringLiterals;

namespace {

// The page scaled to fit the sheet without distortion, centred on it: a report laid out
// for A4 still prints whole on Letter paper.
QRectF fitted(const QSizeF &page, const QSizeF &sheet)
{
    const QSizeF size = page.scaled(sheet, Qt::KeepAspectRatio);
    return QRectF(QPointF((sheet.width() - size.width()) / 2, (sheet.height() - size.height()) / 2),
                  size);
}

} // namespace

void PrintReport(QWidget *parent, ReportPaginator &report)
{
    const int pageCount = report.pageCount();
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(report.definition().caption);
    printer.setFullPage(true);
    // The paper and orientation the report was laid out for, unless the user picks others.
    const QSizeF designed = report.definition().pageSize;
    printer.setPageSize(QPageSize(designed / Decipoints::PerPoint, QPageSize::Point));
    printer.setPageOrientation(designed.width() > designed.height() ? QPageLayout::Landscape
                                                                    : QPageLayout::Portrait);
    printer.setFromTo(1, pageCount);
    QPrintDialog dialog(&printer, parent);
    dialog.setObjectName(u"dlgPrint"_s);
    dialog.setMinMax(1, pageCount);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    if (dialog.exec() != QDialog::Accepted)
        return;

    int first = 1;
    int last = pageCount;
    if (printer.printRange() == QPrinter::PageRange) {
        first = std::max(1, printer.fromPage());
        last = std::min(pageCount, printer.toPage());
    }
    WorkProgress progress(parent, parent->windowTitle(), u"Printing..."_s, last - first + 1);
    QPainter painter(&printer);
    const QRectF sheet = printer.paperRect(QPrinter::DevicePixel);
    for (int number = first; number <= last; ++number) {
        if (number > first)
            printer.newPage();
        const ReportPage &page = *report.page(number - 1);
        PaintPage(painter, page, fitted(page.size, sheet.size()));
        if (!progress.step(number - first + 1)) {
            printer.abort();
            return;
        }
    }
}

void ExportReportToPdf(QWidget *parent, ReportPaginator &report)
{
    QFileDialog dialog(parent, u"Export to PDF"_s);
    dialog.setObjectName(u"cdgExportPdf"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"PDF files (*.pdf)"_s);
    dialog.setDefaultSuffix(u"pdf"_s);
    dialog.selectFile(report.definition().caption + u".pdf"_s);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return;
    const QString path = dialog.selectedFiles().constFirst();

    WorkProgress progress(parent, parent->windowTitle(), u"Exporting to PDF..."_s,
                          report.pageCount());
    QString error;
    const PdfExport::Outcome outcome = PdfExport::write(
        report, path, [&progress](int pages) { return progress.step(pages); }, &error);
    if (outcome == PdfExport::Outcome::Failed)
        MsgBox(error, Vb::OKOnly | Vb::Exclamation, parent->windowTitle());
}
