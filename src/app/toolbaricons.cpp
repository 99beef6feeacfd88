#include "app/toolbaricons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

#include <functional>

namespace {

constexpr int Size = 48;

QIcon drawn(const std::function<void(QPainter &)> &draw)
{
    QPixmap pixmap(Size, Size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0x30, 0x30, 0x30), 2));
    draw(painter);
    painter.end();
    return QIcon(pixmap);
}

} // namespace

namespace ToolbarIcons {

QIcon book()
{
    return drawn([](QPainter &painter) {
        painter.setBrush(QColor(0xf4, 0xf0, 0xe0));
        painter.drawRoundedRect(QRectF(14, 8, 26, 34), 2, 2); // the pages
        painter.setBrush(QColor(0x2a, 0x4d, 0x8f));
        painter.drawRoundedRect(QRectF(8, 6, 28, 34), 3, 3); // the cover
        painter.setPen(QPen(QColor(0xd8, 0xc0, 0x60), 2));
        painter.drawLine(QLineF(13, 7, 13, 39)); // the spine
        painter.drawLine(QLineF(18, 16, 31, 16));
    });
}

QIcon openBook()
{
    return drawn([](QPainter &painter) {
        painter.setBrush(QColor(0x2a, 0x4d, 0x8f));
        painter.drawRoundedRect(QRectF(4, 12, 40, 28), 3, 3); // the cover under the pages
        painter.setBrush(QColor(0xf4, 0xf0, 0xe0));
        for (const qreal side : {1.0, -1.0}) { // left page, then right page
            QPainterPath page;
            page.moveTo(24, 14);
            page.cubicTo(24 - side * 8, 8, 24 - side * 14, 10, 24 - side * 18, 10);
            page.lineTo(24 - side * 18, 34);
            page.cubicTo(24 - side * 14, 34, 24 - side * 8, 32, 24, 38);
            page.closeSubpath();
            painter.drawPath(page);
        }
        painter.setPen(QPen(QColor(0x90, 0x90, 0x90), 1.5));
        for (const qreal y : {17.0, 22.0, 27.0}) { // lines of text
            painter.drawLine(QLineF(10, y, 20, y + 1));
            painter.drawLine(QLineF(28, y + 1, 38, y));
        }
    });
}

QIcon author()
{
    return drawn([](QPainter &painter) {
        painter.setBrush(QColor(0x3c, 0x7a, 0x4a));
        painter.drawEllipse(QRectF(16, 6, 16, 16)); // head
        QPainterPath shoulders;
        shoulders.moveTo(8, 42);
        shoulders.cubicTo(8, 26, 40, 26, 40, 42);
        shoulders.closeSubpath();
        painter.drawPath(shoulders);
    });
}

QIcon publisher()
{
    return drawn([](QPainter &painter) {
        painter.setBrush(QColor(0x8a, 0x3b, 0x2e));
        painter.drawPolygon(QPolygonF({QPointF(6, 18), QPointF(24, 6), QPointF(42, 18)}));
        painter.setBrush(QColor(0xe8, 0xdc, 0xc8));
        painter.drawRect(QRectF(9, 18, 30, 22)); // the building
        painter.setBrush(QColor(0x8a, 0x3b, 0x2e));
        for (int x : {13, 22, 31})
            painter.drawRect(QRectF(x, 22, 4, 18)); // its columns
    });
}

QIcon topic()
{
    return drawn([](QPainter &painter) {
        painter.setBrush(QColor(0xe0, 0x8a, 0x1e));
        painter.drawPolygon(QPolygonF({QPointF(6, 14), QPointF(30, 14), QPointF(42, 24),
                                       QPointF(30, 34), QPointF(6, 34)}));
        painter.setBrush(Qt::white);
        painter.drawEllipse(QRectF(29, 21, 6, 6)); // the tag's hole
    });
}

} // namespace ToolbarIcons
