#include "forms/reference/referenceform.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "catalogue/session.h"
#include "data/datacontrol.h"
#include "data/providererror.h"
#include "data/recordsetmodel.h"
#include "data/runtimeerror.h"
#include "forms/books/bookforms.h"
#include "forms/reference/pickonlycombo.h"
#include "recordform/bounddelegate.h"
#include "recordform/confirmexit.h"
#include "recordform/mandatoryfield.h"
#include "recordform/mandatoryleavecheck.h"
#include "recordform/msgbox.h"
#include "recordform/promptdialog.h"
#include "recordform/recordnavigation.h"
#include "recordform/recordstatusbar.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmreference.h"

#include <QAction>
#include <QCloseEvent>
#include <QDataWidgetMapper>
#include <QMdiSubWindow>

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
    , m_menuEntry(menuEntry)
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
    new ExitQuestion(this, m_mapper, [this] { return m_adoEdited->recordset(); },
                     [this] { return applyPendingEdit(); });
    SetAddMode(false);
    connect(ui->cboLookup, &QComboBox::activated, this, &ReferenceForm::jumpToPicked);
    if (m_menuEntry)
        m_menuEntry->setEnabled(false);
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

Recordset &ReferenceForm::records() const
{
    Recordset *recordset = m_adoEdited->recordset();
    if (!recordset)
        throw ProviderError::general(ProviderErrorNumber::InvalidOperation,
                                     u"Operation is not allowed when the object is closed."_s);
    return *recordset;
}

QWidget *ReferenceForm::fieldWidget(const QString &objectName) const
{
    for (const FieldWidget &field : m_fields) {
        if (field.definition->objectName == objectName)
            return field.widget;
    }
    return nullptr;
}

// The form's state follows its record set each time it becomes the active form.
bool ReferenceForm::event(QEvent *event)
{
    if (event->type() == QEvent::ParentChange)
        followActivation();
    else if (event->type() == QEvent::WindowActivate && isWindow())
        RunHandler([this] { RefreshPosition(); });
    return QWidget::event(event);
}

void ReferenceForm::followActivation()
{
    auto *subWindow = qobject_cast<QMdiSubWindow *>(parentWidget());
    if (!subWindow)
        return;
    connect(subWindow, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates before, Qt::WindowStates now) {
                if ((now & Qt::WindowActive) && !(before & Qt::WindowActive))
                    RunHandler([this] { RefreshPosition(); });
            });
}

// Enables the moves for the current record and shows where it stands. An empty list
// drops the user straight into adding a record.
void ReferenceForm::RefreshPosition()
{
    const Recordset &rs = records();
    m_recordCount = toInt16(rs.recordCount());
    m_position = toInt16(RecordPosition(rs.absolutePosition()));
    EnableNavigation({ui->cmdFirst, ui->cmdPrevious, ui->cmdNext, ui->cmdLast}, m_position,
                     m_recordCount);
    if (m_recordCount < 1) {
        ui->cmdDelete->setEnabled(false);
        SetAddMode(true);
    }
    m_stbContents->setPanelText(2, m_list.entity + u' ' + QString::number(m_position)
                                       + u" of "_s + QString::number(m_recordCount));
    if (m_recordCount != 0)
        showLookupText();
    else
        on_cmdAdd_clicked(); // as a press of Add, which is disabled by now
}

void ReferenceForm::SetAddMode(bool adding)
{
    ui->cmdConfirmAdd->setVisible(adding);
    ui->cmdCancelAdd->setVisible(adding);
    for (QWidget *button : {ui->cmdFirst, ui->cmdPrevious, ui->cmdLast, ui->cmdNext,
                            ui->cmdDelete, ui->cmdAdd})
        button->setEnabled(!adding);
    for (const FieldWidget &field : std::as_const(m_fields)) {
        if (field.definition->isMandatory())
            SetMandatoryColour(field.widget, adding);
    }
}

void ReferenceForm::showLookupText()
{
    const Recordset &rs = records();
    const QString shown = rs.currentRow() >= 0 ? rs.value(m_list.listField).toString() : QString();
    ui->cboLookup->setCurrentIndex(ui->cboLookup->findText(shown, Qt::MatchFixedString));
}

