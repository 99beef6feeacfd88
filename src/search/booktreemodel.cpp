#include "search/booktreemodel.h"

#include "search/treeimages.h"

using namespace Qt::StringLiterals;

namespace {

// A book's internal id is its root's row + 1; a root's is 0.
constexpr quintptr RootNode = 0;

const QString BookImage = u"Book"_s;
const QString OpenBookImage = u"OpenBook"_s;

// A book's picture, shown open while the book is the picked one.
QIcon bookIcon()
{
    QIcon icon;
    const QIcon closed = TreeImage(BookImage);
    const QIcon open = TreeImage(OpenBookImage);
    for (const QSize &size : closed.availableSizes()) {
        icon.addPixmap(closed.pixmap(size), QIcon::Normal);
        icon.addPixmap(open.pixmap(size), QIcon::Selected);
    }
    return icon;
}

} // namespace

BookTreeModel::BookTreeModel(const QString &rootImage, QObject *parent)
    : QAbstractItemModel(parent)
    , m_rootImage(rootImage)
    , m_rootIcon(TreeImage(rootImage))
    , m_bookIcon(bookIcon())
{
}

void BookTreeModel::addRoot(const QString &key, const QString &text)
{
    m_roots.append({key, text, int(m_books.size()), 0});
}

void BookTreeModel::addBook(qint64 bookId, const QString &text)
{
    m_books.append({bookId, text});
    ++m_roots.last().bookCount;
}

QModelIndex BookTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    if (!parent.isValid())
        return createIndex(row, column, RootNode);
    return createIndex(row, column, quintptr(parent.row()) + 1);
}

QModelIndex BookTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || child.internalId() == RootNode)
        return {};
    return createIndex(int(child.internalId() - 1), 0, RootNode);
}

int BookTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_roots.size());
    if (parent.column() != 0 || parent.internalId() != RootNode)
        return 0;
    return m_roots.at(parent.row()).bookCount;
}

int BookTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant BookTreeModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (index.internalId() == RootNode)
        return rootData(m_roots.at(index.row()), role);
    const Root &root = m_roots.at(int(index.internalId() - 1));
    return bookData(root, m_books.at(root.firstBook + index.row()), role);
}

QVariant BookTreeModel::rootData(const Root &root, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return root.text;
    case Qt::DecorationRole:
        return m_rootIcon;
    case KeyRole:
        return root.key;
    case TagRole:
        return QString();
    case ImageRole:
        return m_rootImage;
    default:
        return {};
    }
}

// A book filed under several roots has a node under each: the root's key in its own keeps
// the keys apart.
QVariant BookTreeModel::bookData(const Root &root, const Book &book, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return book.text;
    case Qt::DecorationRole:
        return m_bookIcon;
    case KeyRole:
        return QString(root.key + u'B' + QString::number(book.id));
    case TagRole:
        return QString::number(book.id);
    case ImageRole:
        return BookImage;
    case SelectedImageRole:
        return OpenBookImage;
    default:
        return {};
    }
}
