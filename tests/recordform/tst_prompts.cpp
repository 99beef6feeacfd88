#include "app/mainframe.h"
#include "forms/registerforms.h"
#include "recordform/promptdialog.h"
#include "recordform/promptpreference.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A form that uses the prompts, as far as they see it: its name, its ReceivePromptAnswer and,
// for the search form, its hit count.
class PromptCaller : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int intBooksFound MEMBER intBooksFound)

public:
    explicit PromptCaller(const QString &name, int booksFound = 0)
        : intBooksFound(booksFound)
    {
        setObjectName(name);
    }

    Q_INVOKABLE void ReceivePromptAnswer(int answer) { answers << answer; }

    QList<int> answers;
    int intBooksFound;
};

const QString BookAddText = u"Enter Book details then confirm or cancel, then \r\n"
                            "allocate topic(s) and author(s).\r\n\r\n"
                            "Note: manditory fields are highlighted in yellow"_s;

struct Prompt
{
    QString form;
    PromptKind kind;
};

// Every prompt the program has, in the order Help › Set All Help Prompts writes them.
const QList<Prompt> EveryPrompt{
    {u"frmBookMaintenance"_s, PromptKind::AddNew}, {u"frmSearch"_s, PromptKind::AddNew},
    {u"frmAuthor"_s, PromptKind::AddNew},          {u"frmTopic"_s, PromptKind::AddNew},
    {u"frmPublisher"_s, PromptKind::AddNew},       {u"frmBookMaintenance"_s, PromptKind::Delete},
    {u"frmAuthor"_s, PromptKind::Delete},          {u"frmTopic"_s, PromptKind::Delete},
    {u"frmPublisher"_s, PromptKind::Delete},
};

QString dialogName(PromptKind kind)
{
    return kind == PromptKind::AddNew ? u"dlgAddPrompt"_s : u"dlgDelPrompt"_s;
}

QVariant stored(const QString &form, PromptKind kind)
{
    return TestEnvironment::storedSetting(form, PromptKey(kind));
}

void tickShowAgain(QWidget *dialog)
{
    QTest::mouseClick(FindControl<QCheckBox>(dialog, u"chkShowAgain"_s), Qt::LeftButton);
}

} // namespace

Q_DECLARE_METATYPE(PromptKind)

// The add and delete prompts, their "Don't show this prompt again." box, and Help › Set All
// Help Prompts, against the settings store.
class TestPrompts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyPromptShowsWithNoStoredPreference_data();
    void everyPromptShowsWithNoStoredPreference();
    void captionAndTextFollowTheCaller_data();
    void captionAndTextFollowTheCaller();
    void offSwitchesEveryPromptOffAndOnBringsThemBack();
    void tickingTheBoxThenCancelSwitchesOnlyThatPromptOff();
    void addAndDeletePromptsOfOneFormAreSwitchedSeparately();
    void untickingTheBoxSwitchesThePromptBackOn();
    void searchPromptIsTheSearchFormsAddNewPrompt();
    void closingByTheWindowFrameAnswersNothing();
    void checkMarksAreNotReadBackFromTheStore();
    void tabOrderAndLook();

private:
    std::unique_ptr<MainFrame> m_frame;
};

void TestPrompts::init()
{
    TestEnvironment::clearSettings();
    m_frame = std::make_unique<MainFrame>();
    // Each area words the prompts of its forms as it registers them.
    RegisterAllForms(*m_frame);
    m_frame->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_frame.get()));
}

void TestPrompts::cleanup()
{
    m_frame.reset();
}

void TestPrompts::everyPromptShowsWithNoStoredPreference_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<PromptKind>("kind");
    QTest::addColumn<QString>("caption");

    const QStringList captions{u"Add New Book"_s,    u"Search Results"_s, u"Add New Author"_s,
                               u"Add New Topic"_s,   u"Add New Publisher"_s, u"Delete Book"_s,
                               u"Delete Author"_s,   u"Delete Topic"_s,   u"Delete Publisher"_s};
    for (qsizetype i = 0; i < EveryPrompt.size(); ++i) {
        const Prompt &prompt = EveryPrompt.at(i);
        QTest::addRow("%s %s", qPrintable(prompt.form), qPrintable(PromptKey(prompt.kind)))
            << prompt.form << prompt.kind << captions.at(i);
    }
}

