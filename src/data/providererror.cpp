#include "data/providererror.h"

#include <QSqlError>

using namespace Qt::StringLiterals;

namespace {

// SQLite's primary result codes that the catalogue's users can meet.
constexpr int SqliteBusy = 5;
constexpr int SqliteLocked = 6;

int numberFor(const QString &text, int sqliteCode)
{
    const int code = sqliteCode & 0xff;
    if (text.contains(u"UNIQUE constraint failed"_s) || text.contains(u"PRIMARY KEY"_s))
        return ProviderErrorNumber::DuplicateKey;
    if (text.contains(u"FOREIGN KEY constraint failed"_s))
        return ProviderErrorNumber::RelatedRecords;
    if (code == SqliteBusy || code == SqliteLocked || text.contains(u"database is locked"_s))
        return ProviderErrorNumber::FileLocked;
    if (text.contains(u"syntax error"_s) || text.contains(u"unrecognized token"_s)
        || text.contains(u"incomplete input"_s) || text.startsWith(u"no such"_s))
        return ProviderErrorNumber::Syntax;
    return ProviderErrorNumber::General;
}

} // namespace

ProviderError ProviderError::fromSqlError(const QSqlError &error)
{
    const int number = numberFor(error.databaseText(), error.nativeErrorCode().toInt());
    QString description = error.databaseText();
    if (description.isEmpty())
        description = error.text();
    return ProviderError{number, QString::number(number), description};
}

ProviderError ProviderError::fromSqlite(int code, const QString &message)
{
    const int number = numberFor(message, code);
    return ProviderError{number, QString::number(number), message};
}

ProviderError ProviderError::general(int number, const QString &description)
{
    return ProviderError{number, QString::number(number), description};
}
