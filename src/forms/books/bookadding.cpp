// Adding a book, and the checks that guard adding and editing alike.

#include "forms/books/frmbookmaintenance.h"

#include "data/datacontrol.h"
#include "data/runtimeerror.h"
#include "recordform/mandatoryfield.h"
#include "recordform/msgbox.h"
#include "recordform/promptdialog.h"
#include "recordform/promptpreference.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookmaintenance.h"

#include <QDataWidgetMapper>

using namespace Qt::StringLiterals;

namespace {

// Shared by every check, also while an existing book is edited.
const QString CheckTitle = u"Adding new book"_s;

struct MandatoryField
{
    QString name;
    QString message;
};

// In checking order.
const QList<MandatoryField> &mandatoryFields()
{
    static const QList<MandatoryField> fields{
        {u"txtDescription"_s, u"Please enter a book title"_s},
        {u"txtPrice"_s, u"Please enter a book price"_s},
        {u"txtPages"_s, u"Please enter number of pages"_s},
        {u"cboCover"_s, u"Please enter cover details"_s},
        {u"cboCondition"_s, u"Please enter condition"_s},
        {u"cboPublisher"_s, u"Please enter publisher details"_s},
    };
    return fields;
}

QString textOf(const QWidget *field)
{
    if (const auto *box = qobject_cast<const QLineEdit *>(field))
        return box->text();
    if (const auto *list = qobject_cast<const QComboBox *>(field))
        return list->currentText();
    return {};
}

} // namespace

bool FrmBookMaintenance::PromptWanted(const QString &action) const
{
    if (action == u"Add")
        return ::PromptWanted(objectName(), PromptKind::AddNew);
    if (action == u"Delete")
        return ::PromptWanted(objectName(), PromptKind::Delete);
    return false;
}

// The answer is not reset first: a prompt closed by its frame leaves the last one standing.
void FrmBookMaintenance::askPrompt(const QString &action)
{
    if (PromptWanted(action))
        PromptDialog::Ask(action == u"Add" ? PromptKind::AddNew : PromptKind::Delete, objectName());
    else
        PromptAnswer = PromptDialog::AnswerGoAhead;
}

void FrmBookMaintenance::on_cmdAdd_clicked()
{
    RunHandler([this] {
        askPrompt(u"Add"_s);
        if (PromptAnswer != PromptDialog::AnswerGoAhead)
            return;
        submitEdits();
        Recordset *rs = books();
        if (BookCount > 0)
            SavedBookmark = rs->bookmark();
        rs->addNew();
        SetAddMode(true);
        ui->txtDescription->setFocus();
        for (QCheckBox *box : {ui->chkIllustrated, ui->chkFirstEdition, ui->chkBibliography})
            box->setChecked(false);
    });
}

void FrmBookMaintenance::on_cmdConfirmAdd_clicked()
{
    RunHandler([this] {
        ValidateBook();
        if (InvalidEntry)
            return;
        submitEdits();
        Recordset *rs = books();
        rs->move(0);
        NewBookID = toInt16(rs->value(u"BookID"_s).toLongLong());
        rs->requery();
        adoBook->Refresh();
        books()->find(u"BookID = "_s + QString::number(NewBookID), 0, true);
        SetAddMode(false);
        RefreshPosition();
        MsgBox(u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s, Vb::OKOnly,
               u"Add New Book"_s);
        adoBookLkup->Refresh();
        showLookupText(books()->value(u"BookDescription"_s).toString());
    });
}

void FrmBookMaintenance::on_cmdCancelAdd_clicked()
{
    RunHandler([this] {
        Recordset *rs = books();
        rs->cancelUpdate();
        if (BookCount > 0)
            rs->setBookmark(SavedBookmark);
        SetAddMode(false);
        RefreshPosition();
    });
}

void FrmBookMaintenance::SetAddMode(bool adding)
{
    const QList<QWidget *> shownWhileBrowsing{
        ui->dbgBookAuthor, ui->lblAuthorGridCaption, ui->dbgBookTopic, ui->lblTopicGridCaption,
        ui->cmdAddTopic,   ui->cmdAddAuthor,         ui->cmdDeleteAuthor, ui->cmdDeleteTopic};
    for (QWidget *widget : shownWhileBrowsing)
        widget->setVisible(!adding);
    ui->cmdConfirmAdd->setVisible(adding);
    ui->cmdCancelAdd->setVisible(adding);
    for (QWidget *button : {ui->cmdFirst, ui->cmdPrevious, ui->cmdDelete, ui->cmdAdd})
        button->setEnabled(!adding);
    for (const MandatoryField &field : mandatoryFields())
        SetMandatoryColour(findChild<QWidget *>(field.name), adding);
}

void FrmBookMaintenance::ValidateBook()
{
    InvalidEntry = false;
    for (const MandatoryField &field : mandatoryFields()) {
        if (!checkField(findChild<QWidget *>(field.name)))
            return;
    }
}

// One field's check, run by ValidateBook and when the user leaves the field. It never clears
// InvalidEntry; only ValidateBook does.
bool FrmBookMaintenance::checkField(QWidget *field)
{
    if (field == ui->txtWhenPublished) {
        if (ui->txtWhenPublished->text().isEmpty())
            ui->txtWhenPublished->setText(u"0"_s);
        return true;
    }
    for (const MandatoryField &mandatory : mandatoryFields()) {
        if (mandatory.name != field->objectName() || !textOf(field).isEmpty())
            continue;
        MsgBox(mandatory.message, Vb::OKOnly, CheckTitle);
        field->setFocus();
        InvalidEntry = true;
        return false;
    }
    return true;
}
