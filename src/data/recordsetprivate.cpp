#include "data/recordsetprivate.h"

#include "data/providererror.h"
#include "data/sqlitestatement.h"

using namespace Qt::StringLiterals;

void Recordset::Private::fetch()
{
    lazy.reset();
    if (!readWhole) {
        lazy = LazyRows::forSelect(sql);
        if (!lazy)
            lazy = LazyRows::forJoin(sql);
    }
    if (lazy && fetchKeys())
        return;
    lazy.reset();
    fetchAll();
}

// Reads only the keys, in order, when the select is over one table with a key.
bool Recordset::Private::fetchKeys()
{
    const std::optional<QStringList> names = lazy->fieldNames(*connection);
    if (!names)
        return false;
    const std::optional<std::vector<qint64>> keys = lazy->readKeys(*connection);
    if (!keys)
        return false;
    setFields(*names);
    writer = TableWriter::forSelect(connection->database(), sql, fields);
    store.appendKeyRows(lazy->keyColumn(), *keys);
    serials.clear();
    serials.reserve(keys->size());
    for (std::size_t i = 0; i < keys->size(); ++i)
        serials.push_back(nextSerial++);
    keyIndexValid = false;
    return true;
}

void Recordset::Private::fetchAll()
{
    SqliteStatement query(*connection, sql);
    setFields(query.columnNames());
    serials.clear();
    while (query.next()) {
        store.appendRow(query.cells());
        serials.push_back(nextSerial++);
    }
    store.squeeze();
    serials.shrink_to_fit();
    writer = TableWriter::forSelect(connection->database(), sql, fields);
    keyIndexValid = false;
}

int Recordset::Private::keyColumn() const
{
    if (lazy)
        return lazy->keyColumn();
    return writer ? writer->keyColumn() : -1;
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
        const int column = keyColumn();
        for (int r = count() - 1; r >= 0; --r)
            keyIndex.insert(store.value(r, column).toLongLong(), r);
        keysUnique = keyIndex.size() == count();
        keyIndexValid = true;
    }
    return keyIndex.value(key, -1);
}

bool Recordset::Private::eachKeyOnce() const
{
    rowOf(0);
    return keysUnique;
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
