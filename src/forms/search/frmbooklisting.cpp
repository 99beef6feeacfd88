#include "forms/search/frmbooklisting.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "forms/search/bookdetails.h"
#include "forms/search/bookhandover.h"
#include "forms/search/booklistingmodel.h"
#include "forms/search/listviewroutines.h"
#include "recordform/msgbox.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbooklisting.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {

// The title's width as designed; the fitting leaves it alone.
constexpr int TitleWidth = 260;

} // namespace

FrmBookListing::FrmBookListing(MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmBookListing>())
    , m_frame(frame)
{
    ui->setupUi(this);
    QHeaderView *header = ui->lstBookList->header();
    header->setSectionsClickable(true);
    header->setSectionsMovable(false);
    header->setStretchLastSection(false);
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int column) { RunHandler([&] { onHeaderClicked(column); }); });
    RunHandler([this] { fillList(); });
}

FrmBookListing::~FrmBookListing() = default;

void FrmBookListing::fillList()
{
    QList<BookListingRow> books = ReadBookDetails(m_frame.session().strCataloguePath);
    if (books.isEmpty())
        MsgBox(u"There are no books to display"_s, Vb::OKOnly | Vb::Exclamation, u"List Books"_s);
    m_rows = new BookListingModel(std::move(books), this);
    ui->lstBookList->setModel(m_rows);
    connect(m_rows, &BookListingModel::rowTicked, this,
            [this](int row) { RunHandler([&] { onRowTicked(row); }); });
    ui->lstBookList->setColumnWidth(BookColumn::Title, TitleWidth);
    ListViewAdjustColumnWidth(ui->lstBookList, true /* include headers */);
}

// Each click turns the order round, whichever header it is on. The price is sorted by its
// value; every other column as text.
void FrmBookListing::onHeaderClicked(int column)
{
    if (!m_rows)
        return;
    m_sortOrder = m_sortOrder == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
    if (column != BookColumn::Price)
        m_rows->sortAsText(column, m_sortOrder);
    else
        ListViewSortOnNonStringField(ui->lstBookList, column, m_sortOrder, false /* is date */);
    QHeaderView *header = ui->lstBookList->header();
    header->setSortIndicatorShown(true);
    header->setSortIndicator(column, m_sortOrder);
}

// At most one row stays ticked: the book it stands for is the one the book form shows.
void FrmBookListing::onRowTicked(int row)
{
    for (int other : m_rows->tickedRows()) {
        if (other != row)
            m_rows->setTicked(other, false);
    }
    ShowOnlyBook(m_frame, m_rows->key(row).mid(1));
}

void FrmBookListing::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

// The help of this form, as F1 pressed on it would open.
void FrmBookListing::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
