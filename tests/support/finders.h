#pragma once

#include <QString>
#include <QWidget>

class QAction;

// A form by its name: a top-level window or the form inside a frame of the main window,
// shown or hidden. nullptr when no such form is loaded.
QWidget *FindForm(const QString &name);

// A control of a form by its name; nullptr when the form has none of that name and type.
template<typename Control = QWidget>
Control *FindControl(const QWidget *form, const QString &name)
{
    return form ? form->findChild<Control *>(name) : nullptr;
}

// A menu command or toolbar button of any window, by its name.
QAction *FindAction(const QString &name);
