// A book's authors and topics: the two grids, their buttons and the Delete key.

#include "forms/books/frmbookmaintenance.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "forms/books/linksides.h"
#include "forms/books/recordgrid.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookmaintenance.h"

using namespace Qt::StringLiterals;

void FrmBookMaintenance::setUpGrids()
{
    for (const LinkSideTexts &side : LinkSides()) {
        auto *rows = new RecordsetModel(linkControl(side.side), this);
        grid(side.side)->setRows(rows, side.gridColumns);
        grid(side.side)->installEventFilter(this);
    }
}

RecordGrid *FrmBookMaintenance::grid(LinkSide side) const
{
    return side == LinkSide::Author ? ui->dbgBookAuthor : ui->dbgBookTopic;
}

DataControl *FrmBookMaintenance::linkControl(LinkSide side) const
{
    return side == LinkSide::Author ? adoAuthor : adoTopic;
}

void FrmBookMaintenance::loadLinks(const QString &bookId)
{
    // Topics first, then authors.
    for (LinkSide side : {LinkSide::Topic, LinkSide::Author}) {
        DataControl *control = linkControl(side);
        control->setRecordSource(LinkSideOf(side).listSource + bookId);
        control->setCommandType(CommandType::Text);
        control->Refresh();
    }
}

void FrmBookMaintenance::RefreshLinks(LinkSide side)
{
    linkControl(side)->Refresh();
}

void FrmBookMaintenance::on_cmdAddAuthor_clicked()
{
    m_frame.forms().show(LinkSideOf(LinkSide::Author).dialog);
}

void FrmBookMaintenance::on_cmdAddTopic_clicked()
{
    m_frame.forms().show(LinkSideOf(LinkSide::Topic).dialog);
}

void FrmBookMaintenance::on_cmdDeleteAuthor_clicked()
{
    RunHandler([this] { removeSelectedLink(LinkSide::Author); });
}

void FrmBookMaintenance::on_cmdDeleteTopic_clicked()
{
    RunHandler([this] { removeSelectedLink(LinkSide::Topic); });
}

namespace {

bool confirmed(const LinkSideTexts &texts)
{
    return MsgBox(texts.question, Vb::YesNo, u"Confirm Delete"_s) == Vb::Yes;
}

} // namespace

void FrmBookMaintenance::removeSelectedLink(LinkSide side)
{
    const LinkSideTexts &texts = LinkSideOf(side);
    const int selected = grid(side)->selectedCount();
    if (selected >= 2) {
        MsgBox(texts.oneAtATimeMessage, Vb::OKOnly, texts.deleteTitle);
        return;
    }
    if (selected == 0) {
        MsgBox(texts.noneSelectedMessage, Vb::OKOnly, texts.deleteTitle);
        return;
    }
    if (confirmed(texts))
        removeCurrentLinkRow(side);
}

// The Delete key asks without looking at the selection, and then hides the side's delete
// button until the form next leaves add mode.
void FrmBookMaintenance::removeCurrentLink(LinkSide side)
{
    if (!confirmed(LinkSideOf(side)))
        return;
    removeCurrentLinkRow(side);
    (side == LinkSide::Author ? ui->cmdDeleteAuthor : ui->cmdDeleteTopic)->hide();
}

void FrmBookMaintenance::removeCurrentLinkRow(LinkSide side)
{
    const LinkSideTexts &texts = LinkSideOf(side);
    Connection connection;
    connection.open(connectionString());
    connection.execute(texts.deletePrefix + AsWholeNumber(ui->txtBookID->text())
                       + texts.deleteKeyCondition + grid(side)->valueInCurrentRecord(0));
    connection.close();
    RefreshLinks(side);
    (side == LinkSide::Author ? ui->cmdAddAuthor : ui->cmdAddTopic)->setFocus();
}
