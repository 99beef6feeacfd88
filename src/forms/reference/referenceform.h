#pragma once

#include "data/recordset.h"
#include "forms/reference/referencefields.h"
#include "forms/reference/referencelist.h"
#include "recordform/recordformcontroller.h"

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
    void closeEvent(QCloseEvent *event) override;

private Q_SLOTS:
    void on_cmdDelete_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void buildFields();
    void buildStatusBar();
    void arrangeTabOrder();
    void bindDataControls();
    void bindFields();
    void watchMandatoryFields();
    void makeController(QAction *menuEntry);

    QWidget *fieldWidget(const QString &objectName) const;
    void showRow(int row);

    void showLookupText();
    void refillLookup();
    void jumpToPicked();

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

    DataControl *m_adoEdited;
    DataControl *m_adoLookup;
    RecordsetModel *m_records;
    RecordsetModel *m_lookupRows;
    QDataWidgetMapper *m_mapper;
    QList<FieldWidget> m_fields;
    MandatoryLeaveCheck *m_leaveCheck;
    RecordStatusBar *m_stbContents = nullptr;
    RecordFormController *m_controller = nullptr;
};
