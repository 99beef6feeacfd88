#include "support/finders.h"

#include <QAction>
#include <QApplication>
#include <QMdiSubWindow>

QWidget *FindForm(const QString &name)
{
    const QList<QWidget *> widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        if (widget->objectName() != name)
            continue;
        if (widget->isWindow() || qobject_cast<QMdiSubWindow *>(widget->parentWidget()))
            return widget;
    }
    return nullptr;
}

QAction *FindAction(const QString &name)
{
    const QList<QWidget *> windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        if (auto *action = window->findChild<QAction *>(name))
            return action;
    }
    return nullptr;
}
