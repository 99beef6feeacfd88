#include "data/lazyrows.h"

#include "data/connection.h"
#include "data/providererror.h"
#include "data/rowstore.h"
#include "data/sqlitestatement.h"

#include <QHash>
#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString &identifier)
{
    return u'"' + QString(identifier).replace(u'"', u"\"\""_s) + u'"';
}

// Anything that could make a row appear twice, or its place depend on other rows.
bool unsafe(const QString &select)
{
    static const QRegularExpression words(
        uR"(\b(distinct|group|having|limit|offset|union|intersect|except|select\s.*\bselect)\b)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return words.match(select).hasMatch();
}

// An order that a key query can keep as it is: no computed terms, and no term naming a
// column by its place, which would name another column of the key query.
bool plainOrder(const QString &order)
{
    static const QRegularExpression position(uR"((^|,)\s*\d+\b)"_s);
    return !order.contains(u'(') && !position.match(order).hasMatch();
}

// Every field is the table's own: "<table>.*" or "<table>.<column>".
bool fieldsOfTable(const QString &fields, const QString &table)
{
    static const QRegularExpression field(
        uR"re(^\s*"?([A-Za-z_][A-Za-z0-9_]*)"?\s*\.\s*(\*|"?[A-Za-z_][A-Za-z0-9_]*"?)\s*$)re"_s);
    const QStringList items = fields.split(u',');
    return std::all_of(items.cbegin(), items.cend(), [&](const QString &item) {
        const QRegularExpressionMatch m = field.match(item);
        return m.hasMatch() && m.captured(1).compare(table, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

std::optional<LazyRows> LazyRows::forSelect(const QString &select)
{
    static const QRegularExpression form(
        uR"re(^\s*select\s+(.+?)\s+from\s+"?([A-Za-z_][A-Za-z0-9_]*)"?\s+(?:where\s+(.+?)\s+)?order\s+by\s+(.+?)\s*;?\s*$)re"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression join(uR"(\bjoin\b)"_s, QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch m = form.match(select);
    if (!m.hasMatch() || unsafe(select) || join.match(select).hasMatch()
        || m.captured(1).contains(u'(') || !plainOrder(m.captured(4)))
        return std::nullopt;
    LazyRows rows;
    rows.m_fields = m.captured(1);
    rows.m_table = m.captured(2);
    rows.m_from = quoted(rows.m_table);
    rows.m_where = m.captured(3);
    rows.m_order = m.captured(4);
    return rows;
}

std::optional<LazyRows> LazyRows::forJoin(const QString &select)
{
    static const QRegularExpression form(
        uR"re(^\s*select\s+(.+?)\s+from\s+("?([A-Za-z_][A-Za-z0-9_]*)"?(?:\s*,|\s+(?:(?:inner|cross|left(?:\s+outer)?)\s+)?join\s).+?)\s+(?:where\s+(.+?)\s+)?order\s+by\s+(.+?)\s*;?\s*$)re"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = form.match(select);
    // Text in quotes could hold a word that splits the select elsewhere than it reads.
    if (!m.hasMatch() || unsafe(select) || select.contains(u'\'')
        || !fieldsOfTable(m.captured(1), m.captured(3)) || !plainOrder(m.captured(5)))
        return std::nullopt;
    LazyRows rows;
    rows.m_fields = m.captured(1);
    rows.m_from = m.captured(2);
    rows.m_table = m.captured(3);
    rows.m_where = m.captured(4);
    rows.m_pageWhere = rows.m_where;
    rows.m_order = m.captured(5);
    return rows;
}

std::optional<QStringList> LazyRows::fieldNames(Connection &connection)
{
    const std::unique_ptr<SqliteStatement> fields = SqliteStatement::tryPrepare(
        connection, u"SELECT "_s + m_fields + u" FROM "_s + m_from + u" LIMIT 0"_s);
    const std::unique_ptr<SqliteStatement> keys = SqliteStatement::tryPrepare(
        connection, u"SELECT name FROM pragma_table_info(?) WHERE pk > 0"_s);
    if (!fields || !keys)
        return std::nullopt;
    keys->bind(1, m_table);
    if (!keys->next())
        return std::nullopt;
    m_keyField = keys->value(0).toString();
    if (keys->next()) // a key of several columns
        return std::nullopt;
    const QStringList names = fields->columnNames();
    m_keyColumn = -1;
    for (int i = 0; i < names.size() && m_keyColumn < 0; ++i) {
        if (names.at(i).compare(m_keyField, Qt::CaseInsensitive) == 0)
            m_keyColumn = i;
    }
    if (m_keyColumn < 0)
        return std::nullopt;
    return names;
}

std::optional<std::vector<qint64>> LazyRows::readKeys(Connection &connection)
{
    const QString key = quoted(m_table) + u'.' + quoted(m_keyField);
    const QString where = m_where.isEmpty() ? QString() : u" WHERE "_s + m_where;
    const std::unique_ptr<SqliteStatement> query = SqliteStatement::tryPrepare(
        connection, u"SELECT "_s + key + u" FROM "_s + m_from + where + u" ORDER BY "_s + m_order
                        + u", "_s + key);
    if (!query)
        return std::nullopt;
    // Whole-number keys only: a row is found by its key as a number.
    std::vector<qint64> keys;
    while (query->next()) {
        if (!query->isInteger(0))
            return std::nullopt;
        keys.push_back(query->integer(0));
    }
    m_read.assign(keys.size(), false);
    m_unread = int(keys.size());
    m_run = PageRows;
    return keys;
}

void LazyRows::readPage(Connection &connection, RowStore &store, int row)
{
    const int count = int(m_read.size());
    // A visit to the row after one already read is a scan in order: each run is twice the
    // last, so reading every row takes a few statements rather than hundreds.
    const bool scanning = row > 0 && m_read[std::size_t(row - 1)];
    m_run = scanning ? std::min(m_run * 2, LongestRun) : PageRows;
    const int first = scanning ? row : row - row % PageRows;
    const int end = std::min(count, first + m_run);

    // The page's keys go in as one bound list of whole numbers, however long the page. A
    // join may give one key to several rows.
    std::vector<std::pair<qint64, int>> rowsOfKey;
    QByteArray keys = "[";
    for (int r = first; r < end; ++r) {
        if (m_read[std::size_t(r)])
            continue;
        const qint64 key = store.value(r, m_keyColumn).toLongLong();
        rowsOfKey.emplace_back(key, r);
        if (keys.size() > 1)
            keys += ',';
        keys += QByteArray::number(key);
    }
    keys += ']';
    std::sort(rowsOfKey.begin(), rowsOfKey.end());
    const QString where = m_pageWhere.isEmpty() ? QString() : u"("_s + m_pageWhere + u") AND "_s;
    SqliteStatement query(connection, u"SELECT "_s + m_fields + u" FROM "_s + m_from
                                          + u" WHERE "_s + where + quoted(m_table) + u'.'
                                          + quoted(m_keyField)
                                          + u" IN (SELECT value FROM json_each(?))"_s);
    query.bind(1, QString::fromLatin1(keys));
    while (query.next()) {
        const auto [from, to] = std::equal_range(
            rowsOfKey.begin(), rowsOfKey.end(), std::pair(query.integer(m_keyColumn), 0),
            [](const auto &a, const auto &b) { return a.first < b.first; });
        if (from == to)
            continue;
        const std::span<const RowStore::Cell> cells = query.cells();
        for (auto it = from; it != to; ++it)
            store.setRow(it->second, cells);
    }
    for (int r = first; r < end; ++r) {
        if (!m_read[std::size_t(r)]) {
            m_read[std::size_t(r)] = true;
            --m_unread;
        }
    }
    // Every row is in: give back the room kept for more text.
    if (m_unread == 0)
        store.squeeze();
}

std::optional<QVariantList> LazyRows::keysMaybeWithText(Connection &connection,
                                                        const QString &field, const QString &text,
                                                        Qt::CaseSensitivity cs) const
{
    // The catalogue folds the letter case of plain ASCII only.
    const bool ascii = std::all_of(text.cbegin(), text.cend(),
                                   [](QChar c) { return c.unicode() < 0x80; });
    if (text.isEmpty() || (cs == Qt::CaseInsensitive && !ascii))
        return std::nullopt;
    QSqlQuery info(connection.database());
    info.setForwardOnly(true);
    info.prepare(u"SELECT type FROM pragma_table_info(?) WHERE name = ? COLLATE NOCASE"_s);
    info.addBindValue(m_table);
    info.addBindValue(field);
    // Text affinity: every value is stored as the text it shows.
    static const QRegularExpression textType(u"char|clob|text"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    if (!info.exec() || !info.next() || !textType.match(info.value(0).toString()).hasMatch())
        return std::nullopt;
    // The column's own collation (binary or letter case folded) finds at least every exact
    // match, and can use the column's index.
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    query.prepare(u"SELECT "_s + quoted(m_keyField) + u" FROM "_s + quoted(m_table) + u" WHERE "_s
                  + quoted(field) + u" = ?"_s
                  + (cs == Qt::CaseInsensitive ? u" COLLATE NOCASE"_s : QString()));
    query.addBindValue(text);
    if (!query.exec())
        return std::nullopt;
    QVariantList keys;
    while (query.next())
        keys.append(query.value(0));
    return keys;
}

void LazyRows::rowAppended()
{
    m_read.push_back(true);
}

void LazyRows::rowRemoved(int row)
{
    if (!m_read[std::size_t(row)])
        --m_unread;
    m_read.erase(m_read.begin() + row);
}
