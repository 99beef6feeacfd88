#pragma once

#include <QWidget>

#include <memory>

class BookListingModel;
class MainFrame;
namespace Ui {
class frmBookListing;
}

// frmBookListing: every book in one list, one row a book, sorted by a click on a column's
// header. Ticking a row's box opens that book alone in the book form. The list is read once,
// when the form loads.
class FrmBookListing : public QWidget
{
    Q_OBJECT

public:
    explicit FrmBookListing(MainFrame &frame, QWidget *parent = nullptr);
    ~FrmBookListing() override;

private Q_SLOTS:
    void on_cmdExit_clicked();
    void on_cmdHelp_clicked();

private:
    void fillList();
    void onHeaderClicked(int column);
    void onRowTicked(int row);

    std::unique_ptr<Ui::frmBookListing> ui;
    MainFrame &m_frame;
    BookListingModel *m_rows = nullptr;
    // Designed as descending, so that the first click on a header sorts ascending.
    Qt::SortOrder m_sortOrder = Qt::DescendingOrder;
};