void TestPrompts::everyPromptShowsWithNoStoredPreference()
{
    QFETCH(QString, form);
    QFETCH(PromptKind, kind);
    QFETCH(QString, caption);

    PromptCaller caller(form);
    QVERIFY(PromptWanted(form, kind));

    ModalResponder responder;
    responder.expect(ModalResponder::dialog(dialogName(kind), caption, u"OK"_s));
    PromptDialog::Ask(kind, form);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(caller.answers, QList<int>{6});
    QVERIFY(!stored(form, kind).isValid());
}

void TestPrompts::captionAndTextFollowTheCaller_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<PromptKind>("kind");
    QTest::addColumn<int>("booksFound");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QList<int>>("answers");

    const QList<int> cancelled{7};
    const QString note = u"Note: manditory fields are highlighted in yellow"_s;
    QTest::newRow("add book") << u"frmBookMaintenance"_s << PromptKind::AddNew << 0
        << u"Add New Book"_s << BookAddText << cancelled;
    QTest::newRow("add author") << u"frmAuthor"_s << PromptKind::AddNew << 0 << u"Add New Author"_s
        << u"Enter Author details then confirm or cancel.\r\n\r\n"_s + note << cancelled;
    QTest::newRow("search results") << u"frmSearch"_s << PromptKind::AddNew << 17
        << u"Search Results"_s
        << u"The search found 17 Books, \r\n\r\nWould you like to see the results?"_s << cancelled;
    QTest::newRow("add topic") << u"frmTopic"_s << PromptKind::AddNew << 0 << u"Add New Topic"_s
        << u"Enter Topic details then confirm or cancel.\r\n\r\n"_s + note << cancelled;
    QTest::newRow("add publisher") << u"frmPublisher"_s << PromptKind::AddNew << 0
        << u"Add New Publisher"_s
        << u"Enter Publisher details then confirm or cancel.\r\n\r\n"_s + note << cancelled;
    QTest::newRow("delete book") << u"frmBookMaintenance"_s << PromptKind::Delete << 0
        << u"Delete Book"_s
        << u"Delete will remove connections with the associated topics and \r\n"
           "authors, and remove the current book. Are you sure you wish to \r\n"
           "continue"_s << cancelled;
    QTest::newRow("delete author") << u"frmAuthor"_s << PromptKind::Delete << 0
        << u"Delete Author"_s
        << u"Are you sure you wish to delete this author, \r\n"
           "it will also delete the links to any books \r\n"
           "that are classified against this author?"_s << cancelled;
    QTest::newRow("delete topic") << u"frmTopic"_s << PromptKind::Delete << 0 << u"Delete Topic"_s
        << u"Are you sure you wish to delete this topic, \r\n"
           "it will also delete the links to any books \r\n"
           "that are classified against this topic?"_s << cancelled;
    QTest::newRow("delete publisher") << u"frmPublisher"_s << PromptKind::Delete << 0
        << u"Delete Publisher"_s
        << u"Are you sure you wish to delete this Publisher, \r\n"
           "it will also delete the links to any books \r\n"
           "that are classified against this Publisher?"_s << cancelled;
    QTest::newRow("add prompt of another form keeps its design texts")
        << u"frmBookListing"_s << PromptKind::AddNew << 0 << u"Add New Book"_s << BookAddText
        << QList<int>{};
    QTest::newRow("delete prompt of the search form keeps its design texts")
        << u"frmSearch"_s << PromptKind::Delete << 0 << u"Dialog Caption"_s << QString()
        << QList<int>{};
}

