#pragma once

#include "data/recordset.h"

#include <QWidget>

#include <memory>

class DataControl;
class MainFrame;
class MandatoryLeaveCheck;
class QDataWidgetMapper;
class QLineEdit;
class RecordFormController;
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
    bool eventFilter(QObject *watched, QEvent *event) override;

private Q_SLOTS:
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
    void makeController();

    // Browsing.
    Recordset *books() const;
    void showLookupText(const QString &description);
    void showCurrentRow(int row);
    void fillEmptyNumbersWithZero();
    void onBookMoved();

    // Adding and editing.
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
    RecordStatusBar *m_stbContents = nullptr;
    RecordFormController *m_controller = nullptr;

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

    bool InvalidEntry = false;
};
