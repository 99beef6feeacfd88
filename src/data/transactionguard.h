#pragma once

class Connection;

// Runs the statements of one change as a whole: begun on construction, undone on
// destruction unless commit() was reached, so that a statement that throws leaves the
// catalogue as it was.
class TransactionGuard
{
public:
    // Throws ProviderError when the transaction cannot begin.
    explicit TransactionGuard(Connection &connection);
    ~TransactionGuard();
    TransactionGuard(const TransactionGuard &) = delete;
    TransactionGuard &operator=(const TransactionGuard &) = delete;

    // Throws ProviderError when the changes cannot be written; they are undone then.
    void commit();

private:
    Connection &m_connection;
    bool m_open = true;
};
