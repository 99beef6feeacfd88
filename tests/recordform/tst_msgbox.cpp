#include "recordform/msgbox.h"
#include "support/modalresponder.h"
#include "support/testmain.h"

#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

// The program's message boxes: the buttons, icon and title each message asks for, and the
// answer the program reads back.
class TestMsgBox : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void buttonsIconAndAnswer_data();
    void buttonsIconAndAnswer();
    void lineBreaksShowAsNewLines();
    void emptyTitleShowsTheProgramsTitle();
    void boxSitsOverTheActiveWindow();
    void boxShownFromADialogIsAnsweredInTurn();
};

void TestMsgBox::buttonsIconAndAnswer_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<QStringList>("buttons");
    QTest::addColumn<int>("icon");
    QTest::addColumn<QString>("press");
    QTest::addColumn<int>("answer");

    const QStringList ok{u"OK"_s};
    const QStringList okCancel{u"OK"_s, u"Cancel"_s};
    const QStringList yesNo{u"Yes"_s, u"No"_s};
    const QStringList yesNoCancel{u"Yes"_s, u"No"_s, u"Cancel"_s};
    QTest::newRow("OK only, no icon") << int(Vb::OKOnly) << ok << int(QMessageBox::NoIcon) << u"OK"_s << int(Vb::OK);
    QTest::newRow("OK with the exclamation icon") << int(Vb::OKOnly | Vb::Exclamation) << ok << int(QMessageBox::Warning) << u"OK"_s << int(Vb::OK);
    QTest::newRow("OK with the information icon") << int(Vb::OKOnly | Vb::Information) << ok << int(QMessageBox::Information) << u"OK"_s << int(Vb::OK);
    QTest::newRow("OK with the critical icon") << int(Vb::Critical) << ok << int(QMessageBox::Critical) << u"OK"_s << int(Vb::OK);
    QTest::newRow("OK and Cancel, Cancel pressed") << int(Vb::OKCancel) << okCancel << int(QMessageBox::NoIcon) << u"Cancel"_s << int(Vb::Cancel);
    QTest::newRow("OK and Cancel, OK pressed") << int(Vb::OKCancel) << okCancel << int(QMessageBox::NoIcon) << u"OK"_s << int(Vb::OK);
    QTest::newRow("Yes and No with information, Yes") << int(Vb::YesNo | Vb::Information) << yesNo << int(QMessageBox::Information) << u"Yes"_s << int(Vb::Yes);
    QTest::newRow("Yes and No, No") << int(Vb::YesNo) << yesNo << int(QMessageBox::NoIcon) << u"No"_s << int(Vb::No);
    QTest::newRow("Yes and No with the question icon") << int(Vb::YesNo | Vb::Question) << yesNo << int(QMessageBox::Question) << u"Yes"_s << int(Vb::Yes);
    QTest::newRow("Yes, No and Cancel, Cancel") << int(Vb::YesNoCancel) << yesNoCancel << int(QMessageBox::NoIcon) << u"Cancel"_s << int(Vb::Cancel);
    QTest::newRow("Yes, No and Cancel, No") << int(Vb::YesNoCancel) << yesNoCancel << int(QMessageBox::NoIcon) << u"No"_s << int(Vb::No);
}

void TestMsgBox::buttonsIconAndAnswer()
{
    QFETCH(int, style);
    QFETCH(QStringList, buttons);
    QFETCH(int, icon);
    QFETCH(QString, press);
    QFETCH(int, answer);

    ModalResponder responder;
    responder.expect(ModalResponder::message(u"Confirm Exit"_s, u"Edit in progress"_s,
                                             QMessageBox::Icon(icon), buttons, press));
    const int answered = MsgBox(u"Edit in progress"_s, style, u"Confirm Exit"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(answered, answer);
}

void TestMsgBox::lineBreaksShowAsNewLines()
{
    ModalResponder responder;
    QString shown;
    ModalExpectation expected = ModalResponder::message(
        u"Database Open Error"_s, u"Incorrect database name. \r\nPlease try again or 'Exit'"_s,
        QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s);
    expected.act = [&shown](QWidget *box) { shown = static_cast<QMessageBox *>(box)->text(); };
    responder.expect(expected);
    MsgBox(u"Incorrect database name. \r\nPlease try again or 'Exit'"_s, Vb::OKOnly,
           u"Database Open Error"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(shown, u"Incorrect database name. \nPlease try again or 'Exit'"_s);
}

void TestMsgBox::emptyTitleShowsTheProgramsTitle()
{
    ModalResponder responder;
    responder.expect(ModalResponder::message(u"prjQuireshelf"_s,
                                             u"System Information Is Unavailable At This Time"_s,
                                             QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s));
    MsgBox(u"System Information Is Unavailable At This Time"_s, Vb::OKOnly, QString());
    QCOMPARE(responder.finish(), QString());
}

void TestMsgBox::boxSitsOverTheActiveWindow()
{
    QWidget window;
    window.setWindowTitle(u"Shelvane"_s);
    window.show();
    window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&window));

    ModalResponder responder;
    QWidget *owner = nullptr;
    ModalExpectation expected = ModalResponder::message(
        u"Shelvane"_s, u"Please open Quireshelf database first!"_s, QMessageBox::Warning,
        {u"OK"_s}, u"OK"_s);
    expected.act = [&owner](QWidget *box) { owner = box->parentWidget(); };
    responder.expect(expected);
    MsgBox(u"Please open Quireshelf database first!"_s, Vb::OKOnly | Vb::Exclamation, u"Shelvane"_s);
    QCOMPARE(responder.finish(), QString());
    QCOMPARE(owner, &window);
}

// A modal dialog whose OK refuses with a message and stays open, as the pickers do.
void TestMsgBox::boxShownFromADialogIsAnsweredInTurn()
{
    QDialog picker;
    picker.setObjectName(u"dlgPicker"_s);
    picker.setWindowTitle(u"Author Selection"_s);
    auto *ok = new QPushButton(u"OK"_s, &picker);
    ok->setObjectName(u"OKButton"_s);
    auto *cancel = new QPushButton(u"Cancel"_s, &picker);
    cancel->setObjectName(u"CancelButton"_s);
    connect(ok, &QPushButton::clicked, &picker, [] {
        MsgBox(u"Please pick an author from the list, or cancel to exit"_s, Vb::OKOnly,
               u"Author Selection"_s);
    });
    connect(cancel, &QPushButton::clicked, &picker, &QDialog::reject);

    ModalResponder responder;
    responder.expect(ModalResponder::dialog(u"dlgPicker"_s, u"Author Selection"_s, u"OKButton"_s));
    responder.expect(ModalResponder::message(
        u"Author Selection"_s, u"Please pick an author from the list, or cancel to exit"_s,
        QMessageBox::NoIcon, {u"OK"_s}, u"OK"_s));
    responder.expect(ModalResponder::dialog(u"dlgPicker"_s, u"Author Selection"_s, u"Cancel"_s));
    QCOMPARE(picker.exec(), int(QDialog::Rejected));
    QCOMPARE(responder.finish(), QString());
}

SHELVANE_TEST_MAIN(TestMsgBox)
#include "tst_msgbox.moc"
