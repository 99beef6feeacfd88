// The main frame: its menus and toolbar, the guards, the routing of every command to its
// form, the print list, the Window menu and the Help menu's own commands.

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/helpwindow.h"
#include "app/mainframe.h"
#include "app/printlist.h"
#include "forms/registerforms.h"
#include "recordform/promptdialog.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testcatalogue.h"
#include "support/testenvironment.h"
#include "support/testmain.h"
#include "taskformdouble.h"

#include "data/runtimeerror.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

ModalExpectation openFirst()
{
    return ModalResponder::message(u"Shelvane"_s, u"Please open Quireshelf database first!"_s,
                                   QMessageBox::Warning, {u"OK"_s}, u"OK"_s);
}

// The task forms of the later areas, stood in for by doubles; frmPrices is left out on
// purpose, as a form whose area is not built.
const QList<DoubleForm> &doubles()
{
    static const QList<DoubleForm> forms{
        {u"frmBookMaintenance"_s, u"Book Maintenance"_s, u"mnuBooks"_s},
        {u"frmAuthor"_s, u"Authors"_s, u"mnuAuthorS"_s},
        {u"frmPublisher"_s, u"Publishers"_s, u"mnuPublishers"_s},
        {u"frmTopic"_s, u"Topics"_s, u"mnuTopicS"_s},
        {u"frmCatalogueControl"_s, u"Catalogue Control"_s, u"mnuCatalogueControl"_s},
        {u"frmBookStats"_s, u"Collection Statistics"_s, u"mnuStats"_s},
        {u"frmBookListing"_s, u"Book Listing"_s, u"mnuBookList"_s},
        {u"frmTopicBook"_s, u"Books by Topic"_s, u"mnuTopicSrch"_s},
        {u"frmAuthorBook"_s, u"Books by Author"_s, u"mnuAuthorSrch"_s},
        {u"frmSearch"_s, u"Search"_s, u"mnuSearch"_s},
    };
    return forms;
}

void registerDoubles(MainFrame &frame)
{
    for (const DoubleForm &form : doubles())
        registerDouble(frame, form);
}

const QStringList TaskEntries{u"mnuBooks"_s,      u"mnuAuthorS"_s,         u"mnuPublishers"_s,
                              u"mnuTopicS"_s,     u"mnuCollectionValue"_s, u"mnuCatalogueControl"_s,
                              u"mnuStats"_s,      u"mnuBookList"_s,        u"mnuTopicSrch"_s,
                              u"mnuAuthorSrch"_s, u"mnuSearch"_s};
const QStringList DropDownItems{u"TitleRep"_s, u"AuthorRep"_s,  u"TopicRep"_s,
                                u"ByAuthor"_s, u"ByTopic"_s,    u"CompleteCat"_s};

HelpWindow *helpWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *help = qobject_cast<HelpWindow *>(window))
            return help;
    }
    return nullptr;
}

} // namespace

class TestMainFrame : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<MainFrame> m_frame;
    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<ModalResponder> m_responder;

    void openCatalogue()
    {
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Sample);
        const QString problems =
            OpenCatalogueThroughForm(*m_frame, m_catalogue->path(), *m_responder);
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
        QTRY_VERIFY(!FindForm(u"frmOpen"_s));
    }
    void finish()
    {
        const QString problems = m_responder->finish();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }
    QAction *entry(const QString &name) const { return m_frame->action(name); }
    QToolButton *button(const QString &key) const
    {
        return m_frame->findChild<QToolButton *>(key);
    }
    QWidget *loaded(const QString &name) const { return m_frame->forms().find(name); }
    void closeForm(const QString &name)
    {
        QWidget *form = loaded(name);
        QVERIFY(form);
        QVERIFY(m_frame->forms().windowOf(form)->close());
        QTRY_VERIFY(!FindForm(name));
    }
    // Opens File, as the user does before choosing Print Screen, and reads the print list.
    QStringList printList() const
    {
        auto *file = m_frame->findChild<QMenu *>(u"mnuFile"_s);
        file->popup(QPoint(0, 0));
        file->hide();
        QStringList captions;
        const QList<QAction *> items = m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions();
        for (qsizetype i = 1; i < items.size(); ++i)
            captions << items.at(i)->text() + u" ("_s + items.at(i)->data().toString() + u')';
        return captions;
    }

