#include "catalogue/cataloguebackups.h"

#include "catalogue/filereplacement.h"
#include "data/sqlitehandle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>

#include <sqlite3.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>
#include <tuple>

using namespace Qt::StringLiterals;

namespace CatalogueBackups {
namespace {

// A writer that keeps the source busy for longer than this is waited for no more.
constexpr int BusyTimeoutMs = 2000;
constexpr int BusyRetries = 20;

struct CloseDatabase
{
    void operator()(sqlite3 *db) const { sqlite3_close_v2(db); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

QString messageOf(sqlite3 *db)
{
    return QString::fromUtf8(sqlite3_errmsg(db));
}

// "QuireshelfCatalog01 2024-05-01 14-03-59.mdb", and "... (2).mdb" for a second one made in
// the same second. The date and time sort as text.
QString backupName(const QFileInfo &catalogue, const QDateTime &when, int number)
{
    const QString stamp = when.toString(u"yyyy-MM-dd HH-mm-ss"_s);
    const QString numbered = number == 1 ? stamp : u"%1 (%2)"_s.arg(stamp).arg(number);
    return u"%1 %2.%3"_s.arg(catalogue.completeBaseName(), numbered, catalogue.suffix());
}

QRegularExpression backupPattern(const QFileInfo &catalogue)
{
    return QRegularExpression(
        u"^"_s + QRegularExpression::escape(catalogue.completeBaseName())
        + uR"( (\d{4}-\d\d-\d\d \d\d-\d\d-\d\d)(?: \((\d+)\))?\.)"_s
        + QRegularExpression::escape(catalogue.suffix()) + u"$"_s);
}

// Two copies of the program closing the same catalogue in the same second could still pick
// the same name; the later backup then replaces the earlier, a whole catalogue either way.
QString freshPath(const QString &catalogue, const QString &folder, const QDateTime &when)
{
    const QDir dir(folder);
    for (int number = 1;; ++number) {
        const QString path = dir.filePath(backupName(QFileInfo(catalogue), when, number));
        if (!QFileInfo::exists(path))
            return path;
    }
}

QString makeFolder(const QString &folder)
{
    std::error_code failure;
    std::filesystem::create_directories(QFileInfo(folder).filesystemAbsoluteFilePath(), failure);
    return failure ? QString::fromLocal8Bit(failure.message()) : QString();
}

QString integrityProblem(sqlite3 *db)
{
    sqlite3_stmt *check = nullptr;
    if (sqlite3_prepare_v2(db, "PRAGMA integrity_check", -1, &check, nullptr) != SQLITE_OK)
        return messageOf(db);
    QStringList problems;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(check)) == SQLITE_ROW)
        problems << QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(check, 0)));
    sqlite3_finalize(check);
    if (step != SQLITE_DONE)
        return messageOf(db);
    return problems == QStringList{u"ok"_s} ? QString() : problems.value(0);
}

QString backUp(sqlite3 *source, sqlite3 *target)
{
    sqlite3_backup *backup = sqlite3_backup_init(target, "main", source, "main");
    if (!backup)
        return messageOf(target);
    int step = SQLITE_OK;
    int busy = 0;
    do {
        step = sqlite3_backup_step(backup, -1);
        if (step == SQLITE_BUSY || step == SQLITE_LOCKED)
            sqlite3_sleep(BusyTimeoutMs / BusyRetries);
    } while (step == SQLITE_OK
             || ((step == SQLITE_BUSY || step == SQLITE_LOCKED) && ++busy < BusyRetries));
    sqlite3_backup_finish(backup);
    if (step != SQLITE_DONE)
        return QString::fromUtf8(sqlite3_errstr(step));
    return integrityProblem(target);
}

// Opens an existing file for reading and writing; answers SQLite's reason when it cannot.
QString openExisting(const QString &path, Database &db)
{
    sqlite3 *opened = nullptr;
    const int rc = sqlite3_open_v2(QFile::encodeName(path).constData(), &opened,
                                   SQLITE_OPEN_READWRITE, nullptr);
    db.reset(opened);
    if (rc == SQLITE_OK)
        return {};
    return opened ? messageOf(opened) : QString::fromUtf8(sqlite3_errstr(rc));
}

