#include "recordform/mandatoryleavecheck.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWidget>

namespace {

bool isUserMove(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::MouseFocusReason;
}

// An access key of a label moves to the label's buddy.
const QWidget *shortcutTarget(const QObject *receiver)
{
    if (const auto *label = qobject_cast<const QLabel *>(receiver); label && label->buddy())
        return label->buddy();
    return qobject_cast<const QWidget *>(receiver);
}

} // namespace

MandatoryLeaveCheck::MandatoryLeaveCheck(QWidget *form, Check check)
    : QObject(form)
    , m_form(form)
    , m_check(std::move(check))
{
    // Access keys and clicks reach other widgets of the form first; they are seen here.
    qApp->installEventFilter(this);
}

MandatoryLeaveCheck::~MandatoryLeaveCheck()
{
    qApp->removeEventFilter(this);
}

void MandatoryLeaveCheck::watch(QWidget *field)
{
    m_fields.insert(field);
}

void MandatoryLeaveCheck::exempt(QWidget *control)
{
    m_exempt.append(control);
}

bool MandatoryLeaveCheck::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
        if (m_fields.contains(watched))
            onFieldFocusOut(static_cast<QWidget *>(watched), event);
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        // The focus moves before the click is delivered; a refused move takes its click.
        if (m_refusedClick) {
            m_refusedClick = false;
            return true;
        }
        break;
    case QEvent::Shortcut:
        return refusesShortcut(watched);
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void MandatoryLeaveCheck::onFieldFocusOut(QWidget *field, const QEvent *event)
{
    const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
    if (!isUserMove(reason) || !isLeaving(field, QApplication::focusWidget()) || runCheck(field))
        return;
    if (reason == Qt::MouseFocusReason) {
        m_refusedClick = true;
        // The click is delivered right after this event; a move made otherwise leaves none.
        QTimer::singleShot(0, this, [this] { m_refusedClick = false; });
    }
    field->setFocus(Qt::OtherFocusReason);
}

// An access key moves the focus from inside its own handling, too late to stop; the key is
// refused before it is handled instead.
bool MandatoryLeaveCheck::refusesShortcut(QObject *receiver)
{
    QWidget *field = QApplication::focusWidget();
    if (!m_fields.contains(field) || !isLeaving(field, shortcutTarget(receiver)))
        return false;
    return !runCheck(field);
}

bool MandatoryLeaveCheck::isLeaving(const QWidget *field, const QWidget *target) const
{
    if (!target || !m_form || !m_form->isAncestorOf(target) || target == field
        || field->isAncestorOf(target))
        return false;
    for (const QPointer<QWidget> &control : m_exempt) {
        if (control && (control == target || control->isAncestorOf(target)))
            return false;
    }
    return true;
}

bool MandatoryLeaveCheck::runCheck(QWidget *field)
{
    // The check's message box takes the focus away again; that is not the user leaving.
    if (m_checking)
        return true;
    const QScopedValueRollback checking(m_checking, true);
    return m_check(field);
}
