#include "printing/pagepainter.h"

#include "printing/reportfont.h"
#include "printing/reportpage.h"

#include <QPainter>
#include <QPen>

namespace {

void paintText(QPainter &painter, const ReportPage &page, const PageItem &item)
{
    painter.setFont(ReportFont(page.fontFamily, item.style));
    painter.setPen(item.style.colour);
    painter.drawText(item.rect, int(item.style.alignment) | Qt::TextWordWrap, item.text);
}

void paintOutline(QPainter &painter, const PageItem &item)
{
    QPen pen(item.style.colour, item.lineWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    if (item.kind == PageItem::Kind::Rectangle)
        painter.drawRect(item.rect);
    else
        painter.drawLine(item.rect.topLeft(), item.rect.topRight());
}

} // namespace

void PaintPage(QPainter &painter, const ReportPage &page, const QRectF &target)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.translate(target.topLeft());
    painter.scale(target.width() / page.size.width(), target.height() / page.size.height());
    painter.fillRect(QRectF(QPointF(0, 0), page.size), Qt::white);
    for (const PageItem &item : page.items) {
        if (item.kind == PageItem::Kind::Text)
            paintText(painter, page, item);
        else
            paintOutline(painter, item);
    }
    painter.restore();
}
