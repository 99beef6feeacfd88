#include "forms/search/booklistingmodel.h"

#include "data/textcollation.h"

#include <QHash>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Each row's place among the keys, equal keys sharing one. Worked out at a column's first
// sort, so that every later sort of it compares numbers rather than texts or amounts.
template<typename Key, typename Less = std::less<Key>>
std::vector<int> ranksOf(const std::vector<Key> &keys, Less less = {})
{
    std::vector<int> byKey(keys.size());
    std::iota(byKey.begin(), byKey.end(), 0);
    std::sort(byKey.begin(), byKey.end(), [&](int a, int b) { return less(keys[a], keys[b]); });
    std::vector<int> ranks(keys.size());
    int rank = 0;
    for (size_t i = 0; i < byKey.size(); ++i) {
        if (i > 0 && less(keys[byKey[i - 1]], keys[byKey[i]]))
            ++rank;
        ranks[byKey[i]] = rank;
    }
    return ranks;
}

} // namespace

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
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignment(index.column()));
    return {};
}

QVariant BookListingModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= BookColumn::Count)
        return {};
    if (role == Qt::DisplayRole)
        return headers().at(section);
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignment(section));
    return {};
}

// Amounts line up on their pence, under a heading that lines up with them.
Qt::Alignment BookListingModel::alignment(int column)
{
    return column == BookColumn::Price ? Qt::AlignRight | Qt::AlignVCenter
                                       : Qt::AlignLeft | Qt::AlignVCenter;
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
    std::vector<int> &ranks = m_textRanks.at(column);
    if (ranks.empty())
        ranks = textRanks(column);
    reorder(sortedOrder(ranks, order));
}

// In the order of the program's other lists: a dictionary's, in the user's language. Each
// different text of the column is keyed once, and the sort compares the keys' bytes.
std::vector<int> BookListingModel::textRanks(int column) const
{
    const TextCollation::DictionaryOrder dictionary;
    QHash<QString, int> textIndex;
    std::vector<QByteArray> keys;
    std::vector<int> textOfRow(m_rows.size());
    for (qsizetype row = 0; row < m_rows.size(); ++row) {
        const QString &text = m_rows.at(row).texts.at(column);
        auto known = textIndex.constFind(text);
        if (known == textIndex.cend()) {
            known = textIndex.insert(text, int(keys.size()));
            keys.push_back(dictionary.sortKey(text));
        }
        textOfRow[row] = known.value();
    }
    const std::vector<int> rankOfText = ranksOf(keys, &TextCollation::DictionaryOrder::keyLess);
    std::vector<int> ranks(m_rows.size());
    for (std::size_t row = 0; row < ranks.size(); ++row)
        ranks[row] = rankOfText[textOfRow[row]];
    return ranks;
}

void BookListingModel::sortByValue(int column, const std::function<double(const QString &)> &valueOf,
                                   Qt::SortOrder order)
{
    std::vector<int> &ranks = m_valueRanks.at(column);
    if (ranks.empty()) {
        std::vector<double> values(m_rows.size());
        for (qsizetype row = 0; row < m_rows.size(); ++row)
            values[row] = valueOf(m_rows.at(row).texts.at(column));
        ranks = ranksOf(values);
    }
    reorder(sortedOrder(ranks, order));
}

// Equal rows keep the order they had, in either direction.
std::vector<int> BookListingModel::sortedOrder(const std::vector<int> &ranks,
                                               Qt::SortOrder order) const
{
    std::vector<int> sorted = m_order;
    if (order == Qt::AscendingOrder)
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&ranks](int a, int b) { return ranks[a] < ranks[b]; });
    else
        std::stable_sort(sorted.begin(), sorted.end(),
                         [&ranks](int a, int b) { return ranks[b] < ranks[a]; });
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
