// Deleting the book on show. Its links go with it by the catalogue's own relations.

#include "forms/books/frmbookmaintenance.h"

#include "data/datacontrol.h"
#include "recordform/msgbox.h"
#include "recordform/recordformcontroller.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookmaintenance.h"

using namespace Qt::StringLiterals;

void FrmBookMaintenance::on_cmdDelete_clicked()
{
    RunHandler([this] {
        if (!m_controller->goAhead(PromptKind::Delete))
            return;
        // A warning, not a question: the last book goes all the same.
        if (m_controller->recordCount() == 1)
            MsgBox(u"You are about to delete the last book!\r\n"
                   "some forms may not function correctly as a result\r\n"
                   "\r\n"
                   "You can correct these by adding at least one book"_s,
                   Vb::OKOnly | Vb::Exclamation, u"Delete last book"_s);
        m_controller->submitEdits();
        Recordset *rs = books();
        rs->move(0);
        rs->deleteCurrent();
        rs->moveNext();
        // Past the end: back to the book before, if one is left.
        if (rs->eof() && rs->recordCount() > 0)
            rs->movePrevious();
        MsgBox(u"Book Successfully removed"_s, Vb::OKOnly, u"Delete Book"_s);
        m_controller->RefreshPosition();
        adoBookLkup->Refresh();
        if (m_controller->recordCount() != 0 && !rs->bof() && !rs->eof())
            showLookupText(rs->value(u"BookDescription"_s).toString());
    });
}