QString writePartial(sqlite3 *source, const QString &partial)
{
    // Made here, so that a folder that takes no file is said in the system's words (SQLite
    // says only that it cannot open it); an empty file is an empty database.
    if (QFile file(partial); !file.open(QIODevice::WriteOnly))
        return file.errorString();
    Database target;
    if (const QString problem = openExisting(partial, target); !problem.isEmpty())
        return problem;
    // The copy reaches the disk once, whole, before it takes its name: until then nothing
    // needs its journal or its syncs.
    sqlite3_exec(target.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF", nullptr,
                 nullptr, nullptr);
    return backUp(source, target.get());
}

QString copyThrough(sqlite3 *source, const QString &destination)
{
    const QString partial = destination + u".partial"_s;
    QFile::remove(partial);
    QString problem = writePartial(source, partial);
    if (problem.isEmpty())
        problem = FileReplacement::replace(partial, destination);
    if (!problem.isEmpty())
        QFile::remove(partial);
    return problem;
}

using Copier = std::function<QString(const QString &destination)>;

Made makeWith(const Copier &copy, const QString &catalogue, const QString &folder,
              const QDateTime &when)
{
    Made made{{}, folder, makeFolder(folder)};
    if (!made.ok())
        return made;
    const QString path = freshPath(catalogue, folder, when);
    made.problem = copy(path);
    if (made.ok())
        made.path = path;
    return made;
}

Copier fromFile(const QString &catalogue)
{
    return [catalogue](const QString &destination) { return copyChecked(catalogue, destination); };
}

Copier through(const QSqlDatabase &source)
{
    return [source](const QString &destination) {
        sqlite3 *handle = SqliteHandleOf(source);
        return handle ? copyThrough(handle, destination) : u"the catalogue is not open"_s;
    };
}

Made kept(const Made &made, const QString &catalogue)
{
    if (made.ok())
        prune(catalogue, made.folder, keptCount());
    return made;
}

} // namespace

int keptCount()
{
    bool ok = false;
    const int kept = QSettings().value(u"Backups/Keep"_s, DefaultKept).toInt(&ok);
    return ok ? std::max(kept, 1) : DefaultKept;
}

QString folderBeside(const QString &catalogue)
{
    return QFileInfo(catalogue).absoluteDir().filePath(u"Backups"_s);
}

Made make(const QString &catalogue, const QString &folder, const QDateTime &when)
{
    return makeWith(fromFile(catalogue), catalogue, folder, when);
}

Made makeThrough(const QSqlDatabase &source, const QString &catalogue, const QString &folder,
                 const QDateTime &when)
{
    return makeWith(through(source), catalogue, folder, when);
}

Made keep(const QString &catalogue, const QDateTime &when)
{
    return kept(make(catalogue, folderBeside(catalogue), when), catalogue);
}

Made keepThrough(const QSqlDatabase &source, const QString &catalogue, const QDateTime &when)
{
    return kept(makeThrough(source, catalogue, folderBeside(catalogue), when), catalogue);
}

QStringList listed(const QString &catalogue, const QString &folder)
{
    const QRegularExpression pattern = backupPattern(QFileInfo(catalogue));
    struct Backup
    {
        QString stamp;
        int number;
        QString path;
    };
    QList<Backup> backups;
    const QDir dir(folder);
    for (const QString &name : dir.entryList(QDir::Files)) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (match.hasMatch())
            backups.append({match.captured(1), match.captured(2).isEmpty() ? 1 : match.captured(2).toInt(),
                            dir.filePath(name)});
    }
    std::sort(backups.begin(), backups.end(), [](const Backup &a, const Backup &b) {
        return std::tie(a.stamp, a.number) < std::tie(b.stamp, b.number);
    });
    QStringList paths;
    for (const Backup &backup : std::as_const(backups))
        paths << backup.path;
    return paths;
}

void prune(const QString &catalogue, const QString &folder, int kept)
{
    const QStringList backups = listed(catalogue, folder);
    for (qsizetype i = 0; i + kept < backups.size(); ++i)
        QFile::remove(backups.at(i));
}

// The catalogue's own file, opened for writing so that a change left half-made by a program
// that stopped is undone first, as any connection does.
QString copyChecked(const QString &source, const QString &destination)
{
    Database db;
    if (const QString problem = openExisting(source, db); !problem.isEmpty())
        return problem;
    sqlite3_busy_timeout(db.get(), BusyTimeoutMs);
    return copyThrough(db.get(), destination);
}

} // namespace CatalogueBackups
