#include "app/mdiwindows.h"

#include <QAction>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPointer>

namespace {

QList<QMdiSubWindow *> visibleChildren(QMdiArea *area, bool minimised)
{
    QList<QMdiSubWindow *> children;
    for (QMdiSubWindow *child : area->subWindowList(QMdiArea::CreationOrder)) {
        if (child->isVisible() && child->isMinimized() == minimised)
            children.append(child);
    }
    return children;
}

// A child is never given less room than its form needs, fields, buttons and status bar;
// where the frame has less, the frame scrolls.
QSize atLeastItsSmallest(const QMdiSubWindow *child, const QSize &room)
{
    return room.expandedTo(child->minimumSizeHint());
}

// Each child gets an equal band of the area: stacked one above the other (horizontal tiling)
// or side by side (vertical tiling). A child that needs more than its band takes it, and
// the children after it move on.
void tile(QMdiArea *area, bool horizontal)
{
    const QList<QMdiSubWindow *> children = visibleChildren(area, false);
    if (children.isEmpty())
        return;
    const QRect space = area->viewport()->rect();
    const int count = int(children.size());
    int taken = 0; // where the child before ends
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow *child = children.at(i);
        child->showNormal();
        QRect band;
        if (horizontal) {
            const int top = space.height() * i / count;
            const int bottom = space.height() * (i + 1) / count;
            band = QRect(0, std::max(top, taken), space.width(), bottom - top);
        } else {
            const int left = space.width() * i / count;
            const int right = space.width() * (i + 1) / count;
            band = QRect(std::max(left, taken), 0, right - left, space.height());
        }
        band.setSize(atLeastItsSmallest(child, band.size()));
        child->setGeometry(band);
        taken = horizontal ? band.bottom() + 1 : band.right() + 1;
    }
}

// The frame's own cascade, then every child given at least the room its form needs.
void cascade(QMdiArea *area)
{
    area->cascadeSubWindows();
    for (QMdiSubWindow *child : visibleChildren(area, false))
        child->resize(atLeastItsSmallest(child, child->size()));
}

void arrangeIcons(QMdiArea *area)
{
    const QRect space = area->viewport()->rect();
    int left = 0;
    int bottom = space.bottom() + 1;
    for (QMdiSubWindow *child : visibleChildren(area, true)) {
        const QSize size = child->size();
        if (left > 0 && left + size.width() > space.width()) {
            left = 0;
            bottom -= size.height();
        }
        child->move(left, bottom - size.height());
        left += size.width();
    }
}

} // namespace

void arrangeChildren(QMdiArea *area, Arrangement arrangement)
{
    switch (arrangement) {
    case Arrangement::Cascade:
        cascade(area);
        break;
    case Arrangement::TileHorizontal:
        tile(area, true);
        break;
    case Arrangement::TileVertical:
        tile(area, false);
        break;
    case Arrangement::ArrangeIcons:
        arrangeIcons(area);
        break;
    }
}

void fillWindowList(QMenu *list, QMdiArea *area)
{
    list->clear();
    QMdiSubWindow *active = area->activeSubWindow();
    for (QMdiSubWindow *child : area->subWindowList(QMdiArea::CreationOrder)) {
        if (!child->isVisible())
            continue;
        QAction *item = list->addAction(child->windowTitle());
        item->setCheckable(true);
        item->setChecked(child == active);
        QObject::connect(item, &QAction::triggered, area,
                         [area, child = QPointer<QMdiSubWindow>(child)] {
                             if (child)
                                 area->setActiveSubWindow(child);
                         });
    }
}
