#include "catalogue/scopeddatabase.h"

#include "catalogue/cataloguefile.h"

#include <QSqlError>
#include <QUuid>

using namespace Qt::StringLiterals;

ScopedDatabase::ScopedDatabase(const QString &path, Mode mode)
    : m_name(u"catalogue-tool-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
{
    QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
    db.setDatabaseName(path);
    if (mode == Mode::ReadOnly)
        db.setConnectOptions(u"QSQLITE_OPEN_READONLY"_s);
    if (!db.open())
        throw CatalogueFileError(db.lastError().databaseText());
}

ScopedDatabase::~ScopedDatabase()
{
    {
        QSqlDatabase db = QSqlDatabase::database(m_name, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(m_name);
}

QSqlDatabase ScopedDatabase::db() const
{
    return QSqlDatabase::database(m_name, false);
}
