#include "app/helptopics.h"
#include "app/mainframe.h"
#include "forms/registerforms.h"
#include "support/catalogueopener.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

QWidget *helpWindow()
{
    return FindForm(u"HelpWindow"_s);
}

QTextBrowser *helpBrowser()
{
    return FindControl<QTextBrowser>(helpWindow(), u"helpBrowser"_s);
}

QString shownTopic()
{
    QWidget *window = helpWindow();
    if (!window || !window->isVisible())
        return u"(no help window)"_s;
    return helpBrowser()->documentTitle();
}

QStringList linksOf(const QTextDocument *page)
{
    QStringList links;
    for (QTextBlock block = page->begin(); block.isValid(); block = block.next()) {
        for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
            const QString link = fragment.fragment().charFormat().anchorHref();
            if (!link.isEmpty() && !links.contains(link))
                links << link;
        }
    }
    return links;
}

} // namespace

// The help file beside the program, each window's own topic, the contents, and F1.
class TestHelp : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void helpFileLiesBesideTheProgram();
    void everyFormOpensItsOwnTopic_data();
    void everyFormOpensItsOwnTopic();
    void contentsIsTopicEight();
    void helpWindowDoesNotKeepTheProgramRunning();
    void helpContentsMenuOpensTopicEight();
    void f1OpensTheTopicOfTheFormInFocus_data();
    void f1OpensTheTopicOfTheFormInFocus();
    void everyPageTheContentsListsOpens();
    void theEditMenusTopicSaysWhyBooksIsGreyed();
    void look();
};

// The topics come from the areas, as each registers its forms when the program starts.
void TestHelp::initTestCase()
{
    MainFrame frame;
    RegisterAllForms(frame);
}

void TestHelp::cleanup()
{
    if (QWidget *window = helpWindow())
        window->close();
    QTRY_VERIFY(!helpWindow());
}

void TestHelp::helpFileLiesBesideTheProgram()
{
    const QDir programFolder(QCoreApplication::applicationDirPath());
    QVERIFY(QFile::exists(programFolder.filePath(u"Shelvane.qch"_s)));
    QVERIFY(QFile::exists(programFolder.filePath(u"Shelvane.qhc"_s)));
}

void TestHelp::everyFormOpensItsOwnTopic_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("topic");

    const QList<std::pair<QString, QString>> topics{
        {u"MDIForm1"_s, u"The main window"_s},
        {u"frmOpen"_s, u"Opening a catalogue"_s},
        {u"dlgAddPrompt"_s, u"Add and search prompts"_s},
        {u"dlgDelPrompt"_s, u"Delete prompts"_s},
        {u"frmAbout"_s, u"About Shelvane"_s},
        {u"frmBookMaintenance"_s, u"Maintaining books"_s},
        {u"dlgGetAuthor"_s, u"Adding an author to a book"_s},
        {u"dlgGetTopic"_s, u"Adding a topic to a book"_s},
        {u"frmAuthor"_s, u"Maintaining authors"_s},
        {u"frmTopic"_s, u"Maintaining topics"_s},
        {u"frmPublisher"_s, u"Maintaining publishers"_s},
        {u"frmSearch"_s, u"Searching the catalogue"_s},
        {u"frmBookListing"_s, u"The book listing"_s},
        {u"frmTopicBook"_s, u"Browsing books by topic"_s},
        {u"frmAuthorBook"_s, u"Browsing books by author"_s},
        {u"frmBookStats"_s, u"Collection statistics"_s},
        {u"frmPrices"_s, u"Collection value and prices"_s},
        {u"frmCatalogueControl"_s, u"Catalogue owner details"_s},
        {u"DataReport1"_s, u"Printed catalogue listings"_s},
        {u"DataReport2"_s, u"Printed catalogue listings"_s},
        {u"DataReport3"_s, u"Printed catalogue listings"_s},
        {u"DataReport4"_s, u"Printing book labels"_s},
        {u"DataReport5"_s, u"Printing book labels"_s},
    };
    for (const auto &[form, topic] : topics)
        QTest::newRow(qPrintable(form)) << form << topic;
}

void TestHelp::everyFormOpensItsOwnTopic()
{
    QFETCH(QString, form);
    QFETCH(QString, topic);

    QVERIFY(HelpTopicForForm(form) != HelpTopic::Contents);
    ModalResponder responder;
    ShowHelpForForm(form);
    QCOMPARE(responder.finish(100), QString());
    QCOMPARE(shownTopic(), topic);
}

