#include "forms/search/booktreemodel.h"

#include "forms/search/treeimages.h"

using namespace Qt::StringLiterals;

namespace {

// A node's internal id says whether it is a root and which root is its own: the root's row,
// shifted left, with the low bit set for the books under it. Qt hashes an index as row * 16 +
// column + internal id, the hash behind the view's expanded set and the model's persistent
// indexes; small ids would cluster those hashes, and Expand and Collapse of thousands of
// nodes would take quadratic time. Multiplying by an odd constant scatters the ids and is
// undone by multiplying by its inverse.
constexpr quintptr Scatter = quintptr(0x9E3779B97F4A7C15ULL);

constexpr quintptr inverseOf(quintptr odd)
{
    quintptr inverse = odd; // right in the low 3 bits; each step doubles the right bits
    for (int step = 0; step < 6; ++step)
        inverse *= 2 - odd * inverse;
    return inverse;
}
constexpr quintptr Gather = inverseOf(Scatter);
static_assert(Scatter * Gather == 1);

constexpr quintptr nodeId(int rootRow, bool isBook)
{
    return ((quintptr(rootRow) << 1) | (isBook ? 1 : 0)) * Scatter;
}
constexpr bool isBookNode(quintptr id)
{
    return ((id * Gather) & 1) != 0;
}
constexpr int rootRowOf(quintptr id)
{
    return int((id * Gather) >> 1);
}

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
        return createIndex(row, column, nodeId(row, false /* a root */));
    return createIndex(row, column, nodeId(parent.row(), true /* a book */));
}

QModelIndex BookTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || !isBookNode(child.internalId()))
        return {};
    const int rootRow = rootRowOf(child.internalId());
    return createIndex(rootRow, 0, nodeId(rootRow, false /* a root */));
}

int BookTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_roots.size());
    if (parent.column() != 0 || isBookNode(parent.internalId()))
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
    if (!isBookNode(index.internalId()))
        return rootData(m_roots.at(index.row()), role);
    const Root &root = m_roots.at(rootRowOf(index.internalId()));
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
