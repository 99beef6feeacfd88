#pragma once

#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QQueue>
#include <QString>
#include <QStringList>
#include <QTimer>

#include <functional>

// What a test expects of the next modal window (a message box or a modal dialog), and what it
// does there.
struct ModalExpectation
{
    // For a dialog: its objectName ("dlgAddPrompt"); empty for a message box.
    QString objectName;
    QString title;
    // Message boxes only. In `text`, "\r\n" stands for a line break as the program writes it.
    QString text;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QStringList buttons; // every button's caption, without access-key marks, in any order
    // The button to press: its caption (without "&") or its objectName. Empty: press nothing.
    QString press;
    // Runs on the window before the press: tick a box, look at a label, take a screenshot.
    std::function<void(QWidget *)> act;
};

// Answers the program's modal windows for a test. Each expectation is met, in order, by the
// next modal window that comes to the top (also one shown from inside another modal window);
// the window is checked and the named button pressed. A window nobody expected, or one that
// differs from the expectation, is recorded and closed so that the test goes on.
class ModalResponder : public QObject
{
    Q_OBJECT

public:
    ModalResponder();
    ~ModalResponder() override;

    static ModalExpectation message(const QString &title, const QString &text,
                                    QMessageBox::Icon icon, const QStringList &buttons,
                                    const QString &press);
    static ModalExpectation dialog(const QString &objectName, const QString &title,
                                   const QString &press,
                                   std::function<void(QWidget *)> act = {});

    void expect(const ModalExpectation &expectation);

    // Waits until every expected window has been answered, then tells what went wrong:
    // empty when everything was as expected. Starts afresh for the next step of the test.
    QString finish(int timeoutMs = 5000);

private:
    void poll();
    void answer(QWidget *window);
    void dismiss(QWidget *window);
    QString describe(QWidget *window) const;
    QString compare(QWidget *window, const ModalExpectation &expected) const;

    QTimer m_poll;
    QQueue<ModalExpectation> m_expected;
    QPointer<QWidget> m_top;
    QStringList m_problems;
    int m_queuedPresses = 0;
};

// Confirm Exit, which a form asks when it closes with an edit pending, answered with `press`.
ModalExpectation confirmExit(const QString &press);
