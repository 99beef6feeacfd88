#include "app/framemenus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

QMenu *addMenu(QWidget *parentMenu, const QString &name, const QString &caption)
{
    auto *menu = new QMenu(caption, parentMenu);
    menu->setObjectName(name);
    if (auto *bar = qobject_cast<QMenuBar *>(parentMenu))
        bar->addMenu(menu);
    else
        static_cast<QMenu *>(parentMenu)->addMenu(menu);
    return menu;
}

void addItem(FrameMenus &menus, QWidget *menu, const QString &name, const QString &caption)
{
    auto *action = new QAction(caption, menu);
    action->setObjectName(name);
    menu->addAction(action);
    menus.items.insert(name, action);
}

// An entry that needs an open catalogue.
void addTaskItem(FrameMenus &menus, QWidget *menu, const QString &name, const QString &caption)
{
    addItem(menus, menu, name, caption);
    menus.taskEntries.append(name);
}

void addSeparator(QMenu *menu, const QString &name)
{
    menu->addSeparator()->setObjectName(name);
}

void buildFile(FrameMenus &menus, QMenuBar *bar)
{
    QMenu *file = addMenu(bar, u"mnuFile"_s, u"File"_s);
    addItem(menus, file, u"mnuOpen"_s, u"Open Catalogue"_s);
    addTaskItem(menus, file, u"mnuFileCompactDatabase"_s, u"Compact Catalogue"_s);
    addItem(menus, file, u"mnuClose"_s, u"Close Catalogue"_s);
    // Item 0 of the print list stays; the open forms are listed below it each time.
    menus.mnuPrint = addMenu(file, u"mnuPrint"_s, u"Print Screen"_s);
    addSeparator(menus.mnuPrint, u"mnuPrintForm"_s);
    addSeparator(file, u"mnuSep"_s);
    addTaskItem(menus, file, u"mnuPrintLabels"_s, u"Print Labels"_s);
    addSeparator(file, u"mnuSep2"_s);
    addItem(menus, file, u"mnuExit"_s, u"Exit"_s);
    menus.mnuFile = file;
}

void buildEditViewReports(FrameMenus &menus, QMenuBar *bar)
{
    QMenu *edit = addMenu(bar, u"mnuMaintain"_s, u"Edit"_s);
    addTaskItem(menus, edit, u"mnuBooks"_s, u"Books"_s);
    addTaskItem(menus, edit, u"mnuAuthorS"_s, u"Authors"_s);
    addTaskItem(menus, edit, u"mnuPublishers"_s, u"Publishers"_s);
    addTaskItem(menus, edit, u"mnuTopicS"_s, u"Topics"_s);
    addTaskItem(menus, edit, u"mnuCollectionValue"_s, u"Collection Value"_s);
    addTaskItem(menus, edit, u"mnuCatalogueControl"_s, u"Catalogue Control"_s);

    QMenu *view = addMenu(bar, u"mnuView"_s, u"View"_s);
    addTaskItem(menus, view, u"mnuStats"_s, u"Catalogue Statistics"_s);
    addTaskItem(menus, view, u"mnuBookList"_s, u"Complete Catalogue"_s);
    addTaskItem(menus, view, u"mnuTopicSrch"_s, u"By Topic"_s);
    addTaskItem(menus, view, u"mnuAuthorSrch"_s, u"By Author"_s);

    QMenu *reports = addMenu(bar, u"mnuReports"_s, u"Reports"_s);
    addTaskItem(menus, reports, u"mnuRepTitleOrder"_s, u"by Title"_s);
    addTaskItem(menus, reports, u"mnuRepAuthorOrder"_s, u"by Author"_s);
    addTaskItem(menus, reports, u"mnuRepTopicOrder"_s, u"by Topic"_s);
}

void buildWindowHelp(FrameMenus &menus, QMenuBar *bar)
{
    QMenu *window = addMenu(bar, u"mnuWindow"_s, u"Window"_s);
    addItem(menus, window, u"mnuTileHorizontally"_s, u"Tile &Horizontally"_s);
    addItem(menus, window, u"mnuTileVertically"_s, u"Tile &Vertically"_s);
    addItem(menus, window, u"mnuCascade"_s, u"&Cascade"_s);
    addItem(menus, window, u"mnuArrangeIcons"_s, u"Arrange &Icons"_s);
    addItem(menus, window, u"mnuMinimise"_s, u"Minimise All "_s);
    menus.mnuListWindows = addMenu(window, u"mnuListWindows"_s, u"List"_s);

    QMenu *help = addMenu(bar, u"mnuHelp"_s, u"Help"_s);
    QMenu *prompts = addMenu(help, u"mnuSetHelpPrompts"_s, u"Set All Help Prompts"_s);
    addItem(menus, prompts, u"mnuOn"_s, u"On"_s);
    addItem(menus, prompts, u"mnuOff"_s, u"Off"_s);
    menus.items.value(u"mnuOn"_s)->setCheckable(true);
    menus.items.value(u"mnuOff"_s)->setCheckable(true);
    addItem(menus, help, u"mnuContents"_s, u"Contents"_s);
    addItem(menus, help, u"mnuAbout"_s, u"About"_s);
}

} // namespace

FrameMenus buildFrameMenus(QMainWindow *frame)
{
    FrameMenus menus;
    QMenuBar *bar = frame->menuBar();
    buildFile(menus, bar);
    buildEditViewReports(menus, bar);
    // The Search menu's title is itself the command.
    addTaskItem(menus, bar, u"mnuSearch"_s, u"Search"_s);
    buildWindowHelp(menus, bar);
    return menus;
}
