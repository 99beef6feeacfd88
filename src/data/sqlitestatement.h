#pragma once

#include "data/rowstore.h"

#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>
#include <span>
#include <vector>

class Connection;
struct sqlite3;
struct sqlite3_stmt;

// A statement read straight from its connection's SQLite handle, forward only. Record sets
// read thousands of rows at once, and Qt's driver would make a QVariant and a UTF-16 copy of
// every value on the way; this hands each value over as SQLite holds it (text as UTF-8). The
// values are those the driver gives: whole numbers as qint64, reals as double, text as
// QString, blobs as QByteArray, and a Null as the driver's null text; the columns are named
// as the driver names them.
class SqliteStatement
{
public:
    // Prepares the statement. Throws ProviderError, kept in the connection's errors, when
    // the catalogue refuses it.
    SqliteStatement(Connection &connection, const QString &text);
    // The same, or nullptr when the catalogue refuses it, for a caller with another way.
    static std::unique_ptr<SqliteStatement> tryPrepare(Connection &connection,
                                                       const QString &text);
    ~SqliteStatement();
    SqliteStatement(const SqliteStatement &) = delete;
    SqliteStatement &operator=(const SqliteStatement &) = delete;

    // Binds a text to the n-th parameter (from 1).
    void bind(int parameter, const QString &text);
    // Moves to the next row; false after the last. Throws ProviderError, kept in the
    // connection's errors, when the catalogue fails to give it.
    bool next();

    int columnCount() const;
    QStringList columnNames() const;
    QVariant value(int column) const;
    qint64 integer(int column) const;
    // Whether the value is a whole number (not a Null, a real or a text).
    bool isInteger(int column) const;
    // The row's values as cells for a RowStore, valid until the next move.
    std::span<const RowStore::Cell> cells();

private:
    SqliteStatement(Connection &connection, sqlite3_stmt *statement);
    // SQLite's result code; *statement is null unless it is SQLITE_OK.
    static int prepare(sqlite3 *handle, const QString &text, sqlite3_stmt **statement);
    [[noreturn]] void fail() const;

    Connection &m_connection;
    sqlite3_stmt *m_statement = nullptr;
    std::vector<RowStore::Cell> m_cells;
};
