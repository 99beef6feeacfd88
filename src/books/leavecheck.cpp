#include "books/leavecheck.h"

#include <QApplication>
#include <QFocusEvent>
#include <QTimer>
#include <QWidget>

LeaveCheck::LeaveCheck(QWidget *form, Check check)
    : QObject(form)
    , m_form(form)
    , m_check(std::move(check))
{
    // Access keys and clicks reach other widgets of the form first; they are seen here.
    qApp->installEventFilter(this);
}

LeaveCheck::~LeaveCheck()
{
    qApp->removeEventFilter(this);
}

void LeaveCheck::watch(QWidget *field)
{
    m_fields.insert(field);
}

void LeaveCheck::exempt(QWidget *control)
{
    m_exempt.insert(control);
}

bool LeaveCheck::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::FocusOut:
        if (watched->isWidgetType() && m_fields.contains(static_cast<QWidget *>(watched)))
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

void LeaveCheck::onFieldFocusOut(QWidget *field, const QEvent *event)
{
    const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
    const bool byUser = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::MouseFocusReason;
    if (!byUser || !isLeavingTo(QApplication::focusWidget()) || runCheck(field))
        return;
    if (reason == Qt::MouseFocusReason) {
        m_refusedClick = true;
        // The click is delivered within this event; a move made otherwise leaves none.
        QTimer::singleShot(0, this, [this] { m_refusedClick = false; });
    }
    field->setFocus(Qt::OtherFocusReason);
}

// An access key moves the focus from inside its own handling, too late to stop; the key is
// refused before it is handled instead.
bool LeaveCheck::refusesShortcut(QObject *receiver)
{
    if (!receiver->isWidgetType())
        return false;
    QWidget *field = QApplication::focusWidget();
    if (!m_fields.contains(field) || !isLeavingTo(static_cast<QWidget *>(receiver)))
        return false;
    return !runCheck(field);
}

bool LeaveCheck::isLeavingTo(const QWidget *target) const
{
    if (!target || !m_form->isAncestorOf(target))
        return false;
    for (const QWidget *control : m_exempt) {
        if (control == target || control->isAncestorOf(target))
            return false;
    }
    return true;
}

bool LeaveCheck::runCheck(QWidget *field)
{
    // The check's message box takes the focus away again; that is not the user leaving.
    if (m_checking)
        return true;
    m_checking = true;
    const bool passed = m_check(field);
    m_checking = false;
    return passed;
}