private Q_SLOTS:
    void initTestCase()
    {
        // A frame closed by a test must not end the test run.
        QApplication::setQuitOnLastWindowClosed(false);
        // The prompts and help topics are the areas' own, given as the program starts; the
        // frames of the tests then stand doubles in for the forms.
        MainFrame program;
        RegisterAllForms(program);
    }

    void init()
    {
        TestEnvironment::clearSettings();
        m_frame = std::make_unique<MainFrame>();
        registerDoubles(*m_frame);
        m_frame->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
        m_responder = std::make_unique<ModalResponder>();
    }

    void cleanup()
    {
        const QString problems = m_responder->finish(100);
        m_responder.reset();
        m_frame.reset();
        m_catalogue.reset();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }

    void menuTree_data()
    {
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QStringList>("items"); // name=caption, in order; "-" a separator

        QTest::newRow("File") << u"mnuFile"_s
                              << QStringList{u"mnuOpen=Open Catalogue"_s,
                                             u"mnuFileCompactDatabase=Compact Catalogue"_s,
                                             u"mnuClose=Close Catalogue"_s,
                                             u"mnuPrint=Print Screen"_s,
                                             u"-"_s,
                                             u"mnuPrintLabels=Print Labels"_s,
                                             u"-"_s,
                                             u"mnuExit=Exit"_s};
        QTest::newRow("Edit") << u"mnuMaintain"_s
                              << QStringList{u"mnuBooks=Books"_s,
                                             u"mnuAuthorS=Authors"_s,
                                             u"mnuPublishers=Publishers"_s,
                                             u"mnuTopicS=Topics"_s,
                                             u"mnuCollectionValue=Collection Value"_s,
                                             u"mnuCatalogueControl=Catalogue Control"_s};
        QTest::newRow("View") << u"mnuView"_s
                              << QStringList{u"mnuStats=Catalogue Statistics"_s,
                                             u"mnuBookList=Complete Catalogue"_s,
                                             u"mnuTopicSrch=By Topic"_s,
                                             u"mnuAuthorSrch=By Author"_s};
        QTest::newRow("Reports") << u"mnuReports"_s
                                 << QStringList{u"mnuRepTitleOrder=by Title"_s,
                                                u"mnuRepAuthorOrder=by Author"_s,
                                                u"mnuRepTopicOrder=by Topic"_s};
        QTest::newRow("Window") << u"mnuWindow"_s
                                << QStringList{u"mnuTileHorizontally=Tile &Horizontally"_s,
                                               u"mnuTileVertically=Tile &Vertically"_s,
                                               u"mnuCascade=&Cascade"_s,
                                               u"mnuArrangeIcons=Arrange &Icons"_s,
                                               u"mnuMinimise=Minimise All "_s,
                                               u"mnuListWindows=List"_s};
        QTest::newRow("Help") << u"mnuHelp"_s
                              << QStringList{u"mnuSetHelpPrompts=Set All Help Prompts"_s,
                                             u"mnuContents=Contents"_s,
                                             u"mnuAbout=About"_s};
        QTest::newRow("Set All Help Prompts")
            << u"mnuSetHelpPrompts"_s << QStringList{u"mnuOn=On"_s, u"mnuOff=Off"_s};
        QTest::newRow("Print Screen before File opens") << u"mnuPrint"_s << QStringList{u"-"_s};
    }

    void menuTree()
    {
        QFETCH(QString, menu);
        QFETCH(QStringList, items);
        auto *shown = m_frame->findChild<QMenu *>(menu);
        QVERIFY(shown);
        QStringList actual;
        for (QAction *item : shown->actions()) {
            if (item->isSeparator())
                actual << u"-"_s;
            else if (item->menu())
                actual << item->menu()->objectName() + u'=' + item->text();
            else
                actual << item->objectName() + u'=' + item->text();
        }
        QCOMPARE(actual, items);
    }

    void menuBarInOrder()
    {
        QStringList titles;
        for (QAction *item : m_frame->menuBar()->actions())
            titles << (item->menu() ? item->menu()->objectName() : item->objectName())
                          + u'=' + item->text();
        QCOMPARE(titles, (QStringList{u"mnuFile=File"_s, u"mnuMaintain=Edit"_s,
                                      u"mnuView=View"_s, u"mnuReports=Reports"_s,
                                      u"mnuSearch=Search"_s, u"mnuWindow=Window"_s,
                                      u"mnuHelp=Help"_s}));
    }

    void toolbar_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<QStringList>("dropDown"); // key=caption

        QTest::newRow("Open") << u"Open"_s << u"Open File"_s << u"Maintain Books"_s
                              << QStringList();
        QTest::newRow("Book") << u"Book"_s << u"Books"_s << QString() << QStringList();
        QTest::newRow("Author") << u"Author"_s << u"Authors"_s << u"Maintain Authors"_s
                                << QStringList();
        QTest::newRow("Publisher") << u"Publisher"_s << u"Publishers"_s
                                   << u"Maintain Publishers"_s << QStringList();
        QTest::newRow("Topic") << u"Topic"_s << u"Topics"_s << u"Maintain Topics"_s
                               << QStringList();
        QTest::newRow("Reports") << u"Reports"_s << u"Reports"_s
                                 << u"Go to report selector screen"_s
                                 << QStringList{u"TitleRep=by Title"_s, u"AuthorRep=by Author"_s,
                                                u"TopicRep=by Topic"_s};
        QTest::newRow("ListBooks") << u"ListBooks"_s << u"List Books"_s
                                   << u"List the books by author, by topic or all of them"_s
                                   << QStringList{u"ByAuthor=By Author"_s,
                                                  u"ByTopic=By Topic"_s,
                                                  u"CompleteCat=Complete Catalogue"_s};
        QTest::newRow("Search") << u"Search"_s << u"Search"_s << QString() << QStringList();
        QTest::newRow("Exit") << u"Exit"_s << u"Exit"_s << u"Exit"_s << QStringList();
    }

    void toolbar()
    {
        QFETCH(QString, key);
        QFETCH(QString, caption);
        QFETCH(QString, toolTip);
        QFETCH(QStringList, dropDown);
        QToolButton *shown = button(key);
        QVERIFY(shown);
        QCOMPARE(shown->parentWidget()->objectName(), u"Toolbar1"_s);
        QCOMPARE(shown->text(), caption);
        QCOMPARE(shown->toolTip(), toolTip);
        QVERIFY(shown->isEnabled());
        QStringList items;
        if (shown->menu()) {
            for (QAction *item : shown->menu()->actions())
                items << item->objectName() + u'=' + item->text();
        }
        QCOMPARE(items, dropDown);
    }

    void startsWithNoCatalogue()
    {
        QCOMPARE(m_frame->objectName(), u"MDIForm1"_s);
        QCOMPARE(m_frame->windowTitle(), u"Shelvane"_s);
        QCOMPARE(m_frame->findChild<QLabel *>(u"lblCatalogue"_s)->text(),
                 u"No catalogue open"_s);
        QVERIFY(m_frame->session().strCataloguePath.isEmpty());
        QVERIFY(!m_frame->session().cnnCatalogue);
        for (const QString &name : TaskEntries + DropDownItems)
            QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
        QVERIFY(!entry(u"mnuOn"_s)->isChecked());
        QVERIFY(!entry(u"mnuOff"_s)->isChecked());
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-no-catalogue"_s).isEmpty());
    }

    void withoutCatalogueButtonsAreRefused_data()
    {
        QTest::addColumn<QString>("key");
        for (const QString &key : {u"Book"_s, u"Author"_s, u"Publisher"_s, u"Topic"_s,
                                   u"Reports"_s, u"ListBooks"_s, u"Search"_s})
            QTest::newRow(qPrintable(key)) << key;
    }

    void withoutCatalogueButtonsAreRefused()
    {
        QFETCH(QString, key);
        m_responder->expect(openFirst());
        QTest::mouseClick(button(key), Qt::LeftButton);
        finish();
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        for (const QString &name : TaskEntries + DropDownItems)
            QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
    }

    void withoutCatalogueCommandsAreRefused_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : TaskEntries + DropDownItems
                 + QStringList{u"mnuRepTitleOrder"_s, u"mnuRepAuthorOrder"_s,
                               u"mnuRepTopicOrder"_s, u"mnuPrintLabels"_s,
                               u"mnuFileCompactDatabase"_s, u"mnuClose"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void withoutCatalogueCommandsAreRefused()
    {
        QFETCH(QString, name);
        bool ran = false;
        m_frame->setCommand(name, [&ran] { ran = true; });
        m_responder->expect(openFirst());
        entry(name)->trigger();
        finish();
        QVERIFY(!ran);
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
        QVERIFY(entry(name)->isEnabled());
    }

    void openButtonShowsTheOpenForm()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        QWidget *form = FindForm(u"frmOpen"_s);
        QVERIFY(form);
        QVERIFY(form->isVisible());
        QCOMPARE(m_frame->forms().loadedForms(), QList<QWidget *>{form});
    }

    void exitButtonEndsTheProgram()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        QTest::mouseClick(button(u"Exit"_s), Qt::LeftButton);
        QVERIFY(!m_frame->isVisible());
        QVERIFY(m_frame->forms().loadedForms().isEmpty());
    }

    void exitStopsAtAFormThatKeepsItsEdit()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        auto *stats = qobject_cast<TaskFormDouble *>(loaded(u"frmBookStats"_s));
        stats->refuseClose = true;
        entry(u"mnuExit"_s)->trigger();
        QVERIFY(m_frame->isVisible());
        QVERIFY(loaded(u"frmBookStats"_s));
        QVERIFY(m_frame->session().isOpen());
        stats->refuseClose = false;
        entry(u"mnuExit"_s)->trigger();
        QVERIFY(!m_frame->isVisible());
        QVERIFY(!m_frame->session().isOpen());
    }

    void fixtureOpensTheSampleCatalogue()
    {
        m_responder.reset(); // the fixture answers its own dialogs
        CatalogueOpener opener(registerDoubles);
        m_responder = std::make_unique<ModalResponder>();
        QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
        MainFrame &frame = opener.frame();
        QCOMPARE(frame.session().strCataloguePath,
                 QDir::toNativeSeparators(opener.catalogue().path()));
        QCOMPARE(frame.windowTitle(),
                 u"Shelvane - Open Catalogue: "_s
                     + opener.catalogue()
                           .scalar(u"SELECT CatalogueName FROM tblCatalogueControl"_s)
                           .toString());
        QCOMPARE(frame.findChild<QLabel *>(u"lblCatalogue"_s)->text(),
                 frame.session().strCataloguePath);
        QWidget *books = frame.forms().find(u"frmBookMaintenance"_s);
        QVERIFY(books);
        QVERIFY(!books->isVisible());
    }

    void booksTwiceOpensOneForm()
    {
        openCatalogue();
        QWidget *hidden = loaded(u"frmBookMaintenance"_s);
        QVERIFY(hidden && !hidden->isVisible());

        QTest::mouseClick(button(u"Book"_s), Qt::LeftButton);
        QCOMPARE(loaded(u"frmBookMaintenance"_s), hidden);
        QVERIFY(hidden->isVisible());
        QVERIFY(!entry(u"mnuBooks"_s)->isEnabled());
        QVERIFY(button(u"Book"_s)->isEnabled());

        // Another form comes in front; the button brings the same book form forward again.
        entry(u"mnuStats"_s)->trigger();
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), loaded(u"frmBookStats"_s));
        QTest::mouseClick(button(u"Book"_s), Qt::LeftButton);
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), hidden);
        QCOMPARE(m_frame->mdiArea()->subWindowList().size(), 2);
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-two-forms"_s).isEmpty());

        closeForm(u"frmBookMaintenance"_s);
        QVERIFY(entry(u"mnuBooks"_s)->isEnabled());
    }

    void searchNeverDisablesAnything()
    {
        openCatalogue();
        entry(u"mnuSearch"_s)->trigger();
        QWidget *search = loaded(u"frmSearch"_s);
        QVERIFY(search && search->isVisible());
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuSearch"_s)->trigger();
        QTest::mouseClick(button(u"Search"_s), Qt::LeftButton);
        QCOMPARE(loaded(u"frmSearch"_s), search);
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), search);
        QVERIFY(entry(u"mnuSearch"_s)->isEnabled());
        QVERIFY(button(u"Search"_s)->isEnabled());
        for (const QString &name : TaskEntries) {
            if (name != u"mnuStats")
                QVERIFY2(entry(name)->isEnabled(), qPrintable(name));
        }
    }

    void taskEntryIsDisabledWhileItsFormIsOpen_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("dropDownItem");
        QTest::newRow("Books") << u"mnuBooks"_s << u"frmBookMaintenance"_s << QString();
        QTest::newRow("Authors") << u"mnuAuthorS"_s << u"frmAuthor"_s << QString();
        QTest::newRow("Publishers") << u"mnuPublishers"_s << u"frmPublisher"_s << QString();
        QTest::newRow("Topics") << u"mnuTopicS"_s << u"frmTopic"_s << QString();
        QTest::newRow("Catalogue Control")
            << u"mnuCatalogueControl"_s << u"frmCatalogueControl"_s << QString();
        QTest::newRow("Catalogue Statistics") << u"mnuStats"_s << u"frmBookStats"_s << QString();
        QTest::newRow("Complete Catalogue")
            << u"mnuBookList"_s << u"frmBookListing"_s << u"CompleteCat"_s;
        QTest::newRow("By Topic") << u"mnuTopicSrch"_s << u"frmTopicBook"_s << u"ByTopic"_s;
        QTest::newRow("By Author") << u"mnuAuthorSrch"_s << u"frmAuthorBook"_s << u"ByAuthor"_s;
    }

    void taskEntryIsDisabledWhileItsFormIsOpen()
    {
        QFETCH(QString, name);
        QFETCH(QString, form);
        QFETCH(QString, dropDownItem);
        openCatalogue();
        entry(name)->trigger();
        QVERIFY(loaded(form) && loaded(form)->isVisible());
        QVERIFY(!entry(name)->isEnabled());
        for (const QString &item : DropDownItems)
            QCOMPARE(entry(item)->isEnabled(), item != dropDownItem);
        closeForm(form);
        QVERIFY(entry(name)->isEnabled());
        for (const QString &item : DropDownItems)
            QVERIFY2(entry(item)->isEnabled(), qPrintable(item));
    }

    void dropDownItemOpensItsFormAndDisablesItself_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("menuEntry");
        QTest::newRow("By Author") << u"ByAuthor"_s << u"frmAuthorBook"_s << u"mnuAuthorSrch"_s;
        QTest::newRow("By Topic") << u"ByTopic"_s << u"frmTopicBook"_s << u"mnuTopicSrch"_s;
        QTest::newRow("Complete Catalogue")
            << u"CompleteCat"_s << u"frmBookListing"_s << u"mnuBookList"_s;
    }

    void dropDownItemOpensItsFormAndDisablesItself()
    {
        QFETCH(QString, item);
        QFETCH(QString, form);
        QFETCH(QString, menuEntry);
        openCatalogue();
        entry(item)->trigger();
        QVERIFY(loaded(form) && loaded(form)->isVisible());
        QVERIFY(!entry(item)->isEnabled());
        QVERIFY(!entry(menuEntry)->isEnabled());
        closeForm(form);
        QVERIFY(entry(item)->isEnabled());
        QVERIFY(entry(menuEntry)->isEnabled());
    }

    void reportItemStaysDisabledOnceUsed_data()
    {
        QTest::addColumn<QString>("item");
        QTest::addColumn<QString>("menuEntry");
        QTest::newRow("by Title") << u"TitleRep"_s << u"mnuRepTitleOrder"_s;
        QTest::newRow("by Author") << u"AuthorRep"_s << u"mnuRepAuthorOrder"_s;
        QTest::newRow("by Topic") << u"TopicRep"_s << u"mnuRepTopicOrder"_s;
    }

    void reportItemStaysDisabledOnceUsed()
    {
        QFETCH(QString, item);
        QFETCH(QString, menuEntry);
        openCatalogue();
        int runs = 0;
        m_frame->setCommand(menuEntry, [&runs] { ++runs; });
        entry(item)->trigger();
        QCOMPARE(runs, 1);
        QVERIFY(!entry(item)->isEnabled());
        QVERIFY(entry(menuEntry)->isEnabled());
        // Nothing that the frame does enables it again; closing the catalogue neither.
        m_responder->expect(ModalResponder::message(
            u"Close Catalogue"_s,
            u"Catalogue "_s + QDir::toNativeSeparators(m_catalogue->path()) + u" closed!"_s,
            QMessageBox::Information, {u"OK"_s}, u"OK"_s));
        entry(u"mnuClose"_s)->trigger();
        finish();
        QVERIFY(!entry(item)->isEnabled());
    }

    void commandsRunAfterTheGuard_data()
    {
        QTest::addColumn<QString>("name");
        // Compaction is the frame's own command (tst_compaction).
        for (const QString &name : {u"mnuRepTitleOrder"_s, u"mnuRepAuthorOrder"_s,
                                    u"mnuRepTopicOrder"_s, u"mnuPrintLabels"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void commandsRunAfterTheGuard()
    {
        QFETCH(QString, name);
        openCatalogue();
        entry(name)->trigger(); // nothing set yet: nothing happens
        int runs = 0;
        m_frame->setCommand(name, [&runs] { ++runs; });
        entry(name)->trigger();
        QCOMPARE(runs, 1);
        QVERIFY(entry(name)->isEnabled());
    }

    void commandOfAFormNotBuiltDoesNothing()
    {
        openCatalogue();
        entry(u"mnuCollectionValue"_s)->trigger();
        QVERIFY(!loaded(u"frmPrices"_s));
        QVERIFY(entry(u"mnuCollectionValue"_s)->isEnabled());
    }

    void toolbarSwallowsRunTimeErrors()
    {
        m_frame->forms().registerForm(u"frmAuthor"_s, FormRegistry::Placement::Child,
                                      []() -> QWidget * { throw RuntimeError{6, u"Overflow"_s}; });
        openCatalogue();
        QTest::mouseClick(button(u"Author"_s), Qt::LeftButton);
        finish();
        QVERIFY(!loaded(u"frmAuthor"_s));
        QVERIFY(entry(u"mnuAuthorS"_s)->isEnabled());
    }

    void printListShowsTheLoadedTaskFormsInLoadOrder()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        entry(u"mnuAbout"_s)->trigger();
        QCOMPARE(printList(), (QStringList{u"Book Maintenance (frmBookMaintenance)"_s,
                                           u"Collection Statistics (frmBookStats)"_s,
                                           u"Authors (frmAuthor)"_s}));
        for (const QString &menu : {u"mnuFile"_s, u"mnuPrint"_s}) {
            auto *shown = m_frame->findChild<QMenu *>(menu);
            shown->popup(QPoint(0, 0));
            QVERIFY(!SaveScreenshot(shown, u"MDIForm1-"_s + menu).isEmpty());
            shown->hide();
        }
        // Rebuilt each time: a form closed since is gone from it.
        closeForm(u"frmBookStats"_s);
        QCOMPARE(printList(), (QStringList{u"Book Maintenance (frmBookMaintenance)"_s,
                                           u"Authors (frmAuthor)"_s}));
    }

    void printListNeverShowsTheFrameTheOpenFormTheAboutBoxOrThePrompts()
    {
        QTest::mouseClick(button(u"Open"_s), Qt::LeftButton);
        entry(u"mnuAbout"_s)->trigger();
        QVERIFY(FindForm(u"frmOpen"_s) && FindForm(u"frmAbout"_s));
        QCOMPARE(printList(), QStringList());

        QStringList whileAddPrompt;
        QStringList whileDeletePrompt;
        m_responder->expect(ModalResponder::dialog(
            u"dlgAddPrompt"_s, u"Add New Book"_s, u"Cancel"_s,
            [&](QWidget *) { whileAddPrompt = printList(); }));
        PromptDialog::Ask(PromptKind::AddNew, u"frmBookMaintenance"_s);
        finish();
        m_responder->expect(ModalResponder::dialog(
            u"dlgDelPrompt"_s, u"Delete Book"_s, u"Cancel"_s,
            [&](QWidget *) { whileDeletePrompt = printList(); }));
        PromptDialog::Ask(PromptKind::Delete, u"frmBookMaintenance"_s);
        finish();
        QCOMPARE(whileAddPrompt, QStringList());
        QCOMPARE(whileDeletePrompt, QStringList());
    }

    void printingWithoutAPrinterSaysSo()
    {
        if (!QPrinterInfo::defaultPrinter().isNull())
            QSKIP("This machine has a default printer; the message is for machines without one.");
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        printList();
        QAction *item = m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions().at(2);
        QCOMPARE(item->data().toString(), u"frmBookStats"_s);
        m_responder->expect(ModalResponder::message(
            u"Print Screen"_s,
            u"There is no printer to print on.\r\nPlease install a printer and try again."_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        item->trigger();
        finish();
    }

    void aFormThatIsNotPrintableIsListedButNotPrinted()
    {
        registerDouble(*m_frame, {u"frmNotes"_s, u"Notes"_s, {}, false /* printable */});
        m_frame->forms().show(u"frmNotes"_s);
        QCOMPARE(printList(), QStringList{u"Notes (frmNotes)"_s});
        // No printer message, no print: nothing happens at all.
        m_frame->findChild<QMenu *>(u"mnuPrint"_s)->actions().at(1)->trigger();
        finish();
    }

    void formImageIsPrintedOnAPage()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        QTemporaryDir folder;
        QPrinter printer;
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath(u"stats.pdf"_s));
        QVERIFY(printFormImage(loaded(u"frmBookStats"_s), printer));
        QFile pdf(folder.filePath(u"stats.pdf"_s));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        QVERIFY(pdf.size() > 1000);
    }

    void tileAndCascade()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        QMdiArea *area = m_frame->mdiArea();
        const QRect space = area->viewport()->rect();
        const QList<QMdiSubWindow *> children = area->subWindowList(QMdiArea::CreationOrder);
        QMdiSubWindow *stats = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmBookStats"_s)));
        QMdiSubWindow *authors = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmAuthor"_s)));

        entry(u"mnuTileHorizontally"_s)->trigger();
        QCOMPARE(stats->geometry(), QRect(0, 0, space.width(), space.height() / 2));
        QCOMPARE(authors->geometry(), QRect(0, space.height() / 2, space.width(),
                                            space.height() - space.height() / 2));
        // The hidden book form is not laid out.
        QVERIFY(!m_frame->forms().windowOf(loaded(u"frmBookMaintenance"_s))->isVisible());
        QVERIFY(!SaveScreenshot(m_frame.get(), u"MDIForm1-tiled"_s).isEmpty());

        entry(u"mnuTileVertically"_s)->trigger();
        QCOMPARE(stats->geometry(), QRect(0, 0, space.width() / 2, space.height()));
        QCOMPARE(authors->geometry(), QRect(space.width() / 2, 0,
                                            space.width() - space.width() / 2, space.height()));

        entry(u"mnuCascade"_s)->trigger();
        QVERIFY(stats->geometry().topLeft() != authors->geometry().topLeft());
        QVERIFY(stats->geometry().intersects(authors->geometry()));
        QCOMPARE(children.size(), 3);
    }

    void minimiseAllAndArrangeIcons()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        entry(u"mnuMinimise"_s)->trigger();
        QWidget *books = m_frame->forms().windowOf(loaded(u"frmBookMaintenance"_s));
        QMdiSubWindow *stats = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmBookStats"_s)));
        QMdiSubWindow *authors = qobject_cast<QMdiSubWindow *>(
            m_frame->forms().windowOf(loaded(u"frmAuthor"_s)));
        QVERIFY(stats->isMinimized());
        QVERIFY(authors->isMinimized());
        QVERIFY(!books->isVisible());

        stats->move(200, 10);
        authors->move(10, 150);
        entry(u"mnuArrangeIcons"_s)->trigger();
        const int bottom = m_frame->mdiArea()->viewport()->rect().bottom() + 1;
        QCOMPARE(stats->geometry().bottom() + 1, bottom);
        QCOMPARE(authors->geometry().bottom() + 1, bottom);
        QCOMPARE(stats->x(), 0);
        QCOMPARE(authors->x(), stats->width());
    }

    void windowListShowsTheOpenChildrenWithTheActiveOneChecked()
    {
        openCatalogue();
        entry(u"mnuStats"_s)->trigger();
        entry(u"mnuAuthorS"_s)->trigger();
        auto *list = m_frame->findChild<QMenu *>(u"mnuListWindows"_s);
        list->popup(QPoint(0, 0));
        QStringList items;
        for (QAction *item : list->actions())
            items << item->text() + (item->isChecked() ? u" *"_s : QString());
        QCOMPARE(items, (QStringList{u"Collection Statistics"_s, u"Authors *"_s}));
        list->actions().constFirst()->trigger();
        list->hide();
        QCOMPARE(m_frame->mdiArea()->activeSubWindow()->widget(), loaded(u"frmBookStats"_s));
    }

    void setAllHelpPrompts_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("value");
        QTest::newRow("Off") << u"mnuOff"_s << u"N"_s;
        QTest::newRow("On") << u"mnuOn"_s << u"Y"_s;
    }

    void setAllHelpPrompts()
    {
        QFETCH(QString, name);
        QFETCH(QString, value);
        entry(name)->trigger();
        for (const QString &form : {u"frmBookMaintenance"_s, u"frmSearch"_s, u"frmAuthor"_s,
                                    u"frmTopic"_s, u"frmPublisher"_s})
            QCOMPARE(TestEnvironment::storedSetting(form, u"AddNewPrompt"_s).toString(), value);
        for (const QString &form :
             {u"frmBookMaintenance"_s, u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s})
            QCOMPARE(TestEnvironment::storedSetting(form, u"DeletePrompt"_s).toString(), value);
        QVERIFY(!TestEnvironment::storedSetting(u"frmSearch"_s, u"DeletePrompt"_s).isValid());
        QCOMPARE(entry(u"mnuOn"_s)->isChecked(), value == u"Y");
        QCOMPARE(entry(u"mnuOff"_s)->isChecked(), value == u"N");
        // Choosing the checked one again keeps it checked.
        entry(name)->trigger();
        QVERIFY(entry(name)->isChecked());
    }

    void contentsOpensTheContentsTopic()
    {
        entry(u"mnuContents"_s)->trigger();
        HelpWindow *help = helpWindow();
        QVERIFY(help);
        QTRY_VERIFY(help->isVisible());
        const QUrl shown = help->currentPage();
        QVERIFY(help->showTopic(HelpTopic::Contents));
        QCOMPARE(shown, help->currentPage());
        QCOMPARE(HelpTopic::Contents, 8);
        help->close();
    }

    void aboutNeedsNoCatalogueAndOpensOnce()
    {
        entry(u"mnuAbout"_s)->trigger();
        QWidget *about = FindForm(u"frmAbout"_s);
        QVERIFY(about && about->isVisible());
        QCOMPARE(about->property("tag").toString(), u"Ignore"_s);
        entry(u"mnuAbout"_s)->trigger();
        QCOMPARE(FindForm(u"frmAbout"_s), about);
        QVERIFY(entry(u"mnuAbout"_s)->isEnabled());
    }
};

SHELVANE_TEST_MAIN(TestMainFrame)
#include "tst_mainframe.moc"
