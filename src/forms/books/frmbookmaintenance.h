#pragma once

#include "data/recordset.h"

#include <QPointer>
#include <QWidget>

#include <memory>

class DataControl;
class MainFrame;
class MandatoryLeaveCheck;
class QAction;
class QDataWidgetMapper;
class QLineEdit;
class QMdiSubWindow;
class RecordGrid;
class RecordStatusBar;
class RecordsetModel;
namespace Ui {
class frmBookMaintenance;
}

// The two lists of a book's links, to authors and to topics.
enum class LinkSide { Author, Topic };

// frmBookMaintenance: one book at a time, bound to the current row of adoBook, with its
// authors and topics beneath. Browsing edits in place; adding is a mode of its own. Loaded
// hidden when a catalogue opens; in filtered mode (after a search) it shows only the books
// listed in tblCriteriaHits.
class FrmBookMaintenance : public QWidget
{
    Q_OBJECT

public:
    explicit FrmBookMaintenance(MainFrame &frame, QWidget *parent = nullptr);
    ~FrmBookMaintenance() override;

    // The prompt dialogs hand their answer here: 6 to go ahead, 7 not to.
    Q_INVOKABLE void ReceivePromptAnswer(int answer);
    // Called by the publisher form when it closes, so that new or removed publishers show.
    Q_INVOKABLE void RefreshPublisherList();

    // What the pickers need: the catalogue, the book shown now, and the list to refresh once
    // they have linked it.
    QString connectionString() const;
    QString shownBookNumber() const;
    void RefreshLinks(LinkSide side);

protected:
    void closeEvent(QCloseEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
    void on_cmdFirst_clicked();
    void on_cmdPrevious_clicked();
    void on_cmdNext_clicked();
    void on_cmdLast_clicked();
    void on_cmdAdd_clicked();
    void on_cmdConfirmAdd_clicked();
    void on_cmdCancelAdd_clicked();
    void on_cmdDelete_clicked();
    void on_cmdPrintLabel_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();
    void on_cmdAddAuthor_clicked();
    void on_cmdAddTopic_clicked();
    void on_cmdDeleteAuthor_clicked();
    void on_cmdDeleteTopic_clicked();
    void on_dboBookLkup_activated(int row);

private:
    // Load.
    DataControl *addDataControl(const QString &name, const QString &recordSource);
    void bindDataControls();
    void enterFilteredMode();
    void bindFields();
    void setUpLookup();
    void setUpGrids();
    void setUpChecks();
    void followActivation();
    void followWindowState(Qt::WindowStates state);

    // Browsing.
    Recordset *books() const;
    void RefreshPosition();
    void ShowPosition();
    void showLookupText(const QString &description);
    void submitEdits();
    void moveWith(void (Recordset::*move)());
    void showCurrentRow(int row);
    void fillEmptyNumbersWithZero();
    void onBookMoved();

    // Adding and editing.
    bool PromptWanted(const QString &action) const;
    void askPrompt(const QString &action);
    void SetAddMode(bool adding);
    void ValidateBook();
    bool checkField(QWidget *field);
    bool applyUpdatesOnExit();

    // Links.
    void loadLinks(const QString &bookId);
    void removeSelectedLink(LinkSide side);
    void removeCurrentLink(LinkSide side);
    void removeCurrentLinkRow(LinkSide side);
    RecordGrid *grid(LinkSide side) const;
    DataControl *linkControl(LinkSide side) const;

    std::unique_ptr<Ui::frmBookMaintenance> ui;
    MainFrame &m_frame;
    QPointer<QAction> m_mnuBooks;
    RecordStatusBar *m_stbContents = nullptr;

    DataControl *adoAuthorLkup = nullptr;
    DataControl *adoAuthor = nullptr;
    DataControl *adoTopic = nullptr;
    DataControl *adoBook = nullptr;
    DataControl *adoBookLkup = nullptr;
    DataControl *adoPublisher = nullptr;

    RecordsetModel *m_bookRows = nullptr;
    RecordsetModel *m_lookupRows = nullptr;
    RecordsetModel *m_publisherRows = nullptr;
    QDataWidgetMapper *m_mapper = nullptr;
    MandatoryLeaveCheck *m_leaveCheck = nullptr;
    QPointer<QMdiSubWindow> m_subWindow;
    bool m_active = false;

    qint16 BookCount = 0;
    qint16 BookPosition = 0;
    bool InvalidEntry = false;
    int PromptAnswer = 0;
    Recordset::Bookmark SavedBookmark = 0;
    qint16 NewBookID = 0;
};
