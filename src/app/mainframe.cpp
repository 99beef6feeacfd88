#include "app/mainframe.h"

#include "app/catalogueguard.h"
#include "app/compaction.h"
#include "app/formregistry.h"
#include "app/frametoolbar.h"
#include "app/frmabout.h"
#include "app/frmopen.h"
#include "app/helptopics.h"
#include "app/keepbackup.h"
#include "app/mdiwindows.h"
#include "app/printlist.h"
#include "app/toolbaricons.h"
#include "data/providererror.h"
#include "data/recordset.h"
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"
#include "recordform/promptpreference.h"
#include "recordform/runtimeerrorreport.h"
#include "reports/numberformat.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

MainFrame::MainFrame(QWidget *parent)
    : QMainWindow(parent)
    , m_mdiArea(new QMdiArea(this))
    , m_forms(new FormRegistry(this, m_mdiArea))
    , m_menus(buildFrameMenus(this))
    , m_toolbar(new FrameToolbar(this))
    , m_catalogueStatus(new QLabel(this))
{
    setObjectName(u"MDIForm1"_s);
    setProperty("tag", u"Ignore"_s);
    // The forms inside the frame and the windows over it show the same picture.
    setWindowIcon(ToolbarIcons::book());
    m_mdiArea->setObjectName(u"mdiArea"_s);
    m_mdiArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_mdiArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setCentralWidget(m_mdiArea);
    addToolBar(m_toolbar);
    statusBar()->setObjectName(u"stbMain"_s);
    // The status line names the open catalogue's file; the caption carries its name.
    m_catalogueStatus->setObjectName(u"lblCatalogue"_s);
    statusBar()->addWidget(m_catalogueStatus);
    showNoCatalogue();
    resize(1024, 768);

    registerOwnForms();
    connectMenus();
    connectWindowMenu();
    connectHelpMenu();
    setCommand(u"mnuFileCompactDatabase"_s,
               [this] { CompactDatabase(*this); });
    connect(m_toolbar, &FrameToolbar::buttonClicked, this, &MainFrame::onToolbarButton);
    connect(m_toolbar, &FrameToolbar::dropDownItemClicked, this, &MainFrame::onDropDownItem);
}

MainFrame::~MainFrame() = default;

QAction *MainFrame::action(const QString &name) const
{
    if (QAction *entry = m_menus.items.value(name))
        return entry;
    return m_toolbar->dropDownItem(name);
}

void MainFrame::setCommand(const QString &name, std::function<void()> command)
{
    m_commands.insert(name, std::move(command));
}

void MainFrame::setCommand(const QString &name,
                           std::function<void(const QString &value)> command)
{
    m_valueCommands.insert(name, std::move(command));
}

void MainFrame::runCommand(const QString &name, const QString &value)
{
    if (const auto command = m_valueCommands.value(name))
        RunHandler([&] { command(value); });
}

void MainFrame::disableWhileLoaded(const QString &formName, const QString &entry)
{
    m_forms->disableWhileLoaded(formName, action(entry));
    for (QAction *item : m_toolbar->dropDownItemsFor(entry))
        m_forms->disableWhileLoaded(formName, item);
}

void MainFrame::registerForm(FormEntry entry)
{
    if (!entry.menuEntry.isEmpty())
        m_formsByEntry.insert(entry.menuEntry, entry.name);
    m_forms->registerForm(std::move(entry));
}

void MainFrame::showCatalogueName(const QString &catalogueName)
{
    setWindowTitle(u"Shelvane - Open Catalogue: "_s + catalogueName);
    m_catalogueStatus->setText(m_session.strCataloguePath);
}

void MainFrame::showNoCatalogue()
{
    setWindowTitle(u"Shelvane"_s);
    m_catalogueStatus->setText(u"No catalogue open"_s);
}

void MainFrame::registerOwnForms()
{
    registerForm({.name = u"frmOpen"_s,
                  .placement = FormPlacement::Window,
                  .factory = [this] { return new FrmOpen(*this); },
                  .helpTopic = 2});
    registerForm({.name = u"frmAbout"_s,
                  .placement = FormPlacement::Window,
                  .factory = [] { return new FrmAbout; },
                  .helpTopic = 5});
    // The frame itself and the two prompts every record form shows.
    RegisterHelpTopic(objectName(), 1);
    RegisterHelpTopic(u"dlgAddPrompt"_s, 3);
    RegisterHelpTopic(u"dlgDelPrompt"_s, 4);
}

void MainFrame::connectMenus()
{
    connect(action(u"mnuOpen"_s), &QAction::triggered, this, &MainFrame::openCatalogue);
    connect(action(u"mnuClose"_s), &QAction::triggered, this, &MainFrame::closeCatalogue);
    connect(action(u"mnuExit"_s), &QAction::triggered, this, &QWidget::close);
    for (const QString &name : std::as_const(m_menus.taskEntries))
        connect(action(name), &QAction::triggered, this, [this, name] { runEntry(name); });

    // The print list follows the forms open at the moment File is opened.
    connect(m_menus.mnuFile, &QMenu::aboutToShow, this, [this] {
        RefreshWindowList(m_menus.mnuPrint, m_forms->loadedForms());
    });
    connect(m_menus.mnuPrint, &QMenu::triggered, this, &MainFrame::printChosenForm);
}

