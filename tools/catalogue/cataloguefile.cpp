#include "catalogue/cataloguefile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

using namespace Qt::StringLiterals;

namespace CatalogueFile {
namespace {

// Opens a private connection for the lifetime of the object and removes it afterwards.
class ScopedDatabase
{
public:
    explicit ScopedDatabase(const QString &path)
        : m_name(u"catalogue-tool-"_s + QUuid::createUuid().toString(QUuid::WithoutBraces))
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, m_name);
        db.setDatabaseName(path);
        if (!db.open())
            throw CatalogueFileError(u"cannot open %1: %2"_s.arg(path, db.lastError().text()));
    }
    ~ScopedDatabase()
    {
        {
            QSqlDatabase db = QSqlDatabase::database(m_name, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(m_name);
    }
    ScopedDatabase(const ScopedDatabase &) = delete;
    ScopedDatabase &operator=(const ScopedDatabase &) = delete;

    QSqlDatabase db() const { return QSqlDatabase::database(m_name, false); }

private:
    QString m_name;
};

void build(const QString &path, const Filler &fill)
{
    ScopedDatabase scoped(path);
    QSqlDatabase db = scoped.db();
    exec(db, u"PRAGMA foreign_keys = ON"_s);
    exec(db, u"PRAGMA journal_mode = DELETE"_s);
    if (!db.transaction())
        throw CatalogueFileError(db.lastError().text());
    try {
        for (const QString &statement : schemaStatements())
            exec(db, statement);
        if (fill)
            fill(db);
        if (!db.commit())
            throw CatalogueFileError(db.lastError().text());
    } catch (...) {
        db.rollback();
        throw;
    }
}

} // namespace

QStringList schemaStatements()
{
    QFile file(u":/catalogue/catalogue.sql"_s);
    if (!file.open(QIODevice::ReadOnly))
        throw CatalogueFileError(u"the catalogue schema is missing from the program"_s);
    const QString text = QString::fromUtf8(file.readAll());
    QStringList statements;
    for (const QString &chunk : text.split(u"\n;;\n"_s)) {
        // A chunk may open with comments; SQLite skips them, but an all-comment chunk is no
        // statement at all.
        QString code;
        for (const QString &line : chunk.split(u'\n')) {
            if (!line.trimmed().startsWith(u"--"_s))
                code += line + u'\n';
        }
        if (!code.trimmed().isEmpty())
            statements << chunk.trimmed();
    }
    return statements;
}

void exec(QSqlDatabase &db, const QString &statement)
{
    QSqlQuery query(db);
    if (!query.exec(statement))
        throw CatalogueFileError(query.lastError().databaseText());
}

void create(const QString &path, bool overwrite, const Filler &fill)
{
    const QFileInfo target(path);
    if (target.exists() && target.isDir())
        throw CatalogueFileError(u"%1 is a folder"_s.arg(path));
    if (target.exists() && !overwrite)
        throw CatalogueFileError(u"%1 exists already (use --force to replace it)"_s.arg(path));
    const QDir folder = target.absoluteDir();
    if (!folder.exists())
        throw CatalogueFileError(u"the folder %1 does not exist"_s.arg(QDir::toNativeSeparators(folder.path())));

    const QString temporary = folder.filePath(
        u".%1.%2.tmp"_s.arg(target.fileName(), QUuid::createUuid().toString(QUuid::Id128)));
    try {
        build(temporary, fill);
    } catch (...) {
        QFile::remove(temporary);
        throw;
    }
    if (target.exists() && !QFile::remove(path)) {
        QFile::remove(temporary);
        throw CatalogueFileError(u"cannot replace %1"_s.arg(path));
    }
    if (!QFile::rename(temporary, path)) {
        QFile::remove(temporary);
        throw CatalogueFileError(u"cannot write %1"_s.arg(path));
    }
}

} // namespace CatalogueFile
