#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "recordform/runtimeerrorreport.h"
#include "support/modalresponder.h"
#include "support/testmain.h"

#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// What a data layer call or a checked conversion does when it fails.
void fail(bool fromProvider, int number, const QString &description)
{
    if (fromProvider)
        throw ProviderError{number, QString::number(number), description};
    throw RuntimeError{number, description};
}

} // namespace

// An error that no handler traps is reported as a run-time error; the handler is abandoned
// and the program goes on.
class TestRuntimeError : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportReadsAsTheRuntimeErrorBox();
    void errorEscapingAHandlerIsReported_data();
    void errorEscapingAHandlerIsReported();
};

void TestRuntimeError::reportReadsAsTheRuntimeErrorBox()
{
    ModalResponder responder;
    responder.expect(ModalResponder::message(u"prjQuireshelf"_s,
                                             u"Run-time error '6':\r\n\r\nOverflow"_s,
                                             QMessageBox::Critical, {u"OK"_s}, u"OK"_s));
    ReportRuntimeError(6, u"Overflow"_s);
    QCOMPARE(responder.finish(), QString());
}

void TestRuntimeError::errorEscapingAHandlerIsReported_data()
{
    QTest::addColumn<bool>("fromProvider");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("report");

    QTest::newRow("run-time error 6") << false << 6 << u"Overflow"_s
                                      << u"Run-time error '6':\r\n\r\nOverflow"_s;
    QTest::newRow("provider error") << true << 3022 << u"UNIQUE constraint failed"_s
                                    << u"Run-time error '3022':\r\n\r\nUNIQUE constraint failed"_s;
}

void TestRuntimeError::errorEscapingAHandlerIsReported()
{
    QFETCH(bool, fromProvider);
    QFETCH(int, number);
    QFETCH(QString, description);
    QFETCH(QString, report);

    QWidget form;
    auto *failing = new QPushButton(u"Fails"_s, &form);
    auto *working = new QPushButton(u"Works"_s, &form);
    working->move(0, 40);
    bool restOfHandlerRan = false;
    int worked = 0;
    connect(failing, &QPushButton::clicked, this, [&] {
        RunHandler([&] {
            fail(fromProvider, number, description);
            restOfHandlerRan = true;
        });
    });
    connect(working, &QPushButton::clicked, this, [&worked] { ++worked; });
    form.show();
    QVERIFY(QTest::qWaitForWindowExposed(&form));

    ModalResponder responder;
    responder.expect(ModalResponder::message(u"prjQuireshelf"_s, report, QMessageBox::Critical,
                                             {u"OK"_s}, u"OK"_s));
    QTest::mouseClick(failing, Qt::LeftButton);
    QCOMPARE(responder.finish(), QString());
    QVERIFY(!restOfHandlerRan);

    // The program goes on: the next command works as usual and reports nothing.
    QTest::mouseClick(working, Qt::LeftButton);
    QCOMPARE(responder.finish(100), QString());
    QCOMPARE(worked, 1);
}

SHELVANE_TEST_MAIN(TestRuntimeError)
#include "tst_runtimeerror.moc"