void ReferenceForm::refillLookup()
{
    m_adoLookup->Refresh();
    showLookupText();
}

// What the user typed reaches the record set before it moves, which writes it.
void ReferenceForm::moveWith(void (Recordset::*move)())
{
    RunHandler([&] {
        m_mapper->submit();
        (records().*move)();
        RefreshPosition();
    });
}

void ReferenceForm::on_cmdFirst_clicked()
{
    moveWith(&Recordset::moveFirst);
}

void ReferenceForm::on_cmdPrevious_clicked()
{
    moveWith(&Recordset::movePrevious);
}

void ReferenceForm::on_cmdNext_clicked()
{
    moveWith(&Recordset::moveNext);
}

void ReferenceForm::on_cmdLast_clicked()
{
    moveWith(&Recordset::moveLast);
}

void ReferenceForm::jumpToPicked()
{
    RunHandler([this] {
        const QString picked = ui->cboLookup->boundText().toString();
        m_mapper->submit();
        Recordset &rs = records();
        rs.moveFirst();
        rs.find(m_list.keyField + u" = "_s + picked, 0, true);
        RefreshPosition();
    });
}

void ReferenceForm::ReceivePromptAnswer(int answer)
{
    m_promptAnswer = answer;
}

bool ReferenceForm::goAhead(PromptKind prompt)
{
    if (PromptWanted(m_list.formName, prompt))
        PromptDialog::Ask(prompt, m_list.formName);
    else
        m_promptAnswer = PromptDialog::AnswerGoAhead;
    return m_promptAnswer == PromptDialog::AnswerGoAhead;
}

void ReferenceForm::on_cmdAdd_clicked()
{
    RunHandler([this] {
        if (goAhead(PromptKind::AddNew))
            startNewRecord();
    });
}

void ReferenceForm::startNewRecord()
{
    m_mapper->submit();
    Recordset &rs = records();
    if (m_recordCount > 0)
        m_savedBookmark = rs.bookmark();
    rs.addNew();
    SetAddMode(true);
    fieldWidget(m_list.focusAfterAdd)->setFocus();
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

void ReferenceForm::on_cmdConfirmAdd_clicked()
{
    RunHandler([this] {
        if (!mandatoryFieldsFilled())
            return;
        m_mapper->submit();
        Recordset &rs = records();
        rs.move(0);
        m_newId = toInt16(rs.value(m_list.keyField).toLongLong());
        rs.requery();
        m_adoEdited->Refresh();
        records().find(m_list.keyField + u" = "_s + QString::number(m_newId), 0, true);
        SetAddMode(false);
        RefreshPosition();
        MsgBox(m_list.added.text, Vb::OKOnly, m_list.added.title);
        refillLookup();
    });
}

void ReferenceForm::on_cmdCancelAdd_clicked()
{
    RunHandler([this] {
        Recordset &rs = records();
        rs.cancelUpdate();
        if (m_recordCount > 0)
            rs.setBookmark(m_savedBookmark);
        SetAddMode(false);
        RefreshPosition();
    });
}

void ReferenceForm::on_cmdDelete_clicked()
{
    RunHandler([this] {
        if (!goAhead(PromptKind::Delete))
            return;
        try {
            removeCurrent();
        } catch (const ProviderError &error) {
            refuseDelete(error);
            return;
        }
        RefreshPosition();
        MsgBox(m_list.removed.text, Vb::OKOnly, m_list.removed.title);
        refillLookup();
    });
}

// The record after the deleted one becomes current, or the one before it at the end.
void ReferenceForm::removeCurrent()
{
    Recordset &rs = records();
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
    // Refused until the pending edit is settled, also when applying it fails.
    event->ignore();
    RunHandler([&] {
        if (!ExitQuestion::of(this)->settle())
            return;
        event->accept();
        if (m_menuEntry)
            m_menuEntry->setEnabled(true);
        if (m_list.refreshesBookPublishers)
            refreshBookPublishers();
    });
}

bool ReferenceForm::applyPendingEdit()
{
    if (!mandatoryFieldsFilled())
        return false;
    records().update();
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
