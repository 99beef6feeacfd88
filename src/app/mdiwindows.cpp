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

// Each child gets an equal band of the area: stacked one above the other (horizontal tiling)
// or side by side (vertical tiling).
void tile(QMdiArea *area, bool horizontal)
{
    const QList<QMdiSubWindow *> children = visibleChildren(area, false);
    if (children.isEmpty())
        return;
    const QRect space = area->viewport()->rect();
    const int count = int(children.size());
    for (int i = 0; i < count; ++i) {
        QMdiSubWindow *child = children.at(i);
        child->showNormal();
        if (horizontal) {
            const int top = space.height() * i / count;
            const int bottom = space.height() * (i + 1) / count;
            child->setGeometry(0, top, space.width(), bottom - top);
        } else {
            const int left = space.width() * i / count;
            const int right = space.width() * (i + 1) / count;
            child->setGeometry(left, 0, right - left, space.height());
        }
    }
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
        area->cascadeSubWindows();
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
