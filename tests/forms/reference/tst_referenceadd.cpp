// Adding authors, topics and publishers: the prompt, the yellow mandatory fields, the checks
// and their messages, Confirm Add and Cancel Add.

#include "app/mainframe.h"
#include "referencecases.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/screenshot.h"
#include "support/testenvironment.h"
#include "support/testmain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

class TestReferenceAdd : public QObject
{
    Q_OBJECT

    std::unique_ptr<CatalogueOpener> m_opener;

    // Opens the form with its add prompt switched off, and presses Add.
    QWidget *startAdding(const FormCase &c)
    {
        storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
        QWidget *form = openForm(c);
        if (form)
            click(form, u"cmdAdd"_s);
        return form;
    }

    int count(const FormCase &c) const { return rowCount(*m_opener, c); }

private Q_SLOTS:
    void init()
    {
        TestEnvironment::clearSettings();
        m_opener = std::make_unique<CatalogueOpener>(RegisterReferenceForms);
        QVERIFY2(m_opener->problems().isEmpty(), qPrintable(m_opener->problems()));
    }
    void cleanup() { m_opener.reset(); }

    void emptyTableEntersAddModeAtOnce_data() { addFormRows(); }
    void emptyTableEntersAddModeAtOnce();
    void addPromptShowsByDefault_data() { addFormRows(); }
    void addPromptShowsByDefault();
    void cancellingTheAddPromptAddsNothing_data() { addFormRows(); }
    void cancellingTheAddPromptAddsNothing();
    void addPromptSwitchedOffStartsAtOnce_data();
    void addPromptSwitchedOffStartsAtOnce();
    void confirmWithEmptyMandatoryFieldStaysAdding_data() { addFormRows(); }
    void confirmWithEmptyMandatoryFieldStaysAdding();
    void mandatoryFieldOfBlanksIsAccepted_data() { addFormRows(); }
    void mandatoryFieldOfBlanksIsAccepted();
    void topicWithDescriptionButNoNotesIsRefused();
    void topicWithNeitherShowsOnlyTheDescriptionMessage();
    void confirmAddShowsTheNewRecord_data() { addFormRows(); }
    void confirmAddShowsTheNewRecord();
    void cancelAddReturnsToTheRecordShownBefore_data() { addFormRows(); }
    void cancelAddReturnsToTheRecordShownBefore();
    void cancelAddInAnEmptyTableRestoresNothing_data() { addFormRows(); }
    void cancelAddInAnEmptyTableRestoresNothing();
    void apostrophesAndAccentsAreAddedAndFoundAgain_data();
    void apostrophesAndAccentsAreAddedAndFoundAgain();
    void tabbingOutOfAnEmptyMandatoryFieldIsRefused_data() { addFormRows(); }
    void tabbingOutOfAnEmptyMandatoryFieldIsRefused();
    void newKeyAbove32767Overflows_data() { addFormRows(); }
    void newKeyAbove32767Overflows();
    void addingScreenshot_data() { addFormRows(); }
    void addingScreenshot();
};

void TestReferenceAdd::emptyTableEntersAddModeAtOnce()
{
    const FormCase &c = currentCase();
    emptyTable(*m_opener, c);
    QCOMPARE(count(c), 0);
    ModalResponder responder;
    responder.expect(addPrompt(c, u"OK"_s));
    QWidget *form = openForm(c);
    QCOMPARE(responder.finish(), QString());
    QVERIFY(form);
    QCOMPARE(addModeProblems(form, c), QString());
    QCOMPARE(statusText(form), c.entity + u" 0 of 0"_s);
    QCOMPARE(form->focusWidget(), field(form, c.focusAfterAdd));
}

void TestReferenceAdd::addPromptShowsByDefault()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    ModalResponder responder;
    responder.expect(addPrompt(c, u"OK"_s));
    click(form, u"cmdAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(addModeProblems(form, c), QString());
    QCOMPARE(fieldText(form, c.mandatory.first()), QString());
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), QString());
}

void TestReferenceAdd::cancellingTheAddPromptAddsNothing()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString shown = fieldText(form, u"txt"_s + c.keyColumn);
    ModalResponder responder;
    responder.expect(addPrompt(c, u"cmdCancel"_s));
    click(form, u"cmdAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(browseModeProblems(form, c), QString());
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), shown);
}

void TestReferenceAdd::addPromptSwitchedOffStartsAtOnce_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("setting");
    for (const QString &form : {u"frmAuthor"_s, u"frmTopic"_s, u"frmPublisher"_s}) {
        for (const QString &setting : {u"N"_s, u"y"_s, u"Yes"_s})
            QTest::addRow("%s %s", qPrintable(form), qPrintable(setting)) << form << setting;
    }
}

