#include "data/connection.h"

#include "data/catalogueformat.h"
#include "data/connectionstring.h"
#include "data/jetsql.h"
#include "data/recordset.h"
#include "data/textcollation.h"

#include <QRegularExpression>
#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

// Whether a statement is a query (its rows make a record set) rather than an action.
bool yieldsRows(const QString &statement)
{
    qsizetype i = 0;
    while (i < statement.size() && (statement.at(i).isSpace() || statement.at(i) == u'('))
        ++i;
    return statement.mid(i, 6).compare(u"select"_s, Qt::CaseInsensitive) == 0;
}

// The catalogue's stored queries order their rows too. Each one that does is shadowed, for
// this connection only, by a temporary view of the same name ordered by the program's
// collation, so the file itself never depends on it.
void shadowStoredQueries(const QSqlDatabase &db)
{
    static const QRegularExpression createView(uR"(^\s*CREATE\s+VIEW\s)"_s,
                                               QRegularExpression::CaseInsensitiveOption);
    QSqlQuery views(db);
    views.exec(u"SELECT sql FROM main.sqlite_master WHERE type = 'view'"_s);
    QStringList shadows;
    while (views.next()) {
        const QString definition = views.value(0).toString();
        const QString collated = JetSql::withOrderCollation(definition);
        if (collated != definition && createView.match(collated).hasMatch())
            shadows.append(QString(collated).replace(createView, u"CREATE TEMP VIEW "_s));
    }
    QSqlQuery create(db);
    for (const QString &shadow : std::as_const(shadows))
        create.exec(shadow); // should one fail, the file's own view still answers
}

} // namespace

Connection::Connection() = default;

Connection::~Connection()
{
    close();
}

void Connection::open(const QString &connectionString, const QString &user,
                      const QString &password)
{
    Q_UNUSED(user)
    Q_UNUSED(password)
    close();
    m_errors.clear();
    const QString path = ConnectionString::dataSource(connectionString);
    if (path.isEmpty())
        fail(ProviderError::general(ProviderErrorNumber::CannotOpen,
                                    u"The connection string names no catalogue file."_s));
    switch (CatalogueFormat::ofFile(path)) {
    case CatalogueFormat::Kind::Missing:
        fail(ProviderError::general(ProviderErrorNumber::CannotOpen,
                                    u"Could not find file '"_s + path + u"'."_s));
    case CatalogueFormat::Kind::Jet:
        fail(ProviderError::general(
            ProviderErrorNumber::NotACatalogue,
            u"'"_s + path
                + u"' is a catalogue in the older Jet format. Convert it first with: "
                  "shelvane-catalog import \""_s
                + path + u"\" <new catalogue file>"_s));
    case CatalogueFormat::Kind::Other:
        fail(ProviderError::general(ProviderErrorNumber::NotACatalogue,
                                    u"Unrecognized database format '"_s + path
                                        + u"': the file is not a Shelvane catalogue."_s));
    case CatalogueFormat::Kind::Sqlite:
        break;
    }

    if (const QSqlError error = m_handle.open(path, u"QSQLITE_BUSY_TIMEOUT=2000"_s);
        error.isValid())
        fail(ProviderError::fromSqlError(error));
    QSqlDatabase db = m_handle.database();
    QSqlQuery pragma(db);
    pragma.exec(u"PRAGMA foreign_keys = ON"_s);
    // Cannot fail with the SQLite driver; were it to, the statements that ask for the
    // collations would fail with SQLite's own message.
    TextCollation::registerOn(db);
    QSqlQuery probe(db);
    const bool read =
        probe.exec(u"SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = 'tblBook'"_s);
    if (!read || !probe.next()) {
        const ProviderError error = read
            ? ProviderError::general(ProviderErrorNumber::NotACatalogue,
                                     u"Unrecognized database format '"_s + path
                                         + u"': the file is not a Shelvane catalogue."_s)
            : ProviderError::fromSqlError(probe.lastError());
        probe = QSqlQuery();
        pragma = QSqlQuery();
        db = QSqlDatabase();
        m_handle.close();
        fail(error);
    }
    // A committed change must outlive a power cut. With the rollback journal (which keeps
    // the catalogue one file that can be copied, as WAL would not) a commit is the
    // journal's deletion; EXTRA makes that deletion reach the disk before the commit
    // returns, where FULL would leave a journal that can come back and undo it. Set once
    // the file is known to be readable, so that a locked file keeps the open waiting once.
    pragma.exec(u"PRAGMA journal_mode = DELETE"_s);
    pragma.exec(u"PRAGMA synchronous = EXTRA"_s);
    shadowStoredQueries(db);
    m_connectionString = connectionString;
    m_filePath = path;
}

void Connection::close()
{
    m_handle.close();
    m_connectionString.clear();
    m_filePath.clear();
}

bool Connection::isOpen() const
{
    return m_handle.isOpen();
}

QString Connection::connectionString() const
{
    return m_connectionString;
}

QString Connection::filePath() const
{
    return m_filePath;
}

std::unique_ptr<Recordset> Connection::execute(const QString &commandText, CommandType type,
                                               int *recordsAffected)
{
    m_errors.clear();
    if (recordsAffected)
        *recordsAffected = 0;
    if (!isOpen())
        fail(ProviderError::general(ProviderErrorNumber::InvalidOperation,
                                    u"Operation is not allowed when the object is closed."_s));
    if (type != CommandType::Text || yieldsRows(commandText))
        return Recordset::open(*this, commandText, type);

    QSqlQuery query(database());
    if (!query.exec(JetSql::toCollatedSqlite(commandText)))
        fail(ProviderError::fromSqlError(query.lastError()));
    if (recordsAffected)
        *recordsAffected = query.numRowsAffected();
    return nullptr;
}

const QList<ProviderError> &Connection::errors() const
{
    return m_errors;
}

QSqlDatabase Connection::database() const
{
    return m_handle.database();
}

void Connection::fail(const ProviderError &error)
{
    m_errors = {error};
    throw error;
}