void TestHelp::contentsIsTopicEight()
{
    QCOMPARE(HelpTopic::Contents, 8);
    ShowHelpTopic(HelpTopic::Contents);
    QCOMPARE(shownTopic(), u"Shelvane Help"_s);
    QCOMPARE(HelpTopicForForm(u"frmNoSuchForm"_s), HelpTopic::Contents);
}

void TestHelp::helpWindowDoesNotKeepTheProgramRunning()
{
    ShowHelpTopic(HelpTopic::Contents);
    QVERIFY(!helpWindow()->testAttribute(Qt::WA_QuitOnClose));
}

void TestHelp::helpContentsMenuOpensTopicEight()
{
    MainFrame frame;
    frame.show();
    FindAction(u"mnuContents"_s)->trigger();
    QCOMPARE(shownTopic(), u"Shelvane Help"_s);
}

void TestHelp::f1OpensTheTopicOfTheFormInFocus_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("topic");
    QTest::newRow("a control of a task form") << u"frmAuthor"_s << u"Maintaining authors"_s;
    QTest::newRow("a control of the search form") << u"frmSearch"_s << u"Searching the catalogue"_s;
    QTest::newRow("a form without a topic of its own, inside the frame")
        << u"frmScratch"_s << u"The main window"_s;
}

void TestHelp::f1OpensTheTopicOfTheFormInFocus()
{
    QFETCH(QString, form);
    QFETCH(QString, topic);

    MainFrame frame;
    frame.show();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    auto *child = new QWidget;
    child->setObjectName(form);
    auto *box = new QLineEdit(child);
    frame.mdiArea()->addSubWindow(child)->show();
    box->setFocus();

    QTest::keyClick(box, Qt::Key_F1);
    QCOMPARE(shownTopic(), topic);
    QVERIFY(box->text().isEmpty());
}

void TestHelp::everyPageTheContentsListsOpens()
{
    ShowHelpTopic(HelpTopic::Contents);
    QTextBrowser *browser = helpBrowser();
    const QUrl contents = browser->source();
    const QStringList links = linksOf(browser->document());
    QCOMPARE(links.size(), 21);
    for (const QString &link : links) {
        browser->setSource(contents.resolved(QUrl(link)));
        QVERIFY2(!browser->documentTitle().isEmpty(), qPrintable(link));
        QVERIFY2(browser->toPlainText().size() > 200, qPrintable(link));
    }
}

// The book form is loaded hidden as a catalogue opens, which greys Edit › Books at once; the
// frame's topic, which describes the Edit menu, says so and names the way in that is left.
void TestHelp::theEditMenusTopicSaysWhyBooksIsGreyed()
{
    {
        CatalogueOpener opener(RegisterAllForms);
        QVERIFY2(opener.problems().isEmpty(), qPrintable(opener.problems()));
        QVERIFY(!opener.frame().action(u"mnuBooks"_s)->isEnabled());
        QVERIFY(opener.frame().findChild<QToolButton *>(u"Book"_s)->isEnabled());
    }
    ShowHelpForForm(u"MDIForm1"_s);
    const QString topic = helpBrowser()->toPlainText().simplified();
    QVERIFY2(topic.contains(u"Books is greyed out as soon as a catalogue opens"_s), qPrintable(topic));
    QVERIFY2(topic.contains(u"bring it up with the Books button on the toolbar"_s), qPrintable(topic));
}

void TestHelp::look()
{
    ShowHelpForForm(u"frmOpen"_s);
    QWidget *window = helpWindow();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    // The table of contents lists every topic under the contents page.
    const auto *contents = FindControl<QTreeView>(window, u"helpContents"_s);
    QTRY_COMPARE(contents->model()->rowCount(), 1);
    QTRY_COMPARE(contents->model()->rowCount(contents->model()->index(0, 0)), 21);
    QVERIFY(!SaveScreenshot(window, u"HelpWindow"_s).isEmpty());
    ShowHelpTopic(HelpTopic::Contents);
    QVERIFY(!SaveScreenshot(window, u"HelpWindow-contents"_s).isEmpty());
}

SHELVANE_TEST_MAIN(TestHelp)
#include "tst_help.moc"