// Only "Y" shows the prompt; anything else goes ahead without it.
void TestReferenceAdd::addPromptSwitchedOffStartsAtOnce()
{
    QFETCH(QString, form);
    QFETCH(QString, setting);
    const FormCase &c = formCase(form);
    storePrompt(c, u"AddNewPrompt"_s, setting);
    QWidget *shown = openForm(c);
    QVERIFY(shown);
    ModalResponder responder;
    click(shown, u"cmdAdd"_s);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(addModeProblems(shown, c), QString());
    QCOMPARE(shown->focusWidget(), field(shown, c.focusAfterAdd));
}

void TestReferenceAdd::confirmWithEmptyMandatoryFieldStaysAdding()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    ModalResponder responder;
    responder.expect(plainMessage(c.caption, c.missingMessages.first()));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(addModeProblems(form, c), QString());
    QCOMPARE(form->focusWidget(), field(form, c.mandatory.first()));
    QCOMPARE(count(c), before);
}

void TestReferenceAdd::mandatoryFieldOfBlanksIsAccepted()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    for (const QString &name : c.mandatory)
        typeInto(form, name, u"   "_s);
    ModalResponder responder;
    responder.expect(plainMessage(c.addedTitle, c.added));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before + 1);
    QCOMPARE(rowsWith(*m_opener, c, c.listColumn, u"   "_s), 1);
    QCOMPARE(browseModeProblems(form, c), QString());
}

void TestReferenceAdd::topicWithDescriptionButNoNotesIsRefused()
{
    const FormCase &c = formCase(u"frmTopic"_s);
    const int before = count(c);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    typeInto(form, u"txtTopicDescription"_s, u"Heraldry"_s);
    ModalResponder responder;
    responder.expect(plainMessage(u"Topic Maintenance"_s, u"Please enter topic notes"_s));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(addModeProblems(form, c), QString());
    QCOMPARE(form->focusWidget(), field(form, u"txtTopicNotes"_s));
    QCOMPARE(count(c), before);
}

void TestReferenceAdd::topicWithNeitherShowsOnlyTheDescriptionMessage()
{
    const FormCase &c = formCase(u"frmTopic"_s);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    ModalResponder responder;
    responder.expect(plainMessage(u"Topic Maintenance"_s, u"Please enter a topic description"_s));
    click(form, u"cmdConfirmAdd"_s);
    // A second message would be reported here as unexpected.
    QCOMPARE(responder.finish(), QString());
    QTest::qWait(100);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(form->focusWidget(), field(form, u"txtTopicDescription"_s));
}

void TestReferenceAdd::confirmAddShowsTheNewRecord()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    for (const auto &[name, text] : c.newRecord)
        typeInto(form, name, text);
    ModalResponder responder;
    responder.expect(plainMessage(c.addedTitle, c.added));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());

    QCOMPARE(count(c), before + 1);
    const QString key = m_opener->catalogue()
                            .scalar(u"select max("_s + c.keyColumn + u") from "_s + c.table)
                            .toString();
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), key);
    // The first mandatory field is the one the list is sorted and looked up by.
    QString name;
    for (const auto &[field, text] : c.newRecord) {
        if (field == c.mandatory.first())
            name = text;
    }
    QCOMPARE(valueOf(*m_opener, c, c.listColumn, key), name);
    QCOMPARE(FindControl<QComboBox>(form, c.lookupCombo)->currentText(), name);
    QCOMPARE(FindControl<QComboBox>(form, c.lookupCombo)->count(), before + 1);
    // Its place in list order, as the status bar tells it.
    const int position = m_opener->catalogue()
                             .programScalar(u"select count(*) from "_s + c.table + u" where "_s
                                     + c.listColumn + u" < '"_s + name + u"'"_s)
                             .toInt()
        + 1;
    QCOMPARE(statusText(form), c.entity + u' ' + QString::number(position) + u" of "_s
                                   + QString::number(before + 1));
    QCOMPARE(browseModeProblems(form, c), QString());
}

void TestReferenceAdd::cancelAddReturnsToTheRecordShownBefore()
{
    const FormCase &c = currentCase();
    const int before = count(c);
    storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
    QWidget *form = openForm(c);
    QVERIFY(form);
    click(form, u"cmdNext"_s);
    click(form, u"cmdNext"_s);
    const QString shown = fieldText(form, u"txt"_s + c.keyColumn);
    click(form, u"cmdAdd"_s);
    typeInto(form, c.newRecord.first().first, c.newRecord.first().second);
    click(form, u"cmdCancelAdd"_s);
    QCOMPARE(browseModeProblems(form, c), QString());
    QCOMPARE(fieldText(form, u"txt"_s + c.keyColumn), shown);
    QCOMPARE(statusText(form), c.entity + u" 3 of "_s + QString::number(before));
    QCOMPARE(count(c), before);
}

