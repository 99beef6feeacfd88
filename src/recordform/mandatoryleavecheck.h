#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QSet>

#include <functional>

class QWidget;

// The check a mandatory field runs when the user tries to leave it for another control of
// the same form: by Tab, by a click or by an access key. A field whose check fails keeps the
// focus, and the key or click that would have left it does nothing. Moves made by the
// program itself, and to other windows, are not checked.
class MandatoryLeaveCheck : public QObject
{
    Q_OBJECT

public:
    // Answers whether the field may be left; a failing check tells the user why.
    using Check = std::function<bool(QWidget *field)>;

    MandatoryLeaveCheck(QWidget *form, Check check);
    ~MandatoryLeaveCheck() override;

    void watch(QWidget *field);
    // A control that is used without checking the field first (cancelling, help), so that
    // the user cannot be held in an empty field.
    void exempt(QWidget *control);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onFieldFocusOut(QWidget *field, const QEvent *event);
    bool refusesShortcut(QObject *receiver);
    bool isLeaving(const QWidget *field, const QWidget *target) const;
    bool runCheck(QWidget *field);

    QPointer<QWidget> m_form;
    Check m_check;
    // Compared only: a field is looked at through the event it receives.
    QSet<const QObject *> m_fields;
    QList<QPointer<QWidget>> m_exempt;
    // The click that tried to leave a field which refused: it is swallowed when it arrives.
    bool m_refusedClick = false;
    bool m_checking = false;
};
