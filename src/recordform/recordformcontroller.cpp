#include "recordform/recordformcontroller.h"

#include "data/datacontrol.h"
#include "data/runtimeerror.h"
#include "recordform/confirmexit.h"
#include "recordform/mandatoryfield.h"
#include "recordform/msgbox.h"
#include "recordform/promptdialog.h"
#include "recordform/recordstatusbar.h"
#include "recordform/runtimeerrorreport.h"

#include <QAbstractButton>
#include <QAction>
#include <QCloseEvent>
#include <QDataWidgetMapper>
#include <QMdiSubWindow>

using namespace Qt::StringLiterals;

RecordFormController::RecordFormController(RecordFormParts parts)
    : QObject(parts.form)
    , m(std::move(parts))
    , m_menuEntry(m.menuEntry)
{
    new ExitQuestion(m.form, m.mapper, [this] { return m.records->recordset(); },
                     m.applyPendingEdit);
    m.form->installEventFilter(this);
    connectButtons();
    if (m_menuEntry)
        m_menuEntry->setEnabled(false);
}

void RecordFormController::connectButtons()
{
    const std::pair<QAbstractButton *, void (Recordset::*)()> moves[] = {
        {m.moves.first, &Recordset::moveFirst},
        {m.moves.previous, &Recordset::movePrevious},
        {m.moves.next, &Recordset::moveNext},
        {m.moves.last, &Recordset::moveLast}};
    for (const auto &[button, move] : moves)
        connect(button, &QAbstractButton::clicked, this, [this, move = move] { moveWith(move); });
    connect(m.add, &QAbstractButton::clicked, this, [this] { RunHandler([this] { add(); }); });
    connect(m.confirmAdd, &QAbstractButton::clicked, this,
            [this] { RunHandler([this] { confirmAdd(); }); });
    connect(m.cancelAdd, &QAbstractButton::clicked, this,
            [this] { RunHandler([this] { cancelAdd(); }); });
}

Recordset &RecordFormController::records() const
{
    return m.records->openRecordset();
}

void RecordFormController::RefreshPosition()
{
    const Recordset &rs = records();
    m_recordCount = toInt16(rs.recordCount());
    m_position = toInt16(RecordPosition(rs.absolutePosition()));
    EnableNavigation(m.moves, m_position, m_recordCount);
    if (m_recordCount < 1) {
        m.remove->setEnabled(false);
        SetAddMode(true);
    }
    m.statusBar->setPanelText(2, m.entity + u' ' + QString::number(m_position) + u" of "_s
                                     + QString::number(m_recordCount));
    if (m_recordCount != 0)
        m.showLookupText();
    else
        RunHandler([this] { add(); }); // as a press of Add, which is disabled by now
}

void RecordFormController::SetAddMode(bool adding)
{
    for (QWidget *widget : std::as_const(m.hiddenWhileAdding))
        widget->setVisible(!adding);
    m.confirmAdd->setVisible(adding);
    m.cancelAdd->setVisible(adding);
    for (QWidget *control : std::as_const(m.offWhileAdding))
        control->setEnabled(!adding);
    for (QWidget *field : std::as_const(m.mandatoryFields))
        SetMandatoryColour(field, adding);
}

void RecordFormController::submitEdits()
{
    m.mapper->submit();
}

void RecordFormController::moveWith(void (Recordset::*move)())
{
    RunHandler([&] {
        submitEdits();
        (records().*move)();
        RefreshPosition();
    });
}

bool RecordFormController::goAhead(PromptKind prompt)
{
    return PromptDialog::GoAhead(prompt, m.form->objectName(), m_promptAnswer);
}

void RecordFormController::add()
{
    if (!goAhead(PromptKind::AddNew))
        return;
    submitEdits();
    Recordset &rs = records();
    if (m_recordCount > 0)
        m_savedBookmark = rs.bookmark();
    rs.addNew();
    SetAddMode(true);
    m.startNewRecord();
}

// The new record is written, read back in its place in the order and shown.
void RecordFormController::confirmAdd()
{
    if (!m.validate())
        return;
    submitEdits();
    Recordset &rs = records();
    rs.move(0);
    const qint16 newId = toInt16(rs.value(m.keyField).toLongLong());
    rs.requery();
    m.records->Refresh();
    records().find(m.keyField + u" = "_s + QString::number(newId), 0, true);
    SetAddMode(false);
    RefreshPosition();
    MsgBox(m.addedText, Vb::OKOnly, m.addedTitle);
    m.refillLookup();
}

void RecordFormController::cancelAdd()
{
    Recordset &rs = records();
    rs.cancelUpdate();
    if (m_recordCount > 0)
        rs.setBookmark(m_savedBookmark);
    SetAddMode(false);
    RefreshPosition();
}

void RecordFormController::close(QCloseEvent *event)
{
    // Refused until the pending edit is settled, also when applying it fails.
    event->ignore();
    RunHandler([&] {
        if (!ExitQuestion::of(m.form)->settle())
            return;
        event->accept();
        // Given back at the close, not at the deletion that follows later: a search reloads
        // the book form at once, and the new form has taken the entry by then.
        if (m_menuEntry)
            m_menuEntry->setEnabled(true);
        if (m.afterClose)
            m.afterClose();
    });
}

// The form runs RefreshPosition each time it becomes the active form: of the frame, or of the
// desktop when it stands alone.
bool RecordFormController::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m.form) {
        if (event->type() == QEvent::Show)
            followActivation();
        else if (event->type() == QEvent::WindowActivate && m.form->isWindow())
            RunHandler([this] { RefreshPosition(); });
    }
    return QObject::eventFilter(watched, event);
}

void RecordFormController::followActivation()
{
    auto *subWindow = qobject_cast<QMdiSubWindow *>(m.form->parentWidget());
    if (!subWindow || subWindow == m_subWindow)
        return;
    m_subWindow = subWindow;
    connect(subWindow, &QMdiSubWindow::windowStateChanged, this,
            [this](Qt::WindowStates, Qt::WindowStates now) { followWindowState(now); });
    followWindowState(subWindow->windowState());
}

void RecordFormController::followWindowState(Qt::WindowStates state)
{
    const bool active = state & Qt::WindowActive;
    if (active && !m_active) {
        m_active = true;
        RunHandler([this] { RefreshPosition(); });
    }
    m_active = active;
}
