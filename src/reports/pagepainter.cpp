#include "reports/pagepainter.h"

#include "reports/reportfont.h"
#include "reports/reportpage.h"

#include <QHash>
#include <QPainter>
#include <QPen>

namespace {

// The fonts of one page, made once for each look of text on it.
class PageFonts
{
public:
    explicit PageFonts(const QString &family)
        : m_family(family)
    {
    }

    const QFont &operator()(const TextStyle &style)
    {
        const quint64 key = (quint64(qRound(style.size * 16)) << 2) | (style.bold ? 2 : 0)
                            | (style.italic ? 1 : 0);
        auto found = m_fonts.constFind(key);
        if (found == m_fonts.cend())
            found = m_fonts.insert(key, ReportFont(m_family, style));
        return *found;
    }

private:
    QString m_family;
    QHash<quint64, QFont> m_fonts;
};

void paintText(QPainter &painter, PageFonts &fonts, const PageItem &item)
{
    painter.setFont(fonts(item.style));
    painter.setPen(item.style.colour);
    if (item.wraps)
        painter.drawText(item.rect, int(item.style.alignment) | Qt::TextWordWrap, item.text);
    else
        painter.drawText(item.rect.topLeft() + item.textOrigin, item.text);
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
    PageFonts fonts(page.fontFamily);
    for (const PageItem &item : page.items) {
        if (item.kind == PageItem::Kind::Text)
            paintText(painter, fonts, item);
        else
            paintOutline(painter, item);
    }
    painter.restore();
}
