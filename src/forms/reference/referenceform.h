#pragma once

#include "data/recordset.h"
#include "forms/reference/referencefields.h"
#include "forms/reference/referencelist.h"
#include "recordform/promptpreference.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class DataControl;
class FormRegistry;
class MandatoryLeaveCheck;
class QAction;
class QDataWidgetMapper;
class RecordStatusBar;
class RecordsetModel;
struct ProviderError;
struct Session;
namespace Ui {
class frmReference;
}

// The maintenance form of a reference list (frmAuthor, frmTopic, frmPublisher): browse the
// list's records, edit them in place, add and delete them. The list's description says
// everything in which the three differ; the form itself is the same for all.
class ReferenceForm : public QWidget
{
    Q_OBJECT

public:
    // The menu entry that opens the form is disabled while the form is open.
    ReferenceForm(const ReferenceList &list, FormRegistry &forms, const Session &session,
                  QAction *menuEntry, QWidget *parent = nullptr);
    ~ReferenceForm() override;

    // The add and delete prompts answer here: 6 goes ahead, 7 does not.
    Q_INVOKABLE void ReceivePromptAnswer(int answer);

protected:
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private Q_SLOTS:
    void on_cmdFirst_clicked();
    void on_cmdPrevious_clicked();
    void on_cmdNext_clicked();
    void on_cmdLast_clicked();
    void on_cmdAdd_clicked();
    void on_cmdConfirmAdd_clicked();
    void on_cmdCancelAdd_clicked();
    void on_cmdDelete_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void buildFields();
    void buildStatusBar();
    void arrangeTabOrder();
    void bindDataControls();
    void bindFields();
    void followActivation();
    void watchMandatoryFields();

    Recordset &records() const;
    QWidget *fieldWidget(const QString &objectName) const;
    void showRow(int row);

    void RefreshPosition();
    void SetAddMode(bool adding);
    void showLookupText();
    void refillLookup();
    void moveWith(void (Recordset::*move)());
    void jumpToPicked();

    bool goAhead(PromptKind prompt);
    void startNewRecord();
    bool checkField(QWidget *field);
    bool mandatoryFieldsFilled();
    bool applyPendingEdit();
    void removeCurrent();
    void refuseDelete(const ProviderError &error);
    void refreshBookPublishers();

    std::unique_ptr<Ui::frmReference> ui;
    const ReferenceList &m_list;
    FormRegistry &m_forms;
    const Session &m_session;
    QPointer<QAction> m_menuEntry;

    DataControl *m_adoEdited;
    DataControl *m_adoLookup;
    RecordsetModel *m_records;
    RecordsetModel *m_lookupRows;
    QDataWidgetMapper *m_mapper;
    QList<FieldWidget> m_fields;
    MandatoryLeaveCheck *m_leaveCheck;
    RecordStatusBar *m_stbContents = nullptr;

    qint16 m_recordCount = 0;
    qint16 m_position = 0;
    qint16 m_newId = 0;
    Recordset::Bookmark m_savedBookmark = 0;
    // Not reset before a prompt: a prompt closed by its window frame answers nothing, and the
    // answer given before stands.
    int m_promptAnswer = 0;
};
