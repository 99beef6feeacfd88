#include "recordform/confirmexit.h"

#include "data/recordset.h"
#include "recordform/msgbox.h"

#include <QDataWidgetMapper>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

bool editPending(const Recordset *recordset)
{
    return recordset && !recordset->bof() && !recordset->eof()
        && recordset->editMode() != Recordset::EditMode::None;
}

} // namespace

bool ConfirmExit(QDataWidgetMapper *mapper, Recordset *recordset,
                 const std::function<bool()> &applyUpdates)
{
    ExitQuestion question(nullptr, mapper, [recordset] { return recordset; }, applyUpdates);
    return question.settle();
}

ExitQuestion::ExitQuestion(QWidget *form, QDataWidgetMapper *mapper, RecordsetOf recordset,
                           std::function<bool()> applyUpdates)
    : QObject(form)
    , m_mapper(mapper)
    , m_recordset(std::move(recordset))
    , m_applyUpdates(std::move(applyUpdates))
{
}

ExitQuestion *ExitQuestion::of(const QWidget *form)
{
    return form->findChild<ExitQuestion *>(QString(), Qt::FindDirectChildrenOnly);
}

bool ExitQuestion::askAhead()
{
    m_answeredAhead = ask();
    return *m_answeredAhead != Answer::Stay;
}

void ExitQuestion::forget()
{
    m_answeredAhead.reset();
}

bool ExitQuestion::settle()
{
    const Answer answer = m_answeredAhead.value_or(Answer::NothingPending);
    m_answeredAhead.reset();
    return carryOut(answer == Answer::NothingPending ? ask() : answer);
}

ExitQuestion::Answer ExitQuestion::ask()
{
    if (m_mapper)
        m_mapper->submit();
    if (!editPending(m_recordset()))
        return Answer::NothingPending;
    const int answer = MsgBox(u"Edit in progress do you wish apply updates\r\n"
                              "Press 'Yes' to apply updates and then exit\r\n"
                              "Press 'No' to skip updates and exit\r\n"
                              "Press 'Cancel' to continue editting"_s,
                              Vb::YesNoCancel, u"Confirm Exit"_s);
    if (answer == Vb::Cancel)
        return Answer::Stay;
    return answer == Vb::Yes ? Answer::Apply : Answer::Drop;
}

bool ExitQuestion::carryOut(Answer answer)
{
    switch (answer) {
    case Answer::NothingPending:
        return true;
    case Answer::Stay:
        return false;
    case Answer::Apply:
        return m_applyUpdates();
    case Answer::Drop:
        if (Recordset *recordset = m_recordset(); editPending(recordset))
            recordset->cancelUpdate();
        return true;
    }
    return false;
}
