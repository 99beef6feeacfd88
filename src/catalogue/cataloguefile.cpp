#include "catalogue/cataloguefile.h"

#include "catalogue/scopeddatabase.h"
#include "catalogue/cataloguelock.h"
#include "catalogue/filereplacement.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <QSqlQuery>
#include <QUuid>

#include <optional>

using namespace Qt::StringLiterals;

namespace CatalogueFile {
namespace {

// The new catalogue under its temporary name: removed, with any journal SQLite left beside
// it, unless it was kept by being renamed into place.
class TemporaryCatalogue
{
public:
    explicit TemporaryCatalogue(const QString &path) : m_path(path) {}
    ~TemporaryCatalogue()
    {
        if (!m_kept) {
            QFile::remove(m_path);
            QFile::remove(m_path + u"-journal"_s);
        }
    }
    TemporaryCatalogue(const TemporaryCatalogue &) = delete;
    TemporaryCatalogue &operator=(const TemporaryCatalogue &) = delete;

    const QString &path() const { return m_path; }
    void keep() { m_kept = true; }

private:
    QString m_path;
    bool m_kept = false;
};

void build(const QString &path, const Filler &fill)
{
    ScopedDatabase scoped(path);
    QSqlDatabase db = scoped.db();
    exec(db, u"PRAGMA foreign_keys = ON"_s);
    exec(db, u"PRAGMA journal_mode = DELETE"_s);
    if (!db.transaction())
        throw CatalogueFileError(db.lastError().databaseText());
    try {
        applySchema(db);
        if (fill)
            fill(db);
        if (!db.commit())
            throw CatalogueFileError(db.lastError().databaseText());
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

void applySchema(QSqlDatabase &db)
{
    for (const QString &statement : schemaStatements())
        exec(db, statement);
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

    // A copy of the program that has the catalogue open would go on writing into the file
    // this one replaces, and its edits would be lost.
    std::optional<CatalogueLock> alone;
    if (target.exists()) {
        alone.emplace(path, CatalogueLock::Mode::Exclusive);
        if (alone->inUse())
            throw CatalogueFileError(u"%1 is open in Shelvane: close it there first"_s.arg(path));
    }

    TemporaryCatalogue temporary(folder.filePath(
        u".%1.%2.tmp"_s.arg(target.fileName(), QUuid::createUuid().toString(QUuid::Id128))));
    try {
        build(temporary.path(), fill);
    } catch (const CatalogueFileError &e) {
        throw CatalogueFileError(u"cannot make %1: %2"_s.arg(path, e.message()));
    }
    // There is always a whole catalogue under the requested name, the old one or the new one.
    const QString problem = FileReplacement::replace(temporary.path(), path);
    if (!problem.isEmpty())
        throw CatalogueFileError(u"cannot write %1: %2"_s.arg(path, problem));
    temporary.keep();
}

} // namespace CatalogueFile