void TestPrompts::captionAndTextFollowTheCaller()
{
    QFETCH(QString, form);
    QFETCH(PromptKind, kind);
    QFETCH(int, booksFound);
    QFETCH(QString, caption);
    QFETCH(QString, text);
    QFETCH(QList<int>, answers);

    PromptCaller caller(form, booksFound);
    QString shownText;
    bool hasPicture = false;
    bool boxTicked = true;
    QString boxCaption;
    QString boxTip;
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(dialogName(kind), caption, u"cmdCancel"_s,
                                            [&](QWidget *dialog) {
        shownText = FindControl<QLabel>(dialog, u"lblAddPrompt"_s)->text();
        hasPicture = FindControl<QLabel>(dialog, u"Picture1"_s) != nullptr;
        const auto *box = FindControl<QCheckBox>(dialog, u"chkShowAgain"_s);
        boxTicked = box->isChecked();
        boxCaption = box->text();
        boxTip = box->toolTip();
    }));
    PromptDialog::Ask(kind, form);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(shownText, QString(text).replace(u"\r\n"_s, u"\n"_s));
    QCOMPARE(hasPicture, kind == PromptKind::AddNew);
    QVERIFY(!boxTicked);
    QCOMPARE(boxCaption, u"Don't show this prompt again."_s);
    QCOMPARE(boxTip, u"Click here to de-activate this prompt, and prevent it appearing."_s);
    QCOMPARE(caller.answers, answers);
}

void TestPrompts::offSwitchesEveryPromptOffAndOnBringsThemBack()
{
    QAction *on = FindAction(u"mnuOn"_s);
    QAction *off = FindAction(u"mnuOff"_s);
    QVERIFY(on && off);

    off->trigger();
    for (const Prompt &prompt : EveryPrompt) {
        QCOMPARE(stored(prompt.form, prompt.kind), QVariant(u"N"_s));
        QVERIFY(!PromptWanted(prompt.form, prompt.kind));
    }
    QVERIFY(off->isChecked());
    QVERIFY(!on->isChecked());

    on->trigger();
    for (const Prompt &prompt : EveryPrompt) {
        QCOMPARE(stored(prompt.form, prompt.kind), QVariant(u"Y"_s));
        QVERIFY(PromptWanted(prompt.form, prompt.kind));
    }
    QVERIFY(on->isChecked());
    QVERIFY(!off->isChecked());

    PromptCaller caller(u"frmBookMaintenance"_s);
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"OK"_s));
    PromptDialog::Ask(PromptKind::AddNew, u"frmBookMaintenance"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(caller.answers, QList<int>{6});
}

void TestPrompts::tickingTheBoxThenCancelSwitchesOnlyThatPromptOff()
{
    FindAction(u"mnuOn"_s)->trigger();
    TestEnvironment::clearSettings();
    PromptCaller caller(u"frmAuthor"_s);
    QVariant storedAtTheClick;
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Author"_s, u"Cancel"_s,
                                            [&](QWidget *dialog) {
        tickShowAgain(dialog);
        storedAtTheClick = stored(u"frmAuthor"_s, PromptKind::AddNew);
    }));
    PromptDialog::Ask(PromptKind::AddNew, u"frmAuthor"_s);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(storedAtTheClick, QVariant(u"N"_s));
    QCOMPARE(caller.answers, QList<int>{7});
    QVERIFY(!PromptWanted(u"frmAuthor"_s, PromptKind::AddNew));
    QVERIFY(PromptWanted(u"frmAuthor"_s, PromptKind::Delete));
    for (const QString &other : {u"frmBookMaintenance"_s, u"frmSearch"_s, u"frmTopic"_s,
                                 u"frmPublisher"_s})
        QVERIFY(PromptWanted(other, PromptKind::AddNew));
    QVERIFY(!FindAction(u"mnuOn"_s)->isChecked());
}

void TestPrompts::addAndDeletePromptsOfOneFormAreSwitchedSeparately()
{
    PromptCaller caller(u"frmBookMaintenance"_s);
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgDelPrompt"_s, u"Delete Book"_s, u"OK"_s,
                                            tickShowAgain));
    PromptDialog::Ask(PromptKind::Delete, u"frmBookMaintenance"_s);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(stored(u"frmBookMaintenance"_s, PromptKind::Delete), QVariant(u"N"_s));
    QVERIFY(!stored(u"frmBookMaintenance"_s, PromptKind::AddNew).isValid());
    QVERIFY(PromptWanted(u"frmBookMaintenance"_s, PromptKind::AddNew));
    QCOMPARE(caller.answers, QList<int>{6});

    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"OK"_s));
    PromptDialog::Ask(PromptKind::AddNew, u"frmBookMaintenance"_s);
    QCOMPARE(responder.finish(), QString());
}

