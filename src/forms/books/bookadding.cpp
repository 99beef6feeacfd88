// The book form's part in the shared record-form behaviour, and the checks that guard adding
// and editing alike.

#include "forms/books/frmbookmaintenance.h"

#include "app/mainframe.h"
#include "data/datacontrol.h"
#include "recordform/msgbox.h"
#include "recordform/recordformcontroller.h"
#include "ui_frmbookmaintenance.h"


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

void FrmBookMaintenance::makeController()
{
    RecordFormParts parts;
    parts.form = this;
    parts.entity = u"Book"_s;
    parts.statusBar = m_stbContents;
    parts.records = adoBook;
    parts.mapper = m_mapper;
    parts.keyField = u"BookID"_s;
    parts.moves = {ui->cmdFirst, ui->cmdPrevious, ui->cmdNext, ui->cmdLast};
    parts.add = ui->cmdAdd;
    parts.confirmAdd = ui->cmdConfirmAdd;
    parts.cancelAdd = ui->cmdCancelAdd;
    parts.remove = ui->cmdDelete;
    // Next and Last stay on while a book is added.
    parts.offWhileAdding = {ui->cmdFirst, ui->cmdPrevious, ui->cmdDelete, ui->cmdAdd};
    parts.hiddenWhileAdding = {ui->dbgBookAuthor, ui->lblAuthorGridCaption, ui->dbgBookTopic,
                               ui->lblTopicGridCaption, ui->cmdAddTopic, ui->cmdAddAuthor,
                               ui->cmdDeleteAuthor, ui->cmdDeleteTopic};
    for (const MandatoryField &field : mandatoryFields())
        parts.mandatoryFields.append(findChild<QWidget *>(field.name));
    parts.menuEntry = m_frame.action(u"mnuBooks"_s);
    parts.addedText = u"New Book Sucessfully added, now allocate topic(s) and author(s)"_s;
    parts.addedTitle = u"Add New Book"_s;
    parts.showLookupText = [this] {
        showLookupText(books()->value(u"BookDescription"_s).toString());
    };
    parts.refillLookup = [this] {
        adoBookLkup->Refresh();
        showLookupText(books()->value(u"BookDescription"_s).toString());
    };
    parts.startNewRecord = [this] {
        ui->txtDescription->setFocus();
        for (QCheckBox *box : {ui->chkIllustrated, ui->chkFirstEdition, ui->chkBibliography})
            box->setChecked(false);
    };
    parts.validate = [this] {
        ValidateBook();
        return !InvalidEntry;
    };
    parts.applyPendingEdit = [this] { return applyUpdatesOnExit(); };
    m_controller = new RecordFormController(std::move(parts));
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
