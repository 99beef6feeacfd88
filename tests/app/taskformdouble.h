#pragma once

#include "app/formregistry.h"
#include "app/mainframe.h"

#include <QCloseEvent>
#include <QWidget>

// A plain form standing in for a task form of a later area, so that the frame's routing can
// be watched: it has a name and a caption, and can be told to refuse to close (as a form
// with an edit in progress does when the user answers Cancel).
class TaskFormDouble : public QWidget
{
    Q_OBJECT

public:
    TaskFormDouble(const QString &name, const QString &caption)
    {
        setObjectName(name);
        setWindowTitle(caption);
        resize(320, 200);
    }

    bool refuseClose = false;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        if (refuseClose)
            event->ignore();
        else
            event->accept();
    }
};

// Registers a double under the form's name as a child of the frame.
inline void registerDouble(MainFrame &frame, const QString &name, const QString &caption)
{
    frame.forms().registerForm(name, FormRegistry::Placement::Child,
                               [name, caption] { return new TaskFormDouble(name, caption); });
}
