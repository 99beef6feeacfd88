#pragma once

#include <QObject>
#include <QPointer>

#include <functional>

class QWidget;

// The check of a mandatory field when the user leaves it, by Tab or by clicking another
// control: a field that fails keeps the focus, and the key or the click is lost. The check
// itself shows the message and puts the focus back.
class MandatoryFieldGuard : public QObject
{
public:
    using Check = std::function<bool(QWidget *field)>;

    MandatoryFieldGuard(Check check, QObject *parent);

    // A field checked when it is left.
    void watch(QWidget *field);
    // A control whose click first checks the field the click has taken the focus from.
    void guard(QWidget *control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isWatched(const QObject *object) const;
    bool clickIsRefused(QObject *watched);

    Check m_check;
    QList<QPointer<QWidget>> m_fields;
    // The field a mouse click took the focus from, until the clicked control sees the press.
    QPointer<QWidget> m_clickedAway;
};
