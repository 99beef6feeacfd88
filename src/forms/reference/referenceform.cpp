#include "forms/reference/referenceform.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "catalogue/session.h"
#include "data/datacontrol.h"
#include "data/providererror.h"
#include "data/recordsetmodel.h"
#include "forms/books/bookforms.h"
#include "forms/reference/pickonlycombo.h"
#include "recordform/bounddelegate.h"
#include "recordform/mandatoryleavecheck.h"
#include "recordform/msgbox.h"
#include "recordform/recordstatusbar.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmreference.h"

#include <QDataWidgetMapper>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

// The author form's delete has always ended the program at once when the catalogue refused,
// without a word. Nothing is pending then: the refused statement left the file as it was.
[[noreturn]] void Halt()
{
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

ReferenceForm::ReferenceForm(const ReferenceList &list, FormRegistry &forms,
                             const Session &session, QAction *menuEntry, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmReference>())
    , m_list(list)
    , m_forms(forms)
    , m_session(session)
    , m_adoEdited(new DataControl(this))
    , m_adoLookup(new DataControl(this))
    , m_records(new RecordsetModel(m_adoEdited, this))
    , m_lookupRows(new RecordsetModel(m_adoLookup, this))
    , m_mapper(new QDataWidgetMapper(this))
    , m_leaveCheck(new MandatoryLeaveCheck(
          this, [this](QWidget *field) { return checkField(field); }))
{
    ui->setupUi(this);
    setObjectName(m_list.formName);
    setWindowTitle(m_list.caption);
    ui->lblLookup->setText(m_list.lookupLabel);
    ui->cboLookup->setObjectName(m_list.lookupCombo);
    ui->cboLookup->setToolTip(m_list.lookupToolTip);
    MakePickOnly(ui->cboLookup);
    buildFields();
    buildStatusBar();
    arrangeTabOrder();
    bindDataControls();
    bindFields();
    watchMandatoryFields();
    makeController(menuEntry);
    m_controller->SetAddMode(false);
    connect(ui->cboLookup, &QComboBox::activated, this, &ReferenceForm::jumpToPicked);
}

void ReferenceForm::makeController(QAction *menuEntry)
{
    RecordFormParts parts;
    parts.form = this;
    parts.entity = m_list.entity;
    parts.statusBar = m_stbContents;
    parts.records = m_adoEdited;
    parts.mapper = m_mapper;
    parts.keyField = m_list.keyField;
    parts.moves = {ui->cmdFirst, ui->cmdPrevious, ui->cmdNext, ui->cmdLast};
    parts.add = ui->cmdAdd;
    parts.confirmAdd = ui->cmdConfirmAdd;
    parts.cancelAdd = ui->cmdCancelAdd;
    parts.remove = ui->cmdDelete;
    parts.offWhileAdding = {ui->cmdFirst, ui->cmdPrevious, ui->cmdLast, ui->cmdNext,
                            ui->cmdDelete, ui->cmdAdd};
    for (const FieldWidget &field : std::as_const(m_fields)) {
        if (field.definition->isMandatory())
            parts.mandatoryFields.append(field.widget);
    }
    parts.menuEntry = menuEntry;
    parts.addedText = m_list.added.text;
    parts.addedTitle = m_list.added.title;
    parts.showLookupText = [this] { showLookupText(); };
    parts.refillLookup = [this] { refillLookup(); };
    parts.startNewRecord = [this] { fieldWidget(m_list.focusAfterAdd)->setFocus(); };
    parts.validate = [this] { return mandatoryFieldsFilled(); };
    parts.applyPendingEdit = [this] { return applyPendingEdit(); };
    if (m_list.refreshesBookPublishers)
        parts.afterClose = [this] { refreshBookPublishers(); };
    m_controller = new RecordFormController(std::move(parts));
}

ReferenceForm::~ReferenceForm() = default;

// The labels take the room of the widest label of any list and the buttons that of the
// widest button, so that the forms look alike and keep their shape while adding.
void ReferenceForm::buildFields()
{
    m_fields = BuildFields(m_list.fields, ui->layFields);
    int widestLabel = 0;
    for (const ReferenceList &list : ReferenceLists()) {
        for (const ReferenceField &field : list.fields) {
            const QString shown = QString(field.label).remove(u'&');
            widestLabel = std::max(widestLabel, fontMetrics().horizontalAdvance(shown));
        }
    }
    ui->layFields->setColumnMinimumWidth(0, widestLabel);
    ui->lblLookup->setMinimumWidth(widestLabel + ui->layFields->horizontalSpacing()
                                   - ui->layLookup->spacing());
    ui->fraActions->setMinimumWidth(ui->fraActions->sizeHint().width());
}

// "Ready", the record's place in the list, and the state of the toggle keys.
void ReferenceForm::buildStatusBar()
{
    using Panel = RecordStatusBar::Panel;
    m_stbContents = new RecordStatusBar(
        {Panel::Text, Panel::Text, Panel::CapsLock, Panel::NumLock, Panel::Insert}, this);
    m_stbContents->setObjectName(u"stbContents"_s);
    m_stbContents->setPanelText(1, u"Ready"_s);
    ui->layForm->addWidget(m_stbContents);
}

void ReferenceForm::arrangeTabOrder()
{
    QList<QWidget *> order{ui->cboLookup};
    for (const FieldWidget &field : std::as_const(m_fields))
        order << field.widget;
    order << ui->cmdAdd << ui->cmdConfirmAdd << ui->cmdCancelAdd << ui->cmdDelete
          << ui->cmdFirst << ui->cmdPrevious << ui->cmdNext << ui->cmdLast << ui->cmdHelp
          << ui->cmdExit;
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order.at(i - 1), order.at(i));
}

