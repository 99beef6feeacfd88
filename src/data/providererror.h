#pragma once

#include <QString>

class QSqlError;

// A failure reported by the catalogue, in the terms the forms test: the SQL state "3022"
// for a duplicate key, "3200" for a delete refused by related rows, "3356" for a file
// locked by another process; anything else carries SQLite's own message.
struct ProviderError
{
    int number = 0;
    QString sqlState;
    QString description;

    static ProviderError fromSqlError(const QSqlError &error);
    // A result code and message of SQLite itself, for statements read straight from it.
    static ProviderError fromSqlite(int code, const QString &message);
    // Errors of this layer itself (a bad criterion, a move past the end, ...).
    static ProviderError general(int number, const QString &description);
};

namespace ProviderErrorNumber {
inline constexpr int DuplicateKey = 3022;
inline constexpr int RelatedRecords = 3200;
inline constexpr int FileLocked = 3356;
inline constexpr int Syntax = 3075;
inline constexpr int General = 3001;
inline constexpr int NoCurrentRecord = 3021;
inline constexpr int CannotOpen = 3024;
inline constexpr int NotACatalogue = 3343;
inline constexpr int ReadOnly = 3251;
inline constexpr int InvalidOperation = 3219;
inline constexpr int ItemNotFound = 3265;
inline constexpr int ObjectClosed = 3704;
// Reported by a data control when a bound record set cannot be fetched; the forms suppress it.
inline constexpr int FetchFailed = 3661;
} // namespace ProviderErrorNumber
