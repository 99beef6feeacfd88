#pragma once

#include "recordform/prompttexts.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>

#include <functional>

class QAction;
class QMdiArea;
class QMdiSubWindow;
class QWidget;

// A task form lives inside the frame; frmOpen, the about box and the pickers in a window over it.
enum class FormPlacement { Child, Window };

// What an area tells the frame about one of its forms, in one place: how to make it, its help
// topic and prompts, and the commands that open it.
struct FormEntry
{
    QString name = {};
    FormPlacement placement = FormPlacement::Child;
    std::function<QWidget *()> factory = {};
    int helpTopic = 0; // 0: none of its own, F1 opens the contents
    PromptWording addPrompt = {};
    PromptWording deletePrompt = {};
    // The frame's menu entry that opens the form (and so the toolbar's button or drop-down item
    // standing for that entry); both are disabled while the form is loaded, unless not.
    QString menuEntry = {};
    bool disablesEntryWhileLoaded = true;
    // Listed under File › Print while loaded.
    bool printable = false;
    // Loaded hidden as a catalogue opens, and closed by compaction itself rather than stopping
    // it (the book form).
    bool loadedWithCatalogue = false;
};

// The forms the program can open, by name, and the forms loaded now, in the order they were
// loaded. Each area registers a factory for its own forms, so the frame and the other areas
// open a form by name without knowing its class. A form exists at most once: showing a
// loaded form only brings it forward.
class FormRegistry : public QObject
{
    Q_OBJECT

public:
    using Placement = FormPlacement;
    using Factory = std::function<QWidget *()>;

    FormRegistry(QWidget *frame, QMdiArea *area);
    ~FormRegistry() override;

    // Registers the form, its help topic and its prompts' wording.
    void registerForm(FormEntry entry);
    void registerForm(const QString &name, Placement placement, Factory factory);
    bool isRegistered(const QString &name) const;
    // What was registered under that name; nullptr for none.
    const FormEntry *entry(const QString &name) const;
    // What was registered for a loaded form; nullptr for a form not loaded here.
    const FormEntry *entryOf(const QWidget *form) const;
    QList<FormEntry> entries() const;

    // The loaded form of that name, loaded now (and left hidden) when it was not; nullptr
    // when no area has registered it.
    QWidget *load(const QString &name);
    // Loads the form if need be, shows it and brings it forward.
    QWidget *show(const QString &name);
    QWidget *find(const QString &name) const;
    QList<QWidget *> loadedForms() const;
    // The window that carries a loaded form's state: its frame inside the main window, or
    // the form itself.
    QWidget *windowOf(QWidget *form) const;

    // Asks the form to close (its close event may refuse) and answers whether it is gone.
    bool unload(QWidget *form);
    // Unloads every loaded form in load order; answers whether all of them went. A form with
    // an edit pending is asked about it first, and when one answer is Cancel none is unloaded.
    bool unloadAll();

    // Disables the action while the named form stays loaded, and enables it again when the
    // form unloads. Does nothing when that form is not loaded.
    void disableWhileLoaded(const QString &name, QAction *action);

Q_SIGNALS:
    void formUnloaded(const QString &name);

private:
    struct Loaded
    {
        QString name;
        QObject *key; // identifies the entry once the form itself is being destroyed
        QPointer<QWidget> form;
        // Held as a plain widget: it is still looked at while being destroyed, when it is no
        // longer a sub-window.
        QPointer<QWidget> subWindow;
        QList<QPointer<QAction>> disabledActions;
    };

    void place(QWidget *form, Placement placement, Loaded &entry);
    void keepInsideArea(QMdiSubWindow *subWindow) const;
    qsizetype indexOf(const QObject *key) const;
    void forget(const QObject *key);

    QWidget *m_frame;
    QMdiArea *m_area;
    QHash<QString, FormEntry> m_registrations;
    QList<Loaded> m_loaded;
};