// Both controls are opened on the open catalogue, the lookup first. A record set that
// cannot be fetched (3661) is not worth a message.
void ReferenceForm::bindDataControls()
{
    const std::pair<DataControl *, const ReferenceSource *> controls[] = {
        {m_adoLookup, &m_list.lookup}, {m_adoEdited, &m_list.edited}};
    for (const auto &[control, source] : controls) {
        control->setObjectName(source->name);
        control->setRecordSource(source->sql);
        control->setConnectionString(m_session.connectionString());
        connect(control, &DataControl::error, this,
                [](int number, const QString &, bool *cancelDisplay) {
                    if (number == ProviderErrorNumber::FetchFailed)
                        *cancelDisplay = true;
                });
        control->Refresh();
    }
    ui->cboLookup->setRowSource(m_lookupRows, m_list.listField, m_list.keyField);
}

void ReferenceForm::bindFields()
{
    m_mapper->setModel(m_records);
    m_mapper->setSubmitPolicy(QDataWidgetMapper::ManualSubmit);
    m_mapper->setItemDelegate(new BoundDelegate(m_mapper));
    for (const FieldWidget &field : std::as_const(m_fields)) {
        // The key is the catalogue's to assign: shown, never written back.
        if (field.definition->kind != FieldKind::Key)
            m_mapper->addMapping(field.widget, m_records->column(field.definition->column));
    }
    connect(m_records, &RecordsetModel::currentRowChanged, this, &ReferenceForm::showRow);
    showRow(m_records->currentRow());
}

void ReferenceForm::watchMandatoryFields()
{
    for (const FieldWidget &field : std::as_const(m_fields)) {
        if (field.definition->isMandatory())
            m_leaveCheck->watch(field.widget);
    }
    // Cancelling an add, leaving the form and asking for help never check a field first.
    for (QWidget *control : {ui->cmdCancelAdd, ui->cmdExit, ui->cmdHelp})
        m_leaveCheck->exempt(control);
}

void ReferenceForm::showRow(int row)
{
    if (row < 0) {
        for (const FieldWidget &field : std::as_const(m_fields))
            SetFieldText(field.widget, QString());
        return;
    }
    m_mapper->setCurrentIndex(row);
    for (const FieldWidget &field : std::as_const(m_fields)) {
        if (field.definition->kind == FieldKind::Key) {
            const QModelIndex key = m_records->index(row, m_records->column(field.definition->column));
            SetFieldText(field.widget, m_records->data(key).toString());
        }
    }
}

