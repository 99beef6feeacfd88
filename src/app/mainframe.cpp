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
#include "data/runtimeerror.h"
#include "recordform/msgbox.h"
#include "recordform/promptpreference.h"
#include "recordform/runtimeerrorreport.h"

#include <QAction>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMenu>
#include <QStatusBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// A task command: its menu entry, its form, and the toolbar drop-down item that opens the
// same form (the listing and the two browsers only).
struct TaskCommand
{
    QString entry;
    QString form;
    QString dropDownItem;
};

const QList<TaskCommand> &taskCommands()
{
    static const QList<TaskCommand> commands{
        {u"mnuBooks"_s, u"frmBookMaintenance"_s, {}},
        {u"mnuAuthorS"_s, u"frmAuthor"_s, {}},
        {u"mnuPublishers"_s, u"frmPublisher"_s, {}},
        {u"mnuTopicS"_s, u"frmTopic"_s, {}},
        {u"mnuCollectionValue"_s, u"frmPrices"_s, {}},
        {u"mnuCatalogueControl"_s, u"frmCatalogueControl"_s, {}},
        {u"mnuStats"_s, u"frmBookStats"_s, {}},
        {u"mnuBookList"_s, u"frmBookListing"_s, u"CompleteCat"_s},
        {u"mnuTopicSrch"_s, u"frmTopicBook"_s, u"ByTopic"_s},
        {u"mnuAuthorSrch"_s, u"frmAuthorBook"_s, u"ByAuthor"_s},
    };
    return commands;
}

const TaskCommand *taskCommandFor(const QString &entryOrItem)
{
    for (const TaskCommand &command : taskCommands()) {
        if (command.entry == entryOrItem || command.dropDownItem == entryOrItem)
            return &command;
    }
    return nullptr;
}

// The toolbar buttons that open a task form, with the menu entry each one disables.
const QHash<QString, QString> &toolbarEntries()
{
    static const QHash<QString, QString> entries{
        {u"Book"_s, u"mnuBooks"_s},
        {u"Author"_s, u"mnuAuthorS"_s},
        {u"Publisher"_s, u"mnuPublishers"_s},
        {u"Topic"_s, u"mnuTopicS"_s},
    };
    return entries;
}

// The report items of the "Reports" drop-down run the same commands as the Reports menu.
const QHash<QString, QString> &reportItems()
{
    static const QHash<QString, QString> items{
        {u"TitleRep"_s, u"mnuRepTitleOrder"_s},
        {u"AuthorRep"_s, u"mnuRepAuthorOrder"_s},
        {u"TopicRep"_s, u"mnuRepTopicOrder"_s},
    };
    return items;
}

} // namespace

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
    m_forms->registerForm(u"frmOpen"_s, FormRegistry::Placement::Window,
                          [this] { return new FrmOpen(*this); });
    m_forms->registerForm(u"frmAbout"_s, FormRegistry::Placement::Window,
                          [] { return new FrmAbout; });
}

void MainFrame::connectMenus()
{
    connect(action(u"mnuOpen"_s), &QAction::triggered, this, &MainFrame::openCatalogue);
    connect(action(u"mnuClose"_s), &QAction::triggered, this, &MainFrame::closeCatalogue);
    connect(action(u"mnuExit"_s), &QAction::triggered, this, &QWidget::close);
    for (const TaskCommand &command : taskCommands()) {
        connect(action(command.entry), &QAction::triggered, this, [this, &command] {
            runTaskCommand(command.form, {command.entry, command.dropDownItem});
        });
    }
    connect(action(u"mnuSearch"_s), &QAction::triggered, this, [this] {
        runTaskCommand(u"frmSearch"_s, {});
    });
    const QStringList commands{u"mnuRepTitleOrder"_s, u"mnuRepAuthorOrder"_s,
                               u"mnuRepTopicOrder"_s, u"mnuPrintLabels"_s,
                               u"mnuFileCompactDatabase"_s};
    for (const QString &name : commands)
        connect(action(name), &QAction::triggered, this, [this, name] { runCommand(name); });

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

void MainFrame::connectCatalogue()
{
    m_session.connect();
    // Prepared out of sight; the books command brings it up.
    m_forms->load(u"frmBookMaintenance"_s);
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

void MainFrame::runTaskCommand(const QString &formName, const QStringList &entries)
{
    if (CatalogueIsOpen(m_session))
        openTaskForm(formName, entries);
}

// A form no area has registered yet is not opened, and nothing is disabled for it.
void MainFrame::openTaskForm(const QString &formName, const QStringList &entries)
{
    if (!m_forms->show(formName))
        return;
    for (const QString &entry : entries) {
        if (QAction *used = action(entry))
            m_forms->disableWhileLoaded(formName, used);
    }
}

void MainFrame::runCommand(const QString &name)
{
    if (!CatalogueIsOpen(m_session))
        return;
    if (const auto command = m_commands.value(name))
        RunHandler(command);
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
        if (toolbarEntries().contains(key)) {
            const TaskCommand *command = taskCommandFor(toolbarEntries().value(key));
            openTaskForm(command->form, {command->entry});
        } else if (key == u"Search") {
            openTaskForm(u"frmSearch"_s, {});
        }
    } catch (const RuntimeError &) {
    } catch (const ProviderError &) {
    }
}

void MainFrame::onDropDownItem(QAction *item)
{
    if (!CatalogueIsOpen(m_session))
        return;
    const QString key = item->objectName();
    if (const TaskCommand *command = taskCommandFor(key)) {
        openTaskForm(command->form, {command->entry, command->dropDownItem});
        return;
    }
    // A run-time error in the report abandons the click before the item is disabled.
    bool completed = true;
    if (const auto command = m_commands.value(reportItems().value(key))) {
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
    if (!isPrintableForm(formName))
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
