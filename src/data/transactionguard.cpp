#include "data/transactionguard.h"

#include "data/connection.h"

#include <QSqlDatabase>
#include <QSqlError>

TransactionGuard::TransactionGuard(Connection &connection)
    : m_connection(connection)
{
    QSqlDatabase db = m_connection.database();
    if (!db.transaction())
        m_connection.fail(ProviderError::fromSqlError(db.lastError()));
}

TransactionGuard::~TransactionGuard()
{
    if (m_open)
        m_connection.database().rollback();
}

void TransactionGuard::commit()
{
    QSqlDatabase db = m_connection.database();
    if (!db.commit()) {
        const QSqlError error = db.lastError();
        db.rollback();
        m_open = false;
        m_connection.fail(ProviderError::fromSqlError(error));
    }
    m_open = false;
}