QWidget *ReferenceForm::fieldWidget(const QString &objectName) const
{
    for (const FieldWidget &field : m_fields) {
        if (field.definition->objectName == objectName)
            return field.widget;
    }
    return nullptr;
}

void ReferenceForm::showLookupText()
{
    const Recordset &rs = m_controller->records();
    const QString shown = rs.currentRow() >= 0 ? rs.value(m_list.listField).toString() : QString();
    ui->cboLookup->setCurrentIndex(ui->cboLookup->findText(shown, Qt::MatchFixedString));
}

void ReferenceForm::refillLookup()
{
    m_adoLookup->Refresh();
    showLookupText();
}

void ReferenceForm::jumpToPicked()
{
    RunHandler([this] {
        const QString picked = ui->cboLookup->boundText().toString();
        m_controller->submitEdits();
        Recordset &rs = m_controller->records();
        rs.moveFirst();
        rs.find(m_list.keyField + u" = "_s + picked, 0, true);
        m_controller->RefreshPosition();
    });
}

void ReferenceForm::ReceivePromptAnswer(int answer)
{
    m_controller->receivePromptAnswer(answer);
}

// A mandatory field left empty (blanks are text) is named in a message and takes the focus.
bool ReferenceForm::checkField(QWidget *field)
{
    for (const FieldWidget &candidate : std::as_const(m_fields)) {
        if (candidate.widget != field || !candidate.definition->isMandatory()
            || !FieldText(field).isEmpty())
            continue;
        MsgBox(candidate.definition->missingMessage, Vb::OKOnly, m_list.caption);
        field->setFocus();
        return false;
    }
    return true;
}

// The mandatory fields in the form's order; the first one empty stops the check.
bool ReferenceForm::mandatoryFieldsFilled()
{
    for (const FieldWidget &field : std::as_const(m_fields)) {
        if (!checkField(field.widget))
            return false;
    }
    return true;
}

void ReferenceForm::on_cmdDelete_clicked()
{
    RunHandler([this] {
        if (!m_controller->goAhead(PromptKind::Delete))
            return;
        try {
            removeCurrent();
        } catch (const ProviderError &error) {
            refuseDelete(error);
            return;
        }
        m_controller->RefreshPosition();
        MsgBox(m_list.removed.text, Vb::OKOnly, m_list.removed.title);
        refillLookup();
    });
}

// The record after the deleted one becomes current, or the one before it at the end.
void ReferenceForm::removeCurrent()
{
    Recordset &rs = m_controller->records();
    rs.deleteCurrent();
    rs.moveNext();
    if (rs.eof())
        rs.movePrevious();
}

void ReferenceForm::refuseDelete(const ProviderError &error)
{
    switch (m_list.refusal) {
    case DeleteRefusal::Halt:
        Halt();
    case DeleteRefusal::InUseMessage:
        if (error.sqlState.toInt() == ProviderErrorNumber::RelatedRecords) {
            MsgBox(m_list.inUse.text, Vb::OKOnly | Vb::Exclamation, m_list.inUse.title);
            return;
        }
        break;
    case DeleteRefusal::RunTimeError:
        break;
    }
    throw error;
}

void ReferenceForm::on_cmdExit_clicked()
{
    m_forms.unload(this);
}

// The help of this form, as F1 pressed on it would open.
void ReferenceForm::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}

void ReferenceForm::closeEvent(QCloseEvent *event)
{
    m_controller->close(event);
}

bool ReferenceForm::applyPendingEdit()
{
    if (!mandatoryFieldsFilled())
        return false;
    m_controller->records().update();
    return true;
}

// A book being edited must offer the publishers as they are now.
void ReferenceForm::refreshBookPublishers()
{
    for (QWidget *form : m_forms.loadedForms()) {
        if (form->objectName() == BookFormName)
            QMetaObject::invokeMethod(form, "RefreshPublisherList");
    }
}
