#include "data/lazyrows.h"

#include "data/connection.h"
#include "data/providererror.h"
#include "data/rowstore.h"

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

} // namespace

std::optional<LazyRows> LazyRows::forSelect(const QString &select)
{
    static const QRegularExpression form(
        uR"re(^\s*select\s+(.+?)\s+from\s+"?([A-Za-z_][A-Za-z0-9_]*)"?\s+(?:where\s+(.+?)\s+)?order\s+by\s+(.+?)\s*;?\s*$)re"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    // Anything that could make a row appear twice, or its place depend on other rows.
    static const QRegularExpression unsafe(
        uR"(\b(distinct|join|group|having|limit|offset|union|intersect|except|select\s.*\bselect)\b)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = form.match(select);
    if (!m.hasMatch() || unsafe.match(select).hasMatch() || m.captured(1).contains(u'(')
        || m.captured(4).contains(u'('))
        return std::nullopt;
    LazyRows rows;
    rows.m_fields = m.captured(1);
    rows.m_table = m.captured(2);
    rows.m_where = m.captured(3);
    rows.m_order = m.captured(4);
    return rows;
}

std::optional<QStringList> LazyRows::fieldNames(Connection &connection) const
{
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    if (!query.exec(u"SELECT "_s + m_fields + u" FROM "_s + quoted(m_table) + u" LIMIT 0"_s))
        return std::nullopt;
    const QSqlRecord record = query.record();
    QStringList names;
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
    return names;
}

std::optional<QVariantList> LazyRows::readKeys(Connection &connection, const QString &keyField,
                                               int keyColumn)
{
    m_keyField = keyField;
    m_keyColumn = keyColumn;
    const QString key = quoted(m_table) + u'.' + quoted(keyField);
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    const QString where = m_where.isEmpty() ? QString() : u" WHERE "_s + m_where;
    if (!query.exec(u"SELECT "_s + key + u" FROM "_s + quoted(m_table) + where + u" ORDER BY "_s
                    + m_order + u", "_s + key))
        return std::nullopt;
    // Whole-number keys only: a row is found by its key as a number.
    QVariantList keys;
    while (query.next()) {
        keys.append(query.value(0));
        if (keys.constLast().typeId() != QMetaType::LongLong)
            return std::nullopt;
    }
    m_read.assign(std::size_t(keys.size()), false);
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

    // The page's keys go in as one bound list of whole numbers, however long the page.
    QHash<qint64, int> rowOfKey;
    QByteArray keys = "[";
    for (int r = first; r < end; ++r) {
        if (m_read[std::size_t(r)])
            continue;
        const qint64 key = store.value(r, m_keyColumn).toLongLong();
        rowOfKey.insert(key, r);
        if (keys.size() > 1)
            keys += ',';
        keys += QByteArray::number(key);
    }
    keys += ']';
    QSqlQuery query(connection.database());
    query.setForwardOnly(true);
    if (!query.prepare(u"SELECT "_s + m_fields + u" FROM "_s + quoted(m_table) + u" WHERE "_s
                       + quoted(m_table) + u'.' + quoted(m_keyField)
                       + u" IN (SELECT value FROM json_each(?))"_s))
        connection.fail(ProviderError::fromSqlError(query.lastError()));
    query.addBindValue(QString::fromLatin1(keys));
    if (!query.exec())
        connection.fail(ProviderError::fromSqlError(query.lastError()));
    const int columns = store.columnCount();
    QVariantList values(columns);
    while (query.next()) {
        for (int c = 0; c < columns; ++c)
            values[c] = query.value(c);
        const int r = rowOfKey.value(values.at(m_keyColumn).toLongLong(), -1);
        if (r >= 0)
            store.setRow(r, values);
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
