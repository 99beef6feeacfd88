#pragma once

#include <QSqlDatabase>
#include <QStringList>
#include <QVariant>

#include <optional>
#include <vector>

// Writes a record set's edits back to the one table it reads, by key, with bound
// parameters: the text a user typed never becomes part of a statement.
class TableWriter
{
public:
    // The writer for a select that reads one table with a single-column key (or the
    // "table.*" columns of the first table of a join); none for anything else.
    static std::optional<TableWriter> forSelect(const QSqlDatabase &db, const QString &select,
                                                const QStringList &fieldNames);

    QString table() const { return m_table; }
    QString keyField() const { return m_keyField; }
    int keyColumn() const { return m_keyColumn; }
    bool isWritable(int field) const;

    // Each throws ProviderError when the catalogue refuses; nothing is half written.
    QVariant insert(const QVariantList &values) const;
    void update(const QVariant &key, const QVariantList &before, const QVariantList &after) const;
    void remove(const QVariant &key) const;
    // The row as the table now holds it (defaults and rounding applied); fields from other
    // tables keep the values given.
    QVariantList reread(const QVariant &key, QVariantList values) const;

private:
    QSqlDatabase m_db;
    QString m_table;
    QString m_keyField;
    int m_keyColumn = -1;
    std::vector<int> m_fields;      // record-set field index of each table column read
    std::vector<QString> m_columns; // the table's spelling of those columns
};
