#pragma once

class Connection;

// Runs the statements of one batch on a connection as a whole: begun when made, rolled back
// when destroyed unless commit() came first, so that a failing statement (which throws)
// leaves the catalogue as it was before the batch.
class TransactionGuard
{
public:
    // Throws ProviderError when the transaction cannot begin.
    explicit TransactionGuard(Connection &connection);
    ~TransactionGuard();
    TransactionGuard(const TransactionGuard &) = delete;
    TransactionGuard &operator=(const TransactionGuard &) = delete;

    // Throws ProviderError when the catalogue refuses the commit; the batch is then undone.
    void commit();

private:
    Connection &m_connection;
    bool m_open = true;
};
