#include "forms/printing/pagepreview.h"

#include "reports/pagepainter.h"
#include "reports/reportpage.h"

#include <QPainter>

namespace {
constexpr int desk = 16; // grey around the sheet, in pixels
}

PagePreview::PagePreview(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("pagePreview"));
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PagePreview::showPage(const ReportPage *page, qreal scale)
{
    m_page = page;
    m_scale = scale;
    resize(sizeHint());
    update();
}

QSize PagePreview::sizeHint() const
{
    if (!m_page)
        return {2 * desk, 2 * desk};
    return (m_page->size * m_scale).toSize() + QSize(2 * desk, 2 * desk);
}

QRectF PagePreview::sheet() const
{
    const QSizeF size = m_page->size * m_scale;
    // Centred when the window is wider or taller than the page.
    const qreal left = std::max<qreal>(desk, (width() - size.width()) / 2);
    const qreal top = std::max<qreal>(desk, (height() - size.height()) / 2);
    return QRectF(QPointF(left, top), size);
}

void PagePreview::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Dark));
    if (!m_page)
        return;
    const QRectF target = sheet();
    painter.fillRect(target.translated(3, 3), QColor(0, 0, 0, 60));
    PaintPage(painter, *m_page, target);
}
