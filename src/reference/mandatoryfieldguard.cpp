#include "reference/mandatoryfieldguard.h"

#include <QAbstractScrollArea>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QWidget>

namespace {

bool isTab(const QEvent *event)
{
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

} // namespace

MandatoryFieldGuard::MandatoryFieldGuard(Check check, QObject *parent)
    : QObject(parent)
    , m_check(std::move(check))
{
}

void MandatoryFieldGuard::watch(QWidget *field)
{
    m_fields.append(field);
    field->installEventFilter(this);
}

void MandatoryFieldGuard::guard(QWidget *control)
{
    // A text area receives its clicks on its viewport.
    if (auto *area = qobject_cast<QAbstractScrollArea *>(control))
        area->viewport()->installEventFilter(this);
    control->installEventFilter(this);
}

bool MandatoryFieldGuard::isWatched(const QObject *object) const
{
    for (const QPointer<QWidget> &field : m_fields) {
        if (field == object)
            return true;
    }
    return false;
}

bool MandatoryFieldGuard::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (isWatched(watched) && isTab(event))
            return !m_check(static_cast<QWidget *>(watched));
        break;
    case QEvent::FocusOut:
        // A click moves the focus before the clicked control sees the press.
        if (isWatched(watched)
            && static_cast<QFocusEvent *>(event)->reason() == Qt::MouseFocusReason)
            m_clickedAway = static_cast<QWidget *>(watched);
        break;
    case QEvent::MouseButtonPress:
        return clickIsRefused(watched);
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool MandatoryFieldGuard::clickIsRefused(QObject *watched)
{
    QWidget *left = m_clickedAway;
    m_clickedAway = nullptr;
    if (!left || left == watched || left->isAncestorOf(qobject_cast<QWidget *>(watched)))
        return false;
    return !m_check(left);
}
