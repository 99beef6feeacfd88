#include "forms/search/bookbrowser.h"

#include "app/formregistry.h"
#include "app/helptopics.h"
#include "app/mainframe.h"
#include "data/connection.h"
#include "data/recordset.h"
#include "forms/search/bookbrowserkind.h"
#include "forms/search/bookhandover.h"
#include "forms/search/booktreemodel.h"
#include "recordform/msgbox.h"
#include "recordform/recordstatusbar.h"
#include "recordform/runtimeerrorreport.h"
#include "ui_frmbookbrowser.h"


using namespace Qt::StringLiterals;

namespace {

// The fields' values of the first row joined by a blank.
QString firstRowText(const Recordset &rows, const QStringList &fields)
{
    QStringList values;
    for (const QString &field : fields)
        values.append(rows.value(field).toString());
    return values.join(u' ');
}

} // namespace

BookBrowser::BookBrowser(const BookBrowserKind &kind, MainFrame &frame, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::frmBookBrowser>())
    , m_kind(kind)
    , m_frame(frame)
    , m_statusBar(new RecordStatusBar({RecordStatusBar::Panel::Text}, this))
{
    ui->setupUi(this);
    setObjectName(m_kind.formName);
    setWindowTitle(m_kind.caption);
    ui->tvwTree->setObjectName(m_kind.tree);
    m_statusBar->setObjectName(u"StatusBar1"_s);
    ui->layForm->addWidget(m_statusBar);
    connect(ui->tvwTree, &QTreeView::clicked, this,
            [this](const QModelIndex &node) { RunHandler([&] { onNodeClicked(node); }); });
    RunHandler([this] { buildTree(); });
}

BookBrowser::~BookBrowser() = default;

// An empty tree when no book is linked: the form says so and cannot edit.
void BookBrowser::buildTree()
{
    m_nodes = new BookTreeModel(m_kind.rootImage, this);
    Connection connection;
    connection.open(m_frame.session().connectionString());
    const std::unique_ptr<Recordset> rows = Recordset::open(connection, m_kind.loadSql);
    if (rows->bof() && rows->eof()) {
        MsgBox(m_kind.emptyMessage, Vb::OKOnly | Vb::Exclamation, m_kind.emptyTitle);
        ui->cmdEdit->setEnabled(false);
    } else {
        m_statusBar->setPanelText(1, u"Total: "_s + QString::number(rows->recordCount())
                                         + u" entries."_s);
        addNodes(*rows);
    }
    ui->tvwTree->setModel(m_nodes);
}

// One root whenever the root's key changes from the row before; every row is a book under
// the current root.
void BookBrowser::addNodes(const Recordset &rows)
{
    const int rootId = rows.fieldIndex(m_kind.rootIdField);
    const int rootText = rows.fieldIndex(m_kind.rootTextField);
    const int bookId = rows.fieldIndex(u"BookID"_s);
    const int bookText = rows.fieldIndex(u"BookDescription"_s);
    QString rootKey;
    for (int row = 0; row < rows.recordCount(); ++row) {
        const QString key = u"T"_s + rows.valueAt(row, rootId).toString();
        if (row == 0 || key != rootKey) {
            rootKey = key;
            m_nodes->addRoot(key, rows.valueAt(row, rootText).toString());
        }
        m_nodes->addBook(rows.valueAt(row, bookId).toLongLong(),
                         rows.valueAt(row, bookText).toString());
    }
}

void BookBrowser::onNodeClicked(const QModelIndex &node)
{
    const QString tag = node.data(BookTreeModel::TagRole).toString();
    if (!tag.isEmpty())
        showBook(tag);
}

void BookBrowser::showBook(const QString &bookId)
{
    Connection connection;
    connection.open(m_frame.session().connectionString());
    const std::unique_ptr<Recordset> book = Recordset::open(connection, m_kind.detailSql + bookId);
    ui->txtBookID->setText(book->value(u"BookID"_s).toString());
    ui->txtPublisher->setText(book->value(u"PublisherName"_s).toString());
    ui->txtTitle->setText(book->value(u"BookDescription"_s).toString());
    findChild<QLineEdit *>(m_kind.ownBox.box)->setText(firstRowText(*book, m_kind.ownBox.fields));

    const std::unique_ptr<Recordset> other = Recordset::open(connection, m_kind.secondSql + bookId);
    findChild<QLineEdit *>(m_kind.otherBox.box)
        ->setText(other->bof() && other->eof() ? m_kind.otherFallback
                                               : firstRowText(*other, m_kind.otherBox.fields));
}

void BookBrowser::on_cmdEdit_clicked()
{
    RunHandler([this] {
        if (ui->txtBookID->text().isEmpty()) {
            MsgBox(u"Please pick a book from the left hand pane first!"_s,
                   Vb::OKOnly | Vb::Exclamation, m_kind.editTitle);
            return;
        }
        ShowOnlyBook(m_frame, ui->txtBookID->text());
    });
}

void BookBrowser::on_cmdExpand_clicked()
{
    ui->tvwTree->expandAll();
}

void BookBrowser::on_cmdCollapse_clicked()
{
    ui->tvwTree->collapseAll();
}

void BookBrowser::on_cmdExit_clicked()
{
    m_frame.forms().unload(this);
}

// The help of this form, as F1 pressed on it would open.
void BookBrowser::on_cmdHelp_clicked()
{
    SendHelpKey(this);
}
