#include "search/booklistingmodel.h"

#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

BookListingModel::BookListingModel(QList<BookListingRow> rows, QObject *parent)
    : QAbstractTableModel(parent)
    , m_rows(std::move(rows))
    , m_order(m_rows.size())
    , m_ticked(m_rows.size(), false)
{
    std::iota(m_order.begin(), m_order.end(), 0);
}

QStringList BookListingModel::headers()
{
    return {u"Author"_s,    u"Title"_s,     u"Price"_s, u"Condition"_s,
            u"Publisher"_s, u"Published"_s, u"Topic"_s};
}

int BookListingModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_order.size());
}

int BookListingModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : BookColumn::Count;
}

QVariant BookListingModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    if (role == Qt::DisplayRole)
        return text(index.row(), index.column());
    if (role == Qt::CheckStateRole && index.column() == BookColumn::Author)
        return isTicked(index.row()) ? Qt::Checked : Qt::Unchecked;
    // Amounts line up on their pence.
    if (role == Qt::TextAlignmentRole && index.column() == BookColumn::Price)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant BookListingModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= BookColumn::Count)
        return {};
    return headers().at(section);
}

Qt::ItemFlags BookListingModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.column() == BookColumn::Author)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool BookListingModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::CheckStateRole || !checkIndex(index, CheckIndexOption::IndexIsValid)
        || index.column() != BookColumn::Author)
        return false;
    const bool ticked = value.toInt() == Qt::Checked;
    const bool wasTicked = isTicked(index.row());
    setTicked(index.row(), ticked);
    if (ticked && !wasTicked)
        Q_EMIT rowTicked(index.row());
    return true;
}

QString BookListingModel::key(int row) const
{
    return m_rows.at(m_order.at(row)).key;
}

QString BookListingModel::text(int row, int column) const
{
    return m_rows.at(m_order.at(row)).texts.at(column);
}

bool BookListingModel::isTicked(int row) const
{
    return m_ticked.at(m_order.at(row));
}

void BookListingModel::setTicked(int row, bool ticked)
{
    if (isTicked(row) == ticked)
        return;
    m_ticked[m_order.at(row)] = ticked;
    const QModelIndex box = index(row, BookColumn::Author);
    Q_EMIT dataChanged(box, box, {Qt::CheckStateRole});
}

QList<int> BookListingModel::tickedRows() const
{
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
        if (isTicked(row))
            rows.append(row);
    }
    return rows;
}

void BookListingModel::sortAsText(int column, Qt::SortOrder order)
{
    // Folded once per row rather than in every comparison.
    std::vector<QString> folded(m_rows.size());
    for (qsizetype row = 0; row < m_rows.size(); ++row)
        folded[row] = m_rows.at(row).texts.at(column).toCaseFolded();
    reorder(sortedOrder(folded, order));
}

void BookListingModel::sortByValue(const QList<double> &values, Qt::SortOrder order)
{
    // The values come by shown row; the order is made over the rows as read.
    std::vector<double> valueOf(m_rows.size());
    for (int row = 0; row < rowCount(); ++row)
        valueOf[m_order.at(row)] = values.at(row);
    reorder(sortedOrder(valueOf, order));
}

// Equal rows keep the order they had, in either direction.
template<typename Key>
std::vector<int> BookListingModel::sortedOrder(const std::vector<Key> &keys,
                                               Qt::SortOrder order) const
{
    std::vector<int> sorted = m_order;
    if (order == Qt::AscendingOrder)
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&keys](int a, int b) { return keys[a] < keys[b]; });
    else
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&keys](int a, int b) { return keys[b] < keys[a]; });
    return sorted;
}

// Views keep their selection and current row on the same books.
void BookListingModel::reorder(std::vector<int> sorted)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const std::vector<int> before = std::exchange(m_order, std::move(sorted));
    std::vector<int> shownAt(m_rows.size());
    for (int row = 0; row < int(m_order.size()); ++row)
        shownAt[m_order[row]] = row;
    const QModelIndexList persistent = persistentIndexList();
    QModelIndexList moved;
    moved.reserve(persistent.size());
    for (const QModelIndex &old : persistent)
        moved.append(index(shownAt[before.at(old.row())], old.column()));
    changePersistentIndexList(persistent, moved);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}
