// The main frame's menus, toolbar and drop-down, in order and with their captions, and the
// Help menu's own commands.
#include "app/helptopics.h"
#include "app/helpwindow.h"
#include "mainframefixture.h"
#include "support/finders.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QMenu>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

HelpWindow *helpWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (auto *help = qobject_cast<HelpWindow *>(window))
            return help;
    }
    return nullptr;
}

} // namespace

class TestFrameMenus : public MainFrameTest
{
    Q_OBJECT

private Q_SLOTS:
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

SHELVANE_TEST_MAIN(TestFrameMenus)
#include "tst_framemenus.moc"
