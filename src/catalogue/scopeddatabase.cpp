#include "catalogue/scopeddatabase.h"

#include "catalogue/cataloguefile.h"

using namespace Qt::StringLiterals;

ScopedDatabase::ScopedDatabase(const QString &path, Mode mode)
{
    const QSqlError error =
        m_handle.open(path, mode == Mode::ReadOnly ? u"QSQLITE_OPEN_READONLY"_s : QString());
    if (error.isValid())
        throw CatalogueFileError(error.databaseText());
}

ScopedDatabase::~ScopedDatabase() = default;

QSqlDatabase ScopedDatabase::db() const
{
    return m_handle.database();
}
