#include "forms/books/linkpicker.h"

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/datacontrol.h"
#include "data/recordsetmodel.h"
#include "data/runtimeerror.h"
#include "forms/books/bookforms.h"
#include "forms/books/linksides.h"
#include "recordform/keyfilters.h"
#include "recordform/msgbox.h"
#include "ui_linkpicker.h"

using namespace Qt::StringLiterals;

namespace {

const QString DuplicateKeyState = u"3022"_s;

// The author lookup lists a column computed from surname and first name; it is the one after
// the key.
QString listFieldOf(const LinkSideTexts &texts, const RecordsetModel &rows)
{
    if (!texts.lookupListField.isEmpty())
        return texts.lookupListField;
    const int computed = rows.column(texts.lookupBoundColumn) + 1;
    return rows.headerData(computed, Qt::Horizontal).toString();
}

} // namespace

LinkPicker::LinkPicker(LinkSide side, MainFrame &frame, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::LinkPicker>())
    , m_texts(LinkSideOf(side))
    , m_frame(frame)
    , m_lookup(new DataControl(this))
{
    ui->setupUi(this);
    setObjectName(m_texts.dialog);
    setWindowTitle(m_texts.dialogCaption);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->dboLookup->setObjectName(m_texts.lookupCombo);
    ui->dboLookup->setToolTip(m_texts.lookupToolTip);

    m_lookup->setObjectName(m_texts.lookupControl);
    m_lookup->setRecordSource(m_texts.lookupSource);
    auto *rows = new RecordsetModel(m_lookup, this);
    m_lookup->setConnectionString(frame.session().connectionString());
    m_lookup->Refresh();
    ui->dboLookup->setRowSource(rows, listFieldOf(m_texts, *rows), m_texts.lookupBoundColumn);
    ui->dboLookup->setCurrentIndex(-1);
    InstallKeyFilter(ui->dboLookup, KeyFilter::PickOnly);
}

LinkPicker::~LinkPicker() = default;

void LinkPicker::on_OKButton_clicked()
{
    const QString picked = ui->dboLookup->boundText().toString();
    if (picked.isEmpty()) {
        refuse(m_texts.nothingPickedMessage);
        return;
    }
    // The book is the one on show now, whichever it was when the picker opened.
    auto *form = qobject_cast<FrmBookMaintenance *>(m_frame.forms().find(BookFormName));
    if (!form || !insertLink(*form, picked))
        return;
    form->RefreshLinks(m_texts.side);
    m_frame.forms().unload(this);
}

// Answers whether the link was made. A link the book already has is refused by the
// catalogue's unique key and told; any other failure ends the step without a word.
bool LinkPicker::insertLink(FrmBookMaintenance &form, const QString &pickedKey)
{
    Connection connection;
    try {
        connection.open(m_frame.session().connectionString());
        connection.execute(m_texts.insertPrefix + AsWholeNumber(form.shownBookNumber()) + u","_s
                           + AsWholeNumber(pickedKey) + u")"_s);
    } catch (const ProviderError &) {
        const QList<ProviderError> &errors = connection.errors();
        if (!errors.isEmpty() && errors.first().sqlState == DuplicateKeyState)
            refuse(m_texts.duplicateMessage);
        return false;
    } catch (const RuntimeError &) {
        return false;
    }
    connection.close();
    return true;
}

void LinkPicker::refuse(const QString &message)
{
    MsgBox(message, Vb::OKOnly, m_texts.dialogCaption);
    ui->dboLookup->setFocus();
}

void LinkPicker::on_CancelButton_clicked()
{
    m_frame.forms().unload(this);
}
