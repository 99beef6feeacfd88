#include "shell/confirmexit.h"

#include "data/recordset.h"
#include "shell/msgbox.h"

#include <QDataWidgetMapper>

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
    if (mapper)
        mapper->submit();
    if (!editPending(recordset))
        return true;
    const int answer = MsgBox(u"Edit in progress do you wish apply updates\r\n"
                              "Press 'Yes' to apply updates and then exit\r\n"
                              "Press 'No' to skip updates and exit\r\n"
                              "Press 'Cancel' to continue editting"_s,
                              Vb::YesNoCancel, u"Confirm Exit"_s);
    if (answer == Vb::Cancel)
        return false;
    if (answer == Vb::Yes)
        return applyUpdates();
    recordset->cancelUpdate();
    return true;
}
