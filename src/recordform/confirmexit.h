#pragma once

#include <QObject>

#include <functional>
#include <optional>

class QDataWidgetMapper;
class QWidget;
class Recordset;

// What a record form does with an edit still pending when it is closed: asks "Confirm Exit"
// (Yes applies the edit, No drops it, Cancel keeps the form open). The forms differ only in
// how they apply it, so each passes its own steps for Yes, which answer whether the form may
// close. The mapper is submitted first, so that what the user typed counts as an edit.
// Answers whether the form may close; without a pending edit it closes without a question.
bool ConfirmExit(QDataWidgetMapper *mapper, Recordset *recordset,
                 const std::function<bool()> &applyUpdates);

// A record form's "Confirm Exit", which the frame can put to the form before it closes any
// form: the frame asks every open form first and closes none when one answers Cancel. A form
// asked ahead carries out the answer it gave when it then closes, without asking again; a
// form closed on its own asks then. Made as a child of the form, where the frame finds it.
class ExitQuestion : public QObject
{
    Q_OBJECT

public:
    using RecordsetOf = std::function<Recordset *()>;

    ExitQuestion(QWidget *form, QDataWidgetMapper *mapper, RecordsetOf recordset,
                 std::function<bool()> applyUpdates);

    // The question of the form among the children of `form`, or nullptr.
    static ExitQuestion *of(const QWidget *form);

    // Asks now when an edit is pending and keeps the answer; false when the answer is Cancel.
    bool askAhead();
    // The close the answer was given for did not happen: the edit stays pending.
    void forget();
    // From the form's close: carries out the answer given ahead, or asks now. Answers
    // whether the form may close.
    bool settle();

private:
    enum class Answer { NothingPending, Apply, Drop, Stay };
    Answer ask();
    bool carryOut(Answer answer);

    QDataWidgetMapper *m_mapper;
    RecordsetOf m_recordset;
    std::function<bool()> m_applyUpdates;
    std::optional<Answer> m_answeredAhead;
};
