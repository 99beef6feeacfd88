#include "catalogue/cataloguehold.h"

#include "data/providererror.h"

#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

CatalogueHold::CatalogueHold(const QString &catalogue, std::chrono::milliseconds patience)
    : m_lock(catalogue, CatalogueLock::Mode::Shared, patience)
{
    if (m_lock.inUse())
        throw ProviderError::general(ProviderErrorNumber::FileLocked,
                                     u"'"_s + catalogue
                                         + u"' is being replaced by another copy of Shelvane "
                                           "(compacted or restored); try again when it is done."_s);
    // A connection of its own that never writes: SQLite's data version of a connection
    // moves with every commit made by any other connection to the file.
    m_watch.open(catalogue, u"QSQLITE_BUSY_TIMEOUT=2000"_s);
    m_takenAt = dataVersion();
}

CatalogueHold::~CatalogueHold() = default;

bool CatalogueHold::changedSinceTaken() const
{
    const qint64 now = dataVersion();
    return now < 0 || m_takenAt < 0 || now != m_takenAt;
}

qint64 CatalogueHold::dataVersion() const
{
    QSqlQuery version(m_watch.database());
    if (!version.exec(u"PRAGMA data_version"_s) || !version.next())
        return -1;
    return version.value(0).toLongLong();
}
