#include "data/sqlitestatement.h"

#include "data/connection.h"
#include "data/providererror.h"
#include "data/sqlitehandle.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace {

// SQLite's message for the last failure on a handle, and its result code.
ProviderError lastError(sqlite3 *handle, int code)
{
    return ProviderError::fromSqlite(code, handle ? QString::fromUtf8(sqlite3_errmsg(handle))
                                                  : u"Driver not loaded"_s);
}

} // namespace

int SqliteStatement::prepare(sqlite3 *handle, const QString &text, sqlite3_stmt **statement)
{
    *statement = nullptr;
    if (!handle)
        return SQLITE_MISUSE;
    const QByteArray utf8 = text.toUtf8();
    const int result =
        sqlite3_prepare_v2(handle, utf8.constData(), int(utf8.size()), statement, nullptr);
    if (result != SQLITE_OK) {
        sqlite3_finalize(*statement);
        *statement = nullptr;
    }
    return result;
}

SqliteStatement::SqliteStatement(Connection &connection, sqlite3_stmt *statement)
    : m_connection(connection)
    , m_statement(statement)
    , m_cells(std::size_t(columnCount()))
{
}

SqliteStatement::SqliteStatement(Connection &connection, const QString &text)
    : m_connection(connection)
{
    sqlite3 *handle = SqliteHandleOf(connection.database());
    const int result = prepare(handle, text, &m_statement);
    if (result != SQLITE_OK)
        connection.fail(lastError(handle, result));
    m_cells.resize(std::size_t(columnCount()));
}

std::unique_ptr<SqliteStatement> SqliteStatement::tryPrepare(Connection &connection,
                                                             const QString &text)
{
    sqlite3_stmt *statement = nullptr;
    if (prepare(SqliteHandleOf(connection.database()), text, &statement) != SQLITE_OK)
        return nullptr;
    return std::unique_ptr<SqliteStatement>(new SqliteStatement(connection, statement));
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_finalize(m_statement);
}

void SqliteStatement::bind(int parameter, const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    const int result = sqlite3_bind_text(m_statement, parameter, utf8.constData(),
                                         int(utf8.size()), SQLITE_TRANSIENT);
    if (result != SQLITE_OK)
        fail();
}

bool SqliteStatement::next()
{
    if (!m_statement)
        return false; // a text of blanks or comments: no rows
    const int result = sqlite3_step(m_statement);
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        fail();
    return false;
}

void SqliteStatement::fail() const
{
    sqlite3 *handle = sqlite3_db_handle(m_statement);
    m_connection.fail(lastError(handle, sqlite3_errcode(handle)));
}

int SqliteStatement::columnCount() const
{
    return m_statement ? sqlite3_column_count(m_statement) : 0;
}

QStringList SqliteStatement::columnNames() const
{
    QStringList names;
    for (int column = 0; column < columnCount(); ++column)
        names << QString::fromUtf8(sqlite3_column_name(m_statement, column));
    return names;
}

QVariant SqliteStatement::value(int column) const
{
    switch (sqlite3_column_type(m_statement, column)) {
    case SQLITE_INTEGER:
        return QVariant(qint64(sqlite3_column_int64(m_statement, column)));
    case SQLITE_FLOAT:
        return QVariant(sqlite3_column_double(m_statement, column));
    case SQLITE_BLOB: {
        const auto *bytes = static_cast<const char *>(sqlite3_column_blob(m_statement, column));
        return QByteArray(bytes, sqlite3_column_bytes(m_statement, column));
    }
    case SQLITE_NULL:
        return QVariant(QMetaType::fromType<QString>());
    default: {
        const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
        return QString::fromUtf8(text, sqlite3_column_bytes(m_statement, column));
    }
    }
}

qint64 SqliteStatement::integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

bool SqliteStatement::isInteger(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_INTEGER;
}

std::span<const RowStore::Cell> SqliteStatement::cells()
{
    using Type = RowStore::Cell::Type;
    for (int column = 0; column < int(m_cells.size()); ++column) {
        RowStore::Cell &cell = m_cells[std::size_t(column)];
        cell.other = QVariant();
        switch (sqlite3_column_type(m_statement, column)) {
        case SQLITE_INTEGER:
            cell.type = Type::Integer;
            cell.integer = sqlite3_column_int64(m_statement, column);
            break;
        case SQLITE_FLOAT:
            cell.type = Type::Real;
            cell.real = sqlite3_column_double(m_statement, column);
            break;
        case SQLITE_TEXT: {
            cell.type = Type::Text;
            const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(m_statement, column));
            cell.text = QByteArrayView(text, sqlite3_column_bytes(m_statement, column));
            break;
        }
        case SQLITE_NULL:
            cell.type = Type::Null;
            cell.other = value(column);
            break;
        default:
            cell.type = Type::Other;
            cell.other = value(column);
            break;
        }
    }
    return m_cells;
}
