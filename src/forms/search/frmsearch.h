#pragma once

#include "forms/search/searchstatement.h"

#include <QList>
#include <QWidget>

#include <memory>

class DataCombo;
class MainFrame;
class QCheckBox;
namespace Ui {
class frmSearch;
}

// frmSearch: up to six criteria combined into one statement. The keys of the books found go
// into tblCriteriaHits, after the user has seen how many there are, and the book form is
// reloaded to show only those books.
class FrmSearch : public QWidget
{
    Q_OBJECT
    // The hit count of the last search, which the results prompt puts into its question.
    Q_PROPERTY(qint16 intBooksFound READ booksFound)

public:
    explicit FrmSearch(MainFrame &frame, QWidget *parent = nullptr);
    ~FrmSearch() override;

    qint16 booksFound() const { return intBooksFound; }
    // The criteria as the boxes show them now: what Search builds its statement from.
    SearchCriteria criteria() const;

    // The results prompt hands its answer here: 6 to show the books found.
    Q_INVOKABLE void ReceivePromptAnswer(int answer);

private Q_SLOTS:
    void on_cmdSearch_clicked();
    void on_cmdReset_clicked();
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    // A check box and the inputs it unlocks.
    struct Criterion
    {
        QCheckBox *box;
        QList<QWidget *> inputs;
    };

    // A lookup combo listing the rows its own data control reads from the catalogue.
    void addLookup(const QString &name, const QString &recordSource, DataCombo *combo,
                   const QString &listField, const QString &boundColumn);
    void setUpCriteria();
    void Search();

    std::unique_ptr<Ui::frmSearch> ui;
    MainFrame &m_frame;
    QList<Criterion> m_criteria;
    qint16 intBooksFound = 0;
    int PromptAnswer = 0;
};
