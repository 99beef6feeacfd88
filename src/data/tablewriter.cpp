#include "data/tablewriter.h"

#include "data/providererror.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString quoted(const QString &identifier)
{
    return u'"' + QString(identifier).replace(u'"', u"\"\""_s) + u'"';
}

[[noreturn]] void refuse(const QSqlQuery &query)
{
    throw ProviderError::fromSqlError(query.lastError());
}

struct SelectShape
{
    QString table;
    bool readsOnlyThatTable = false;
};

// "select <list> from <table> [, <other> | join ...]": the first table, and whether the
// columns are that table's alone.
std::optional<SelectShape> shapeOf(const QString &select)
{
    static const QRegularExpression form(
        uR"re(^\s*select\s+(.*?)\s+from\s+"?([A-Za-z_][A-Za-z0-9_]*)"?\s*(.*)$)re"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch m = form.match(select);
    if (!m.hasMatch())
        return std::nullopt;
    const QString list = m.captured(1).trimmed();
    const QString table = m.captured(2);
    const QString rest = m.captured(3).trimmed();
    static const QRegularExpression moreTables(uR"(^(,|(inner|left|right|cross)?\s*join\b))"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    if (list.contains(u"distinct"_s, Qt::CaseInsensitive) || list.contains(u'(')
        || rest.contains(u"group by"_s, Qt::CaseInsensitive)
        || rest.contains(u"union"_s, Qt::CaseInsensitive))
        return std::nullopt;
    if (!moreTables.match(rest).hasMatch())
        return SelectShape{table, true};
    const bool onlyFirst = list.compare(table + u".*"_s, Qt::CaseInsensitive) == 0;
    return SelectShape{table, onlyFirst};
}

} // namespace

std::optional<TableWriter> TableWriter::forSelect(const QSqlDatabase &db, const QString &select,
                                                  const QStringList &fieldNames)
{
    const std::optional<SelectShape> shape = shapeOf(select);
    if (!shape || !shape->readsOnlyThatTable)
        return std::nullopt;
    QSqlQuery info(db);
    info.setForwardOnly(true);
    if (!info.exec(u"SELECT name, pk FROM pragma_table_info("_s + u'\'' + shape->table + u"')"_s))
        return std::nullopt;
    TableWriter writer;
    writer.m_db = db;
    int keys = 0;
    while (info.next()) {
        const QString column = info.value(0).toString();
        const auto at = std::find_if(fieldNames.begin(), fieldNames.end(), [&](const QString &f) {
            return f.compare(column, Qt::CaseInsensitive) == 0;
        });
        if (info.value(1).toInt() > 0) {
            ++keys;
            writer.m_keyField = column;
            writer.m_keyColumn = at == fieldNames.end() ? -1 : int(at - fieldNames.begin());
        }
        if (at != fieldNames.end()) {
            writer.m_fields.push_back(int(at - fieldNames.begin()));
            writer.m_columns.push_back(column);
        }
    }
    if (keys != 1 || writer.m_keyColumn < 0)
        return std::nullopt;
    writer.m_table = shape->table;
    return writer;
}

bool TableWriter::isWritable(int field) const
{
    return field != m_keyColumn
        && std::find(m_fields.begin(), m_fields.end(), field) != m_fields.end();
}

QVariant TableWriter::insert(const QVariantList &values) const
{
    QStringList columns;
    QVariantList bound;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const int field = m_fields[i];
        if (field == m_keyColumn || values.value(field).isNull())
            continue;
        columns << quoted(m_columns[i]);
        bound << values.value(field);
    }
    QSqlQuery query(m_db);
    const QString table = quoted(m_table);
    const QString text = columns.isEmpty()
        ? QString(u"INSERT INTO "_s + table + u" DEFAULT VALUES"_s)
        : u"INSERT INTO "_s + table + u" ("_s + columns.join(u", "_s) + u") VALUES ("_s
            + QStringList(columns.size(), u"?"_s).join(u", "_s) + u')';
    if (!query.prepare(text))
        refuse(query);
    for (const QVariant &value : bound)
        query.addBindValue(value);
    if (!query.exec())
        refuse(query);
    return query.lastInsertId();
}

void TableWriter::update(const QVariant &key, const QVariantList &before,
                         const QVariantList &after) const
{
    QStringList assignments;
    QVariantList bound;
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const int field = m_fields[i];
        if (field == m_keyColumn)
            continue;
        const QVariant was = before.value(field);
        const QVariant now = after.value(field);
        if (was.isNull() == now.isNull() && was == now)
            continue;
        assignments << quoted(m_columns[i]) + u" = ?"_s;
        bound << now;
    }
    if (assignments.isEmpty())
        return;
    QSqlQuery query(m_db);
    if (!query.prepare(u"UPDATE "_s + quoted(m_table) + u" SET "_s + assignments.join(u", "_s)
                       + u" WHERE "_s + quoted(m_keyField) + u" = ?"_s))
        refuse(query);
    for (const QVariant &value : bound)
        query.addBindValue(value);
    query.addBindValue(key);
    if (!query.exec())
        refuse(query);
}

void TableWriter::remove(const QVariant &key) const
{
    QSqlQuery query(m_db);
    if (!query.prepare(u"DELETE FROM "_s + quoted(m_table) + u" WHERE "_s + quoted(m_keyField)
                       + u" = ?"_s))
        refuse(query);
    query.addBindValue(key);
    if (!query.exec())
        refuse(query);
}

QVariantList TableWriter::reread(const QVariant &key, QVariantList values) const
{
    QStringList columns;
    for (const QString &column : m_columns)
        columns << quoted(column);
    QSqlQuery query(m_db);
    query.setForwardOnly(true);
    if (!query.prepare(u"SELECT "_s + columns.join(u", "_s) + u" FROM "_s + quoted(m_table)
                       + u" WHERE "_s + quoted(m_keyField) + u" = ?"_s))
        refuse(query);
    query.addBindValue(key);
    if (!query.exec())
        refuse(query);
    if (!query.next())
        return values;
    for (std::size_t i = 0; i < m_fields.size(); ++i)
        values[m_fields[i]] = query.value(int(i));
    return values;
}