void TestPrompts::untickingTheBoxSwitchesThePromptBackOn()
{
    FindAction(u"mnuOff"_s)->trigger();
    TestEnvironment::storeSetting(u"frmTopic"_s, u"DeletePrompt"_s, u"N"_s);
    PromptCaller caller(u"frmTopic"_s);
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgDelPrompt"_s, u"Delete Topic"_s, u"OK"_s,
                                            [](QWidget *dialog) {
        tickShowAgain(dialog);
        tickShowAgain(dialog);
    }));
    PromptDialog::Ask(PromptKind::Delete, u"frmTopic"_s);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(stored(u"frmTopic"_s, PromptKind::Delete), QVariant(u"Y"_s));
    QVERIFY(!FindAction(u"mnuOff"_s)->isChecked());
    QVERIFY(!FindAction(u"mnuOn"_s)->isChecked());
}

void TestPrompts::searchPromptIsTheSearchFormsAddNewPrompt()
{
    PromptCaller caller(u"frmSearch"_s, 12);
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Search Results"_s, u"OK"_s,
                                            tickShowAgain));
    PromptDialog::Ask(PromptKind::AddNew, u"frmSearch"_s);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(TestEnvironment::storedSetting(u"frmSearch"_s, u"AddNewPrompt"_s), QVariant(u"N"_s));
    QVERIFY(!PromptWanted(u"frmSearch"_s, PromptKind::AddNew));
    QCOMPARE(caller.answers, QList<int>{6});
}

void TestPrompts::closingByTheWindowFrameAnswersNothing()
{
    PromptCaller caller(u"frmPublisher"_s);
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Publisher"_s, QString(),
                                            [](QWidget *dialog) { dialog->close(); }));
    PromptDialog::Ask(PromptKind::AddNew, u"frmPublisher"_s);
    QCOMPARE(responder.finish(), QString());
    QVERIFY(caller.answers.isEmpty());
    QVERIFY(!stored(u"frmPublisher"_s, PromptKind::AddNew).isValid());
}

void TestPrompts::checkMarksAreNotReadBackFromTheStore()
{
    SetAllHelpPrompts(false);
    m_frame = std::make_unique<MainFrame>();
    QVERIFY(!m_frame->action(u"mnuOn"_s)->isChecked());
    QVERIFY(!m_frame->action(u"mnuOff"_s)->isChecked());
}

void TestPrompts::tabOrderAndLook()
{
    PromptCaller caller(u"frmBookMaintenance"_s);
    QStringList addOrder;
    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgAddPrompt"_s, u"Add New Book"_s, u"OK"_s,
                                            [&addOrder](QWidget *dialog) {
        QVERIFY(!SaveScreenshot(dialog, u"dlgAddPrompt"_s).isEmpty());
        QWidget *w = FindControl<QPushButton>(dialog, u"OKButton"_s);
        for (int i = 0; i < 3; ++i, w = w->nextInFocusChain())
            addOrder << w->objectName();
    }));
    responder.expect(ModalResponder::dialog(u"dlgDelPrompt"_s, u"Delete Book"_s, u"OK"_s,
                                            [](QWidget *dialog) {
        QVERIFY(!SaveScreenshot(dialog, u"dlgDelPrompt"_s).isEmpty());
    }));
    PromptDialog::Ask(PromptKind::AddNew, u"frmBookMaintenance"_s);
    PromptDialog::Ask(PromptKind::Delete, u"frmBookMaintenance"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(addOrder, (QStringList{u"OKButton"_s, u"cmdCancel"_s, u"chkShowAgain"_s}));
}

SHELVANE_TEST_MAIN(TestPrompts)
#include "tst_prompts.moc"
