#pragma once

#include "app/framemenus.h"
#include "catalogue/session.h"

#include <QHash>
#include <QMainWindow>

#include <functional>

class FormRegistry;
class FrameToolbar;
struct FormEntry;
class QLabel;
class QMdiArea;

// The program's frame, MDIForm1: the menus and toolbar, the catalogue session, and the rules
// that route every command to its form. Task commands need an open catalogue, and each task
// form is open at most once: its menu entry stays disabled while it is loaded.
class MainFrame : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainFrame(QWidget *parent = nullptr);
    ~MainFrame() override;

    Session &session() { return m_session; }
    FormRegistry &forms() { return *m_forms; }
    QMdiArea *mdiArea() const { return m_mdiArea; }
    FrameToolbar *toolbar() const { return m_toolbar; }

    // A menu entry or toolbar drop-down item by its name: "mnuBooks", "TitleRep", ...
    QAction *action(const QString &name) const;

    // An area's form, and the menu entry that opens it.
    void registerForm(FormEntry entry);

    // What a command of another area does (a report, the labels, compaction). The frame runs
    // the open-catalogue guard before it, and the command as an event handler: a run-time
    // error it throws is reported and ends it. Until one is set the command does nothing more.
    void setCommand(const QString &name, std::function<void()> command);
    // The same for a command that takes a value from the form that runs it (the book form's
    // cmdPrintLabel gives its book's number). The frame runs it as an event handler.
    void setCommand(const QString &name, std::function<void(const QString &value)> command);
    void runCommand(const QString &name, const QString &value);

    // Disables the menu entry, and the toolbar's drop-down items that stand for it, while the
    // form is loaded.
    void disableWhileLoaded(const QString &formName, const QString &entry);

    // "Shelvane - Open Catalogue: " + the catalogue's name, or "Shelvane" with none open.
    void showCatalogueName(const QString &catalogueName);
    void showNoCatalogue();

    // File › Open Catalogue and the toolbar's open button.
    void openCatalogue();
    // File › Close Catalogue.
    void closeCatalogue();
    // What opening a catalogue does once its file has passed the open form's checks and the
    // user has been told it opened: connectCatalogue, the reports' price format in the user's
    // locale, and the caption naming the catalogue. Throws ProviderError or RuntimeError; the
    // caller then leaves no catalogue open.
    void startSession();
    // Opens the shared connection on the session's catalogue and loads the forms that come
    // with a catalogue, as opening does and as compaction does again afterwards.
    void connectCatalogue();

Q_SIGNALS:
    // Every connection to the catalogue must close now (compaction is about to replace the
    // file); the shared connection closes right after.
    void closingConnections();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void connectMenus();
    void connectWindowMenu();
    void connectHelpMenu();
    void registerOwnForms();

    void runEntry(const QString &entry);
    void openFormOf(const QString &entry);
    void onToolbarButton(const QString &key);
    void onDropDownItem(QAction *item);
    void printChosenForm(QAction *item);
    void minimiseAll();

    Session m_session;
    QMdiArea *m_mdiArea;
    FormRegistry *m_forms;
    FrameMenus m_menus;
    FrameToolbar *m_toolbar;
    QLabel *m_catalogueStatus;
    QHash<QString, std::function<void()>> m_commands;  // by menu entry
    QHash<QString, std::function<void(const QString &)>> m_valueCommands;
    QHash<QString, QString> m_formsByEntry;             // form names by menu entry
};
