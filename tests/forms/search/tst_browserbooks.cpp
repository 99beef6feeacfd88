// The topic and author browsers in use: the picked book's details, Edit opening the book
// alone in the book form, the message when nothing is linked, their menu entries and help.
#include "app/formregistry.h"
#include "app/mainframe.h"
#include "browsertest.h"
#include "recordform/recordstatusbar.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QPushButton>
#include <QTextBrowser>
#include <QTreeView>

using namespace Qt::StringLiterals;

class TestBrowserBooks : public BrowserTest
{
    Q_OBJECT

private Q_SLOTS:
    void noLinksShowsTheMessageAndLeavesEditDisabled_data() { addCases(); }
    void noLinksShowsTheMessageAndLeavesEditDisabled()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QCOMPARE(m_fixture->exec(u"delete from "_s + c.linkTable), QString());
        ModalResponder responder;
        responder.expect(ModalResponder::message(c.emptyTitle, c.emptyMessage,
                                                 QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        QWidget *shown = openBrowser(c);
        QCOMPARE(responder.finish(), QString());
        QVERIFY(shown);
        QCOMPARE(childCount(treeOf(shown, c)), 0);
        QVERIFY(!FindControl<QPushButton>(shown, u"cmdEdit"_s)->isEnabled());
        QCOMPARE(FindControl<RecordStatusBar>(shown, u"StatusBar1"_s)->panelText(1), QString());
    }

    void editBeforeAnyBookAsksForOne_data() { addCases(); }
    void editBeforeAnyBookAsksForOne()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        ModalResponder responder;
        responder.expect(ModalResponder::message(
            c.editTitle, u"Please pick a book from the left hand pane first!"_s,
            QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        click(shown, u"cmdEdit"_s);
        QCOMPARE(responder.finish(), QString());
        QVERIFY(!m_fixture->bookForm()->isVisible());
    }

    void clickingABookShowsItsDetails_data() { addCases(); }
    void clickingABookShowsItsDetails()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        // A book of one author and one topic, so that there is one right answer.
        const QString id = BookIdOf(*m_fixture, u"Emma"_s);
        clickNode(treeOf(shown, c), bookNodes(treeOf(shown, c), id).first());
        QCOMPARE(details(shown),
                 (QStringList{id, u"Emma"_s, u"Jane Austen"_s,
                              m_fixture->column(u"select TopicDescription from tblTopic, "
                                                "tblBookTopic where tblTopic.TopicID = "
                                                "tblBookTopic.TopicID and BookID = "_s + id)
                                  .value(0),
                              m_fixture->column(u"select PublisherName from tblPublisher, tblBook "
                                                "where PublisherID = BookPublisherId and BookID "
                                                "= "_s + id)
                                  .value(0)}));
    }

    void clickingARootChangesNothing_data() { addCases(); }
    void clickingARootChangesNothing()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        QTreeView *tree = treeOf(shown, c);
        clickNode(tree, node(tree, 0));
        QCOMPARE(details(shown), QStringList(DetailBoxes.size()));
        clickNode(tree, node(tree, 0, node(tree, 0)));
        const QStringList picked = details(shown);
        clickNode(tree, node(tree, 1));
        QCOMPARE(details(shown), picked);
    }

    void editOpensThePickedBookAlone_data() { addCases(); }
    void editOpensThePickedBookAlone()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        m_fixture->exec(u"insert into tblCriteriaHits (BookID) values (3), (4)"_s);
        QWidget *shown = openBrowser(c);
        const QString id = BookIdOf(*m_fixture, u"Wuthering Heights"_s);
        clickNode(treeOf(shown, c), bookNodes(treeOf(shown, c), id).first());
        click(shown, u"cmdEdit"_s);
        QCOMPARE(m_fixture->hits(), QStringList{id});
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Wuthering Heights"_s), QString());
        // The browser stays open beside it.
        QCOMPARE(m_fixture->frame().forms().find(c.form), shown);
    }

    void menuEntryAndDropDownItemOffWhileOpen_data()
    {
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("opener");
        QTest::newRow("topics from the menu") << TopicCase.form << TopicCase.menuEntry;
        QTest::newRow("topics from the drop-down") << TopicCase.form << TopicCase.dropDownItem;
        QTest::newRow("authors from the menu") << AuthorCase.form << AuthorCase.menuEntry;
        QTest::newRow("authors from the drop-down") << AuthorCase.form << AuthorCase.dropDownItem;
    }

    void menuEntryAndDropDownItemOffWhileOpen()
    {
        QFETCH(QString, form);
        QFETCH(QString, opener);
        const BrowserCase &c = caseNamed(form);
        const BrowserCase &other = form == TopicCase.form ? AuthorCase : TopicCase;
        QWidget *shown = openBrowser(c, opener);
        QVERIFY(shown);
        QVERIFY(!FindAction(c.menuEntry)->isEnabled());
        QVERIFY(!FindAction(c.dropDownItem)->isEnabled());
        // Each browser has its own entry.
        QVERIFY(FindAction(other.menuEntry)->isEnabled());
        QVERIFY(FindAction(other.dropDownItem)->isEnabled());
        m_testers.clear();
        click(shown, u"cmdExit"_s);
        QTRY_VERIFY(!m_fixture->frame().forms().find(c.form));
        QVERIFY(FindAction(c.menuEntry)->isEnabled());
        QVERIFY(FindAction(c.dropDownItem)->isEnabled());
    }

    void helpOpensTheBrowsersTopic_data() { addCases(); }
    void helpOpensTheBrowsersTopic()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        click(shown, u"cmdHelp"_s);
        QWidget *help = FindForm(u"HelpWindow"_s);
        QVERIFY(help);
        auto *browser = FindControl<QTextBrowser>(help, u"helpBrowser"_s);
        QTRY_COMPARE(browser->documentTitle(), c.helpTitle);
        help->close();
    }

    void screenshotExpandedWithABookPicked_data() { addCases(); }
    void screenshotExpandedWithABookPicked()
    {
        QFETCH(QString, form);
        const BrowserCase &c = caseNamed(form);
        QWidget *shown = openBrowser(c);
        QTreeView *tree = treeOf(shown, c);
        click(shown, u"cmdExpand"_s);
        const QString id = BookIdOf(*m_fixture, u"Wuthering Heights"_s);
        const QModelIndex picked = bookNodes(tree, id).first();
        clickNode(tree, picked);
        tree->scrollTo(picked, QAbstractItemView::PositionAtCenter);
        QVERIFY(!SaveScreenshot(m_fixture->frame().forms().windowOf(shown),
                                form + u"-expanded"_s)
                     .isEmpty());
    }
};

SHELVANE_TEST_MAIN(TestBrowserBooks)
#include "tst_browserbooks.moc"
