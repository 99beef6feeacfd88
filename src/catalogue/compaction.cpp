#include "catalogue/compaction.h"

#include "data/connectionstring.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

ExclusiveCatalogue::ExclusiveCatalogue(const QString &path)
{
    m_connection.open(ConnectionString::forCatalogue(path));
    // In exclusive locking mode the lock an empty exclusive transaction takes is kept until
    // the connection closes.
    QSqlQuery lock(m_connection.database());
    for (const QString &statement :
         {u"PRAGMA locking_mode = EXCLUSIVE"_s, u"BEGIN EXCLUSIVE"_s, u"COMMIT"_s}) {
        if (!lock.exec(statement))
            m_connection.fail(ProviderError::fromSqlError(lock.lastError()));
    }
}

ExclusiveCatalogue::~ExclusiveCatalogue() = default;

QStringList ExclusiveCatalogue::integrityProblems()
{
    QSqlQuery check(m_connection.database());
    // A file too damaged to be checked at all says so through the check's own error.
    if (!check.exec(u"PRAGMA integrity_check"_s))
        return {check.lastError().databaseText()};
    QStringList problems;
    while (check.next())
        problems << check.value(0).toString();
    if (problems == QStringList{u"ok"_s})
        return {};
    return problems;
}

void ExclusiveCatalogue::compactInto(const QString &destination)
{
    QSqlQuery vacuum(m_connection.database());
    vacuum.prepare(u"VACUUM INTO ?"_s);
    vacuum.addBindValue(destination);
    if (!vacuum.exec())
        m_connection.fail(ProviderError::fromSqlError(vacuum.lastError()));
}

void ExclusiveCatalogue::release()
{
    m_connection.close();
}

void compactCatalogue(const QString &source, const QString &destination)
{
    ExclusiveCatalogue(source).compactInto(destination);
}
