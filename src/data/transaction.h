#pragma once

class Connection;

// One transaction on a connection, begun when made. Leaving the scope without commit() (a
// statement that threw on the way) rolls it back, so a failed change leaves the catalogue as
// it was.
class Transaction
{
public:
    // Throws ProviderError when the transaction cannot begin.
    explicit Transaction(Connection &connection);
    ~Transaction();
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;

    // Throws ProviderError when the commit fails; the destructor then rolls back.
    void commit();

private:
    Connection &m_connection;
    bool m_pending = true;
};
