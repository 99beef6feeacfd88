#include "app/programicon.h"

#include <QPainter>
#include <QPixmap>

namespace {

struct Spine
{
    qreal left;
    qreal width;
    qreal top;
    QColor colour;
};

} // namespace

QPixmap ProgramIconPixmap(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 48.0, size / 48.0);

    const Spine spines[] = {
        {7, 10, 8, QColor(0x8b, 0x2e, 0x2e)},
        {18, 8, 13, QColor(0x24, 0x46, 0x6b)},
        {27, 11, 6, QColor(0x2f, 0x6b, 0x3a)},
    };
    painter.setPen(QPen(QColor(0x20, 0x20, 0x20), 1));
    for (const Spine &spine : spines) {
        painter.setBrush(spine.colour);
        painter.drawRoundedRect(QRectF(spine.left, spine.top, spine.width, 38 - spine.top), 1.5, 1.5);
        painter.setBrush(QColor(0xe8, 0xd5, 0x8c));
        painter.drawRect(QRectF(spine.left + 2, spine.top + 5, spine.width - 4, 3));
    }
    painter.setBrush(QColor(0x7a, 0x52, 0x30));
    painter.drawRect(QRectF(3, 38, 42, 5));
    return pixmap;
}

QIcon ProgramIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64})
        icon.addPixmap(ProgramIconPixmap(size));
    return icon;
}
