#include "data/recordsetprivate.h"

#include "data/providererror.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

using namespace Qt::StringLiterals;

void Recordset::Private::fetch()
{
    lazy = LazyRows::forSelect(sql);
    if (lazy && fetchKeys())
        return;
    lazy.reset();
    fetchAll();
}

// Reads only the keys, in order, when the select is over one table with a key.
bool Recordset::Private::fetchKeys()
{
    const std::optional<QStringList> found = lazy->fieldNames(*connection);
    if (!found)
        return false;
    const QStringList &names = *found;
    writer = TableWriter::forSelect(connection->database(), sql, names);
    if (!writer)
        return false;
    const std::optional<QVariantList> keys =
        lazy->readKeys(*connection, writer->keyField(), writer->keyColumn());
    if (!keys)
        return false;
    setFields(names);
    serials.clear();
    serials.reserve(std::size_t(keys->size()));
    QVariantList values(names.size());
    for (const QVariant &key : *keys) {
        values[writer->keyColumn()] = key;
        appendRow(values);
    }
    keyIndexValid = false;
    return true;
}

void Recordset::Private::fetchAll()
{
    QSqlQuery query(connection->database());
    query.setForwardOnly(true);
    if (!query.exec(sql))
        connection->fail(ProviderError::fromSqlError(query.lastError()));
    const QSqlRecord record = query.record();
    QStringList names;
    for (int i = 0; i < record.count(); ++i)
        names << record.fieldName(i);
    setFields(names);
    serials.clear();
    const int columns = int(names.size());
    QVariantList values;
    while (query.next()) {
        values.resize(columns);
        for (int i = 0; i < columns; ++i)
            values[i] = query.value(i);
        appendRow(values);
    }
    store.squeeze();
    serials.shrink_to_fit();
    writer = TableWriter::forSelect(connection->database(), sql, fields);
    keyIndexValid = false;
}

int Recordset::Private::field(const QString &name) const
{
    const auto it = fieldByName.constFind(name.toLower());
    if (it == fieldByName.cend())
        throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                     u"Item cannot be found in the collection corresponding to "
                                     "the requested name or ordinal."_s);
    return it.value();
}

void Recordset::Private::checkField(int index) const
{
    if (index < 0 || index >= fields.size())
        throw ProviderError::general(ProviderErrorNumber::ItemNotFound,
                                     u"Item cannot be found in the collection corresponding to "
                                     "the requested name or ordinal."_s);
}

int Recordset::Private::rowOf(qint64 key) const
{
    if (!keyIndexValid) {
        keyIndex.clear();
        keyIndex.reserve(count());
        const int column = writer->keyColumn();
        for (int r = count() - 1; r >= 0; --r)
            keyIndex.insert(store.value(r, column).toLongLong(), r);
        keyIndexValid = true;
    }
    return keyIndex.value(key, -1);
}

void Recordset::Private::setFields(const QStringList &names)
{
    fields = names;
    fieldByName.clear();
    for (int i = names.size() - 1; i >= 0; --i)
        fieldByName.insert(names.at(i).toLower(), i);
    store.reset(int(names.size()));
}

void Recordset::Private::appendRow(const QVariantList &values)
{
    store.appendRow(values);
    serials.push_back(nextSerial++);
}

// Makes sure a row's fields have been read.
void Recordset::Private::read(int row) const
{
    if (lazy && row >= 0 && row < count() && !lazy->isRead(row))
        lazy->readPage(*connection, store, row);
}
