#include "recordform/mandatoryleavecheck.h"
#include "recordform/msgbox.h"
#include "support/modalresponder.h"
#include "support/testmain.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString Title = u"Record Maintenance"_s;
const QString Missing = u"Please enter a name"_s;

// How the user (or the program) tries to take the focus out of the field.
enum class Way {
    Tab,
    Backtab,
    ClickButton,
    ClickExempt,
    AccessKeyOfField,
    AccessKeyOfOwnLabel,
    AccessKeyOfButton,
    ByProgram,
};

// A form with one checked field: its label, another field, a button and an exempt button.
class Form : public QWidget
{
public:
    Form()
    {
        auto *layout = new QVBoxLayout(this);
        layout->addWidget(label(u"Na&me"_s, field));
        layout->addWidget(field);
        layout->addWidget(label(u"N&otes"_s, other));
        layout->addWidget(other);
        layout->addWidget(next);
        layout->addWidget(cancel);
        field->setObjectName(u"txtName"_s);
        other->setObjectName(u"txtNotes"_s);
        next->setObjectName(u"cmdNext"_s);
        cancel->setObjectName(u"cmdCancel"_s);
        // Shift+Tab goes back to the notes, Tab on to the buttons.
        setTabOrder(other, field);
        setTabOrder(field, next);
        setTabOrder(next, cancel);
        check->watch(field);
        check->exempt(cancel);
    }

    // The check as the forms run it: an empty field is named in a message box.
    bool fieldFilled(QWidget *checked)
    {
        ++checks;
        if (!static_cast<QLineEdit *>(checked)->text().isEmpty())
            return true;
        MsgBox(Missing, Vb::OKOnly, Title);
        return false;
    }

    QLineEdit *field = new QLineEdit(this);
    QLineEdit *other = new QLineEdit(this);
    QPushButton *next = new QPushButton(u"&Next"_s, this);
    QPushButton *cancel = new QPushButton(u"&Cancel"_s, this);
    MandatoryLeaveCheck *check =
        new MandatoryLeaveCheck(this, [this](QWidget *checked) { return fieldFilled(checked); });
    int checks = 0;

private:
    QLabel *label(const QString &text, QWidget *buddy)
    {
        auto *shown = new QLabel(text, this);
        shown->setBuddy(buddy);
        return shown;
    }
};

void leave(Form &form, Way way)
{
    switch (way) {
    case Way::Tab:
        QTest::keyClick(form.field, Qt::Key_Tab);
        break;
    case Way::Backtab:
        QTest::keyClick(form.field, Qt::Key_Backtab, Qt::ShiftModifier);
        break;
    case Way::ClickButton:
        QTest::mouseClick(form.next, Qt::LeftButton);
        break;
    case Way::ClickExempt:
        QTest::mouseClick(form.cancel, Qt::LeftButton);
        break;
    case Way::AccessKeyOfField:
        QTest::keyClick(form.field, Qt::Key_O, Qt::AltModifier);
        break;
    case Way::AccessKeyOfOwnLabel:
        QTest::keyClick(form.field, Qt::Key_M, Qt::AltModifier);
        break;
    case Way::AccessKeyOfButton:
        QTest::keyClick(form.field, Qt::Key_N, Qt::AltModifier);
        break;
    case Way::ByProgram:
        form.other->setFocus(Qt::OtherFocusReason);
        break;
    }
}

} // namespace

Q_DECLARE_METATYPE(Way)

// A checked field keeps the focus while its check fails, however the user tries to leave it;
// what the program does, and what is exempt, is not checked.
class TestMandatoryLeaveCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void leavingTheField_data();
    void leavingTheField();
    void anotherWindowIsNotChecked();
};

