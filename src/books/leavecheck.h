#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>

class QWidget;

// The check a field runs when the user tries to leave it for another control of the same
// form, by Tab, by a click or by an access key. A field whose check fails keeps the focus,
// and the click or access key that would have left it does nothing. Moves made by the program
// itself, and to other windows, are not checked.
class LeaveCheck : public QObject
{
    Q_OBJECT

public:
    // Answers whether the field may be left; a failing check tells the user why.
    using Check = std::function<bool(QWidget *field)>;

    LeaveCheck(QWidget *form, Check check);
    ~LeaveCheck() override;

    void watch(QWidget *field);
    // A control that leaves the field unchecked when it is used (cancelling, help).
    void exempt(QWidget *control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onFieldFocusOut(QWidget *field, const QEvent *event);
    bool refusesShortcut(QObject *receiver);
    bool isLeavingTo(const QWidget *target) const;
    bool runCheck(QWidget *field);

    QWidget *m_form;
    Check m_check;
    QSet<QWidget *> m_fields;
    QSet<QWidget *> m_exempt;
    // The click that tried to leave a field which refused: it is swallowed when it arrives.
    bool m_refusedClick = false;
    bool m_checking = false;
};