void MainFrame::connectWindowMenu()
{
    const QList<std::pair<QString, Arrangement>> arrangements{
        {u"mnuTileHorizontally"_s, Arrangement::TileHorizontal},
        {u"mnuTileVertically"_s, Arrangement::TileVertical},
        {u"mnuCascade"_s, Arrangement::Cascade},
        {u"mnuArrangeIcons"_s, Arrangement::ArrangeIcons}};
    for (const auto &[name, arrangement] : arrangements) {
        connect(action(name), &QAction::triggered, this,
                [this, arrangement] { arrangeChildren(m_mdiArea, arrangement); });
    }
    connect(action(u"mnuMinimise"_s), &QAction::triggered, this, &MainFrame::minimiseAll);
    connect(m_menus.mnuListWindows, &QMenu::aboutToShow, this,
            [this] { fillWindowList(m_menus.mnuListWindows, m_mdiArea); });
}

void MainFrame::connectHelpMenu()
{
    connect(action(u"mnuOn"_s), &QAction::triggered, this, [] { SetAllHelpPrompts(true); });
    connect(action(u"mnuOff"_s), &QAction::triggered, this, [] { SetAllHelpPrompts(false); });
    connect(action(u"mnuContents"_s), &QAction::triggered, this,
            [] { ShowHelpTopic(HelpTopic::Contents); });
    // The about box needs no catalogue.
    connect(action(u"mnuAbout"_s), &QAction::triggered, this,
            [this] { m_forms->show(u"frmAbout"_s); });
}

void MainFrame::openCatalogue()
{
    if (m_session.isOpen()) {
        MsgBox(u"Please close current Quireshelf database first!"_s,
               Vb::OKOnly | Vb::Exclamation, u"Shelvane"_s);
        return;
    }
    m_forms->show(u"frmOpen"_s);
}

void MainFrame::closeCatalogue()
{
    if (!CatalogueIsOpen(m_session))
        return;
    // A form that keeps an edit the user chose not to lose keeps the catalogue open too.
    if (!m_forms->unloadAll())
        return;
    KeepBackupIfChanged(m_session);
    MsgBox(u"Catalogue "_s + m_session.strCataloguePath + u" closed!"_s,
           Vb::OKOnly | Vb::Information, u"Close Catalogue"_s);
    m_session.clear();
    showNoCatalogue();
}

void MainFrame::startSession()
{
    connectCatalogue();
    SetPriceFormat(m_session, QLocale());
    // The first field of the owner's record is the catalogue's name. A catalogue without that
    // record is shown by its path instead, so that the caption still says which file is open.
    Connection &connection = *m_session.cnnCatalogue;
    const auto owner = connection.execute(u"tblCatalogueControl"_s, CommandType::Table);
    showCatalogueName(owner->eof() ? QDir::toNativeSeparators(connection.filePath())
                                   : owner->value(0).toString());
}

void MainFrame::connectCatalogue()
{
    m_session.connect();
    // Prepared out of sight; the books command brings it up.
    for (const FormEntry &entry : m_forms->entries()) {
        if (entry.loadedWithCatalogue)
            m_forms->load(entry.name);
    }
}

void MainFrame::closeEvent(QCloseEvent *event)
{
    // Exiting unloads every form first; one that refuses keeps the program running.
    if (!m_forms->unloadAll()) {
        event->ignore();
        return;
    }
    KeepBackupIfChanged(m_session);
    m_session.clear();
    QMainWindow::closeEvent(event);
}

// A menu entry of the open catalogue: the form registered for it, or the command set for it;
// until an area gives one, nothing more than the guard.
void MainFrame::runEntry(const QString &entry)
{
    if (!CatalogueIsOpen(m_session))
        return;
    if (m_formsByEntry.contains(entry))
        openFormOf(entry);
    else if (const auto command = m_commands.value(entry))
        RunHandler(command);
}

// Shows the entry's form. While it is loaded the entry and the toolbar's drop-down items that
// stand for it are disabled, unless the form leaves them on (the search).
void MainFrame::openFormOf(const QString &entry)
{
    const QString formName = m_formsByEntry.value(entry);
    if (m_forms->show(formName) && m_forms->entry(formName)->disablesEntryWhileLoaded)
        disableWhileLoaded(formName, entry);
}

void MainFrame::onToolbarButton(const QString &key)
{
    if (key == u"Open") {
        openCatalogue();
        return;
    }
    if (key == u"Exit") {
        close();
        return;
    }
    if (!CatalogueIsOpen(m_session))
        return;
    // A run-time error while a form opens from here ends the click without a message.
    try {
        const QString entry = m_toolbar->menuEntryOf(key);
        if (m_formsByEntry.contains(entry))
            openFormOf(entry);
    } catch (const RuntimeError &) {
    } catch (const ProviderError &) {
    }
}

void MainFrame::onDropDownItem(QAction *item)
{
    if (!CatalogueIsOpen(m_session))
        return;
    const QString entry = m_toolbar->menuEntryOf(item->objectName());
    if (m_formsByEntry.contains(entry)) {
        openFormOf(entry);
        return;
    }
    // A run-time error in the report abandons the click before the item is disabled.
    bool completed = true;
    if (const auto command = m_commands.value(entry)) {
        completed = false;
        RunHandler([&] {
            command();
            completed = true;
        });
    }
    // A report's item stays disabled until the report that it started is closed.
    if (completed)
        item->setEnabled(false);
}

void MainFrame::printChosenForm(QAction *item)
{
    const QString formName = item->data().toString();
    const FormEntry *entry = m_forms->entry(formName);
    if (!entry || !entry->printable)
        return;
    if (QWidget *form = m_forms->find(formName))
        printFormOnDefaultPrinter(form);
}

void MainFrame::minimiseAll()
{
    // The hidden book form stays out of sight.
    for (QWidget *form : m_forms->loadedForms()) {
        QWidget *window = m_forms->windowOf(form);
        if (window->isVisible())
            window->showMinimized();
    }
}