void TestMandatoryLeaveCheck::leavingTheField_data()
{
    QTest::addColumn<Way>("way");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("checks");
    QTest::addColumn<bool>("refused");
    QTest::addColumn<QString>("focusAfter");
    QTest::addColumn<QString>("pressed");
    const QString empty;
    const QString filled = u"Ann"_s;
    const auto row = [](const char *name, Way way, const QString &text, int checks,
                        bool refused, const QString &focusAfter, const QString &pressed = {}) {
        QTest::newRow(name) << way << text << checks << refused << focusAfter << pressed;
    };
    row("Tab, empty", Way::Tab, empty, 1, true, u"txtName"_s);
    row("Tab, filled", Way::Tab, filled, 1, false, u"cmdNext"_s);
    row("Shift+Tab, empty", Way::Backtab, empty, 1, true, u"txtName"_s);
    row("Shift+Tab, filled", Way::Backtab, filled, 1, false, u"txtNotes"_s);
    row("click, empty", Way::ClickButton, empty, 1, true, u"txtName"_s);
    row("click, filled", Way::ClickButton, filled, 1, false, u"cmdNext"_s, u"cmdNext"_s);
    row("exempt click, empty", Way::ClickExempt, empty, 0, false, u"cmdCancel"_s, u"cmdCancel"_s);
    row("access key of a field, empty", Way::AccessKeyOfField, empty, 1, true, u"txtName"_s);
    row("access key of a field, filled", Way::AccessKeyOfField, filled, 1, false, u"txtNotes"_s);
    row("access key of a button, empty", Way::AccessKeyOfButton, empty, 1, true, u"txtName"_s);
    // A button's access key presses it where the focus is.
    row("access key of a button, filled", Way::AccessKeyOfButton, filled, 1, false, u"txtName"_s,
        u"cmdNext"_s);
    row("access key of its own label, empty", Way::AccessKeyOfOwnLabel, empty, 0, false,
        u"txtName"_s);
    row("by the program, empty", Way::ByProgram, empty, 0, false, u"txtNotes"_s);
}

void TestMandatoryLeaveCheck::leavingTheField()
{
    QFETCH(Way, way);
    QFETCH(QString, text);
    QFETCH(int, checks);
    QFETCH(bool, refused);
    QFETCH(QString, focusAfter);
    QFETCH(QString, pressed);
    Form form;
    form.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    form.field->setText(text);
    form.field->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(form.field->hasFocus());
    QSignalSpy nextPressed(form.next, &QPushButton::clicked);
    QSignalSpy cancelPressed(form.cancel, &QPushButton::clicked);

    ModalResponder responder;
    if (refused)
        responder.expect(ModalResponder::message(Title, Missing, QMessageBox::NoIcon, {u"OK"_s},
                                                 u"OK"_s));
    leave(form, way);
    QCOMPARE(responder.finish(), QString());
    // The control that has the focus, or takes it back when the form is active again.
    QTRY_COMPARE(form.focusWidget()->objectName(), focusAfter);
    // A refused click or key does nothing else: no button is pressed, not even a moment later
    // as an access key presses one.
    const bool nextExpected = pressed == u"cmdNext";
    QCOMPARE(QTest::qWaitFor([&] { return !nextPressed.isEmpty(); }, 300), nextExpected);
    QCOMPARE(nextPressed.count(), nextExpected ? 1 : 0);
    QCOMPARE(cancelPressed.count(), pressed == u"cmdCancel" ? 1 : 0);
    QCOMPARE(form.checks, checks);
}

void TestMandatoryLeaveCheck::anotherWindowIsNotChecked()
{
    Form form;
    form.show();
    QLineEdit elsewhere;
    elsewhere.show();
    form.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&form));
    form.field->setFocus(Qt::OtherFocusReason);
    QTRY_VERIFY(form.field->hasFocus());
    ModalResponder responder;
    elsewhere.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&elsewhere));
    QTest::mouseClick(&elsewhere, Qt::LeftButton);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(form.checks, 0);
    QTRY_VERIFY(elsewhere.hasFocus());
}

SHELVANE_TEST_MAIN(TestMandatoryLeaveCheck)
#include "tst_mandatoryleavecheck.moc"
