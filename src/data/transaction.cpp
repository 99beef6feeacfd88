#include "data/transaction.h"

#include "data/connection.h"

#include <QSqlError>

Transaction::Transaction(Connection &connection)
    : m_connection(connection)
{
    QSqlDatabase db = m_connection.database();
    if (!db.transaction())
        m_connection.fail(ProviderError::fromSqlError(db.lastError()));
}

Transaction::~Transaction()
{
    if (m_pending)
        m_connection.database().rollback();
}

void Transaction::commit()
{
    QSqlDatabase db = m_connection.database();
    if (!db.commit())
        m_connection.fail(ProviderError::fromSqlError(db.lastError()));
    m_pending = false;
}
