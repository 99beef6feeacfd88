#include "reports/pdfexport.h"

#include "reports/pagepainter.h"
#include "reports/reportpaginator.h"

#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace PdfExport {

Outcome write(ReportPaginator &report, const QString &path, const Progress &progress,
              QString *error)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        if (error)
            *error = u"Cannot write %1: %2"_s.arg(path, file.errorString());
        return Outcome::Failed;
    }
    const ReportDefinition &definition = report.definition();
    QPdfWriter writer(&file);
    writer.setTitle(definition.caption);
    writer.setCreator(u"Shelvane"_s);
    writer.setPageLayout(QPageLayout(
        QPageSize(definition.pageSize / Decipoints::PerPoint, QPageSize::Point),
        QPageLayout::Portrait, QMarginsF()));

    QPainter painter(&writer);
    const QRectF sheet(QPointF(0, 0), QSizeF(writer.width(), writer.height()));
    bool cancelled = false;
    for (int index = 0; const ReportPage *page = report.page(index); ++index) {
        if (index > 0)
            writer.newPage();
        PaintPage(painter, *page, sheet);
        if (progress && !progress(index + 1)) {
            cancelled = true;
            break;
        }
    }
    painter.end();
    if (cancelled) {
        file.cancelWriting();
        return Outcome::Cancelled;
    }
    if (!file.commit()) {
        if (error)
            *error = u"Cannot write %1: %2"_s.arg(path, file.errorString());
        return Outcome::Failed;
    }
    return Outcome::Written;
}

} // namespace PdfExport
