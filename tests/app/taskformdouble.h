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

// What a test tells the frame of a double, as the form's area would of the real form.
struct DoubleForm
{
    QString name;
    QString caption;
    QString menuEntry; // none: opened by name only
    bool printable = true;
};

// Registers a double as a child of the frame. The book form's double is loaded with the
// catalogue and the search's leaves its entry on, as the real forms are registered.
inline void registerDouble(MainFrame &frame, const DoubleForm &form)
{
    frame.registerForm({.name = form.name,
                        .factory = [form] { return new TaskFormDouble(form.name, form.caption); },
                        .menuEntry = form.menuEntry,
                        .disablesEntryWhileLoaded = form.name != u"frmSearch",
                        .printable = form.printable,
                        .loadedWithCatalogue = form.name == u"frmBookMaintenance"});
}
