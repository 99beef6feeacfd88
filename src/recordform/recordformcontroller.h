#pragma once

#include "data/recordset.h"
#include "recordform/promptpreference.h"
#include "recordform/recordnavigation.h"

#include <QObject>
#include <QPointer>

#include <functional>

class DataControl;
class QAbstractButton;
class QAction;
class QCloseEvent;
class QDataWidgetMapper;
class QWidget;
class RecordStatusBar;

// What a record form is made of, as its controller needs to know it: its controls, and the
// few steps in which one form differs from another.
struct RecordFormParts
{
    QWidget *form = nullptr;
    // The status bar's second panel reads entity + " n of m".
    QString entity;
    RecordStatusBar *statusBar = nullptr;
    DataControl *records = nullptr; // the control every field is bound to
    QDataWidgetMapper *mapper = nullptr;
    // A new record is found again by this field once it is written.
    QString keyField;

    NavigationButtons moves{};
    QAbstractButton *add = nullptr;
    QAbstractButton *confirmAdd = nullptr;
    QAbstractButton *cancelAdd = nullptr;
    QAbstractButton *remove = nullptr;
    // Off while a record is being added (add and remove among them).
    QList<QWidget *> offWhileAdding;
    // Out of sight while a record is being added.
    QList<QWidget *> hiddenWhileAdding;
    // Yellow while a record is being added.
    QList<QWidget *> mandatoryFields;

    // The frame's entry that opened the form: off while the form is open.
    QAction *menuEntry = nullptr;
    // What Confirm Add says once the record is written: its text and title.
    QString addedText;
    QString addedTitle;

    // The form's own steps.
    std::function<void()> showLookupText; // the lookup shows the current record
    std::function<void()> refillLookup;   // the lookup reads its rows again and shows it
    std::function<void()> startNewRecord; // after AddNew: the focus, the defaults
    std::function<bool()> validate;       // every mandatory field filled, else says so
    std::function<bool()> applyPendingEdit; // "Yes" to Confirm Exit
    std::function<void()> afterClose;     // once the form may close
};

// The behaviour every record form shares (the book form, the author, topic and publisher
// forms): the position and the move buttons, adding with its prompt and Confirm or Cancel, the
// question before a form with an edit closes, and the refresh each time the form becomes the
// active one. The form keeps its own controls and steps and hands them over in its parts.
class RecordFormController : public QObject
{
    Q_OBJECT

public:
    explicit RecordFormController(RecordFormParts parts);

    Recordset &records() const;
    qint16 recordCount() const { return m_recordCount; }
    qint16 position() const { return m_position; }

    // Enables the moves for the current record and shows where it stands. An empty list
    // drops the user straight into adding a record.
    void RefreshPosition();
    void SetAddMode(bool adding);
    // What the user typed reaches the record set before it moves, which writes it.
    void submitEdits();
    void moveWith(void (Recordset::*move)());

    // Asks the form's prompt when the user wants it; answers whether to go ahead.
    bool goAhead(PromptKind prompt);
    // The prompts answer here, through the form's ReceivePromptAnswer.
    void receivePromptAnswer(int answer) { m_promptAnswer = answer; }

    void add();
    void confirmAdd();
    void cancelAdd();

    // From the form's closeEvent: refused until the pending edit is settled.
    void close(QCloseEvent *event);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void connectButtons();
    void followActivation();
    void followWindowState(Qt::WindowStates state);

    RecordFormParts m;
    QPointer<QAction> m_menuEntry;
    QPointer<QWidget> m_subWindow;
    bool m_active = false;
    qint16 m_recordCount = 0;
    qint16 m_position = 0;
    Recordset::Bookmark m_savedBookmark = 0;
    // Not reset before a prompt: a prompt closed by its window frame answers nothing, and the
    // answer given before stands.
    int m_promptAnswer = 0;
};
