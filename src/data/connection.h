#pragma once

#include "data/privateconnection.h"
#include "data/providererror.h"

#include <QList>
#include <QSqlDatabase>
#include <QString>

#include <memory>

class Recordset;

// How a command text is read: a statement, a table's name (every row of it), or a stored
// query's name (every row of that view). The numbers are the ones the forms pass.
enum class CommandType { Text = 1, Table = 2, StoredProcedure = 4 };

// One connection to a catalogue file. Every connection has its own SQLite handle, enforces
// the catalogue's relations (foreign keys) and waits a while for a lock held by another one.
class Connection
{
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    // Opens the file named by the connection string's "Data Source". User and password are
    // accepted for the forms' sake and ignored. Throws ProviderError (also kept in errors())
    // when the file is missing, is not a catalogue, or is an older Jet catalogue.
    void open(const QString &connectionString, const QString &user = {},
              const QString &password = {});
    void close();
    bool isOpen() const;
    QString connectionString() const;
    QString filePath() const;

    // Runs a command through the Jet SQL translator. A statement that yields rows answers
    // with a record set over them (updatable when it reads one table that has a key); any
    // other statement answers with nullptr and sets *recordsAffected. Throws ProviderError.
    std::unique_ptr<Recordset> execute(const QString &commandText,
                                       CommandType type = CommandType::Text,
                                       int *recordsAffected = nullptr);

    // The errors of the last failed operation, the first carrying the SQL state.
    const QList<ProviderError> &errors() const;

    // The underlying database, for record sets opened on this connection.
    QSqlDatabase database() const;

    // Raises a ProviderError made from the database's last error, after recording it.
    [[noreturn]] void fail(const ProviderError &error);

private:
    PrivateConnection m_handle;
    QString m_connectionString;
    QString m_filePath;
    QList<ProviderError> m_errors;
};
