#include "data/sqlitehandle.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>

sqlite3 *SqliteHandleOf(const QSqlDatabase &database)
{
    const QVariant handle = database.driver() ? database.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}