// With nothing to go back to, Cancel Add leaves the form adding again, as the empty list
// itself asks.
void TestReferenceAdd::cancelAddInAnEmptyTableRestoresNothing()
{
    const FormCase &c = currentCase();
    emptyTable(*m_opener, c);
    storePrompt(c, u"AddNewPrompt"_s, u"N"_s);
    QWidget *form = openForm(c);
    QVERIFY(form);
    typeInto(form, c.newRecord.first().first, c.newRecord.first().second);
    ModalResponder responder;
    click(form, u"cmdCancelAdd"_s);
    QCOMPARE(responder.finish(200), QString());
    QCOMPARE(count(c), 0);
    QCOMPARE(addModeProblems(form, c), QString());
    QCOMPARE(statusText(form), c.entity + u" 0 of 0"_s);
    QCOMPARE(fieldText(form, c.newRecord.first().first), QString());
}

void TestReferenceAdd::apostrophesAndAccentsAreAddedAndFoundAgain_data()
{
    QTest::addColumn<QString>("form");
    QTest::addColumn<QString>("name");
    QTest::newRow("author") << u"frmAuthor"_s << u"O'Súilleabháin"_s;
    QTest::newRow("topic") << u"frmTopic"_s << u"Children's Crèches & Écoles"_s;
    QTest::newRow("publisher") << u"frmPublisher"_s << u"L'Édition d'Aujourd'hui"_s;
}

// Bound writes carry the text as it is: an apostrophe or an accent is no trouble.
void TestReferenceAdd::apostrophesAndAccentsAreAddedAndFoundAgain()
{
    QFETCH(QString, form);
    QFETCH(QString, name);
    const FormCase &c = formCase(form);
    QWidget *shown = startAdding(c);
    QVERIFY(shown);
    for (const QString &mandatory : c.mandatory)
        typeInto(shown, mandatory, name);
    ModalResponder responder;
    responder.expect(plainMessage(c.addedTitle, c.added));
    click(shown, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(rowsWith(*m_opener, c, c.listColumn, name), 1);
    const QString key = fieldText(shown, u"txt"_s + c.keyColumn);

    click(shown, u"cmdFirst"_s);
    QVERIFY(pickFromLookup(shown, c, name));
    QCOMPARE(fieldText(shown, u"txt"_s + c.keyColumn), key);
    QCOMPARE(fieldText(shown, c.mandatory.first()), name);
}

// Leaving an empty mandatory field with Tab names it and keeps the focus there, when
// browsing too.
void TestReferenceAdd::tabbingOutOfAnEmptyMandatoryFieldIsRefused()
{
    const FormCase &c = currentCase();
    QWidget *form = openForm(c);
    QVERIFY(form);
    const QString key = fieldText(form, u"txt"_s + c.keyColumn);
    const QString before = valueOf(*m_opener, c, c.listColumn, key);
    typeInto(form, c.mandatory.first(), QString());
    ModalResponder responder;
    responder.expect(plainMessage(c.caption, c.missingMessages.first()));
    QTest::keyClick(field(form, c.mandatory.first()), Qt::Key_Tab);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(form->focusWidget(), field(form, c.mandatory.first()));
    QCOMPARE(valueOf(*m_opener, c, c.listColumn, key), before);
}

// The new record's key is held in 16 bits: one above 32767 is written, then reported as
// run-time error 6 before the form finds it again.
void TestReferenceAdd::newKeyAbove32767Overflows()
{
    const FormCase &c = currentCase();
    QSqlQuery(m_opener->catalogue().db())
        .exec(u"update sqlite_sequence set seq = 32767 where name = '"_s + c.table + u"'"_s);
    const int before = count(c);
    QWidget *form = startAdding(c);
    QVERIFY(form);
    for (const auto &[name, text] : c.newRecord)
        typeInto(form, name, text);
    ModalResponder responder;
    responder.expect(ModalResponder::message(u"prjQuireshelf"_s,
                                             u"Run-time error '6':\r\n\r\nOverflow"_s,
                                             QMessageBox::Critical, {u"OK"_s}, u"OK"_s));
    click(form, u"cmdConfirmAdd"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(count(c), before + 1);
    QVERIFY(!valueOf(*m_opener, c, c.listColumn, u"32768"_s).isEmpty());
}

void TestReferenceAdd::addingScreenshot()
{
    const FormCase &c = currentCase();
    QWidget *form = startAdding(c);
    QVERIFY(form);
    typeInto(form, c.newRecord.first().first, c.newRecord.first().second);
    QVERIFY(!SaveScreenshot(form, c.form + u"-adding"_s).isEmpty());
}

SHELVANE_TEST_MAIN(TestReferenceAdd)
#include "tst_referenceadd.moc"
