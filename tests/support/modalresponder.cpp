#include "support/modalresponder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QTest>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

constexpr int PollIntervalMs = 10;

QString withoutAccessKeys(QString caption)
{
    return caption.remove(u'&');
}

QString asShown(QString text)
{
    return text.replace(u"\r\n"_s, u"\n"_s);
}

QStringList captionsOf(const QMessageBox *box)
{
    QStringList captions;
    for (const QAbstractButton *button : box->buttons())
        captions << withoutAccessKeys(button->text());
    std::sort(captions.begin(), captions.end());
    return captions;
}

QString iconName(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::Information:
        return u"Information"_s;
    case QMessageBox::Warning:
        return u"Warning (exclamation)"_s;
    case QMessageBox::Critical:
        return u"Critical"_s;
    case QMessageBox::Question:
        return u"Question"_s;
    case QMessageBox::NoIcon:
        break;
    }
    return u"no icon"_s;
}

QAbstractButton *findButton(QWidget *window, const QString &name)
{
    if (name.isEmpty())
        return nullptr;
    const QList<QAbstractButton *> buttons = window->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->objectName() == name || withoutAccessKeys(button->text()) == name)
            return button;
    }
    return nullptr;
}

QString mismatch(const QString &what, const QString &expected, const QString &actual)
{
    return u"  "_s + what + u": expected \""_s + expected + u"\", got \""_s + actual + u"\""_s;
}

} // namespace

ModalResponder::ModalResponder()
{
    m_poll.setInterval(PollIntervalMs);
    connect(&m_poll, &QTimer::timeout, this, &ModalResponder::poll);
    m_poll.start();
}

ModalResponder::~ModalResponder() = default;

ModalExpectation ModalResponder::message(const QString &title, const QString &text,
                                         QMessageBox::Icon icon, const QStringList &buttons,
                                         const QString &press)
{
    ModalExpectation expectation;
    expectation.title = title;
    expectation.text = text;
    expectation.icon = icon;
    expectation.buttons = buttons;
    expectation.press = press;
    return expectation;
}

ModalExpectation confirmExit(const QString &press)
{
    return ModalResponder::message(u"Confirm Exit"_s,
                                   u"Edit in progress do you wish apply updates\r\n"
                                   "Press 'Yes' to apply updates and then exit\r\n"
                                   "Press 'No' to skip updates and exit\r\n"
                                   "Press 'Cancel' to continue editting"_s,
                                   QMessageBox::NoIcon, {u"Yes"_s, u"No"_s, u"Cancel"_s}, press);
}

ModalExpectation ModalResponder::dialog(const QString &objectName, const QString &title,
                                        const QString &press, std::function<void(QWidget *)> act)
{
    ModalExpectation expectation;
    expectation.objectName = objectName;
    expectation.title = title;
    expectation.press = press;
    expectation.act = std::move(act);
    return expectation;
}

void ModalResponder::expect(const ModalExpectation &expectation)
{
    m_expected.enqueue(expectation);
}

QString ModalResponder::finish(int timeoutMs)
{
    // What did not come in time is reported below, window by window.
    std::ignore = QTest::qWaitFor(
        [this] { return m_expected.isEmpty() && m_queuedPresses == 0; }, timeoutMs);
    for (const ModalExpectation &missing : std::as_const(m_expected)) {
        m_problems << u"Expected modal window never appeared: \""_s + missing.title + u"\" "_s
                + asShown(missing.text);
    }
    m_expected.clear();
    const QString report = m_problems.join(u'\n');
    m_problems.clear();
    return report;
}

// A window counts as new each time it comes to the top of the modal stack: when it is shown,
// and again when a window shown over it has gone and it stays open.
void ModalResponder::poll()
{
    QWidget *top = QApplication::activeModalWidget();
    if (top == m_top)
        return;
    m_top = top;
    if (top)
        answer(top);
}

void ModalResponder::answer(QWidget *window)
{
    if (m_expected.isEmpty()) {
        m_problems << u"Unexpected modal window: "_s + describe(window);
        dismiss(window);
        return;
    }
    const ModalExpectation expected = m_expected.dequeue();
    const QString differences = compare(window, expected);
    if (!differences.isEmpty())
        m_problems << u"Modal window differs from the expectation: "_s + describe(window)
                + u'\n' + differences;
    QPointer<QAbstractButton> button = findButton(window, expected.press);
    if (!expected.press.isEmpty() && !button) {
        m_problems << u"No button \""_s + expected.press + u"\" on "_s + describe(window);
        dismiss(window);
        return;
    }
    // Pressed from a fresh event, so that a window the press opens in turn (a nested modal
    // loop) does not hold up this poll.
    ++m_queuedPresses;
    QTimer::singleShot(0, this, [this, target = QPointer(window), button, act = expected.act] {
        --m_queuedPresses;
        if (!target)
            return;
        if (act)
            act(target);
        if (button)
            button->click();
    });
}

void ModalResponder::dismiss(QWidget *window)
{
    QTimer::singleShot(0, window, [window] {
        if (auto *box = qobject_cast<QMessageBox *>(window)) {
            QAbstractButton *button = box->escapeButton();
            if (!button && !box->buttons().isEmpty())
                button = box->buttons().constFirst();
            if (button)
                button->click();
        } else if (auto *dialog = qobject_cast<QDialog *>(window)) {
            dialog->reject();
        } else {
            window->close();
        }
    });
}

QString ModalResponder::describe(QWidget *window) const
{
    QString description = QString::fromLatin1(window->metaObject()->className());
    if (!window->objectName().isEmpty())
        description += u" "_s + window->objectName();
    description += u" titled \""_s + window->windowTitle() + u"\""_s;
    if (const auto *box = qobject_cast<const QMessageBox *>(window)) {
        description += u", text \""_s + box->text() + u"\", "_s + iconName(box->icon())
                + u", buttons ["_s + captionsOf(box).join(u", "_s) + u"]"_s;
    }
    return description;
}

QString ModalResponder::compare(QWidget *window, const ModalExpectation &expected) const
{
    QStringList differences;
    if (window->windowTitle() != expected.title)
        differences << mismatch(u"title"_s, expected.title, window->windowTitle());
    if (!expected.objectName.isEmpty()) {
        if (window->objectName() != expected.objectName)
            differences << mismatch(u"window"_s, expected.objectName, window->objectName());
        return differences.join(u'\n');
    }
    const auto *box = qobject_cast<const QMessageBox *>(window);
    if (!box) {
        differences << u"  expected a message box"_s;
        return differences.join(u'\n');
    }
    if (box->text() != asShown(expected.text))
        differences << mismatch(u"text"_s, asShown(expected.text), box->text());
    if (box->icon() != expected.icon)
        differences << mismatch(u"icon"_s, iconName(expected.icon), iconName(box->icon()));
    QStringList buttons = expected.buttons;
    std::sort(buttons.begin(), buttons.end());
    if (captionsOf(box) != buttons)
        differences << mismatch(u"buttons"_s, buttons.join(u", "_s), captionsOf(box).join(u", "_s));
    return differences.join(u'\n');
}
