#include "killingvfs.h"

#include <QFile>
#include <QStringList>

#include <sqlite3.h>

#include <array>
#include <csignal>
#include <cstring>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace KillingVfs {
namespace {

constexpr int StepCount = 5;
const std::array<QString, StepCount> stepNames{u"journal-write"_s, u"journal-sync"_s,
                                               u"catalogue-write"_s, u"catalogue-sync"_s,
                                               u"journal-delete"_s};

sqlite3_vfs *real = nullptr;
sqlite3_vfs layer;
QByteArray catalogueName;
QByteArray journalName;
std::array<int, StepCount> taken{};
Step fatalStep = Step::JournalWrite;
int killAtCount = 0;

void take(Step step)
{
    const int count = ++taken[size_t(step)];
    if (killAtCount > 0 && step == fatalStep && count == killAtCount)
        ::kill(::getpid(), SIGKILL);
}

// A file of SQLite's, with the real file behind it.
struct File
{
    sqlite3_file base;
    sqlite3_file *real;
    bool catalogue; // the catalogue itself, or its journal
    bool watched;
};

sqlite3_file *realOf(sqlite3_file *file)
{
    return reinterpret_cast<File *>(file)->real;
}

int close(sqlite3_file *file)
{
    return realOf(file)->pMethods->xClose(realOf(file));
}

int read(sqlite3_file *file, void *buffer, int amount, sqlite3_int64 offset)
{
    return realOf(file)->pMethods->xRead(realOf(file), buffer, amount, offset);
}

int write(sqlite3_file *file, const void *buffer, int amount, sqlite3_int64 offset)
{
    const auto *own = reinterpret_cast<File *>(file);
    if (own->watched)
        take(own->catalogue ? Step::CatalogueWrite : Step::JournalWrite);
    return realOf(file)->pMethods->xWrite(realOf(file), buffer, amount, offset);
}

int truncate(sqlite3_file *file, sqlite3_int64 size)
{
    return realOf(file)->pMethods->xTruncate(realOf(file), size);
}

int sync(sqlite3_file *file, int flags)
{
    const auto *own = reinterpret_cast<File *>(file);
    if (own->watched)
        take(own->catalogue ? Step::CatalogueSync : Step::JournalSync);
    return realOf(file)->pMethods->xSync(realOf(file), flags);
}

int fileSize(sqlite3_file *file, sqlite3_int64 *size)
{
    return realOf(file)->pMethods->xFileSize(realOf(file), size);
}

int lock(sqlite3_file *file, int level)
{
    return realOf(file)->pMethods->xLock(realOf(file), level);
}

int unlock(sqlite3_file *file, int level)
{
    return realOf(file)->pMethods->xUnlock(realOf(file), level);
}

int checkReservedLock(sqlite3_file *file, int *result)
{
    return realOf(file)->pMethods->xCheckReservedLock(realOf(file), result);
}

int fileControl(sqlite3_file *file, int operation, void *argument)
{
    return realOf(file)->pMethods->xFileControl(realOf(file), operation, argument);
}

int sectorSize(sqlite3_file *file)
{
    return realOf(file)->pMethods->xSectorSize(realOf(file));
}

int deviceCharacteristics(sqlite3_file *file)
{
    return realOf(file)->pMethods->xDeviceCharacteristics(realOf(file));
}

// The rollback journal needs none of the shared-memory methods; they are not offered.
const sqlite3_io_methods methods = {
    1, close, read, write, truncate, sync, fileSize, lock, unlock, checkReservedLock,
    fileControl, sectorSize, deviceCharacteristics, nullptr, nullptr, nullptr, nullptr,
    nullptr, nullptr,
};

int open(sqlite3_vfs *, sqlite3_filename name, sqlite3_file *file, int flags, int *outFlags)
{
    auto *own = reinterpret_cast<File *>(file);
    own->real = reinterpret_cast<sqlite3_file *>(own + 1);
    own->catalogue = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    own->watched = name
        && ((own->catalogue && catalogueName == name)
            || ((flags & SQLITE_OPEN_MAIN_JOURNAL) && journalName == name));
    const int result = real->xOpen(real, name, own->real, flags, outFlags);
    own->base.pMethods = own->real->pMethods ? &methods : nullptr;
    return result;
}

int remove(sqlite3_vfs *, const char *name, int syncFolder)
{
    if (journalName == name)
        take(Step::JournalDelete);
    return real->xDelete(real, name, syncFolder);
}

int access(sqlite3_vfs *, const char *name, int flags, int *result)
{
    return real->xAccess(real, name, flags, result);
}

int fullPathname(sqlite3_vfs *, const char *name, int size, char *output)
{
    return real->xFullPathname(real, name, size, output);
}

} // namespace

void install(const QString &catalogue)
{
    catalogueName = QFile::encodeName(catalogue);
    journalName = catalogueName + "-journal";
    real = sqlite3_vfs_find(nullptr);
    // The rest of the real layer's entries take no notice of which layer calls them.
    layer = *real;
    layer.zName = "killing";
    layer.szOsFile = int(sizeof(File)) + real->szOsFile;
    layer.pNext = nullptr;
    layer.xOpen = open;
    layer.xDelete = remove;
    layer.xAccess = access;
    layer.xFullPathname = fullPathname;
    sqlite3_vfs_register(&layer, 1 /* the default from now on */);
}

void watch(Step step, int killAt)
{
    taken.fill(0);
    fatalStep = step;
    killAtCount = killAt;
}

QString counts()
{
    QStringList said;
    for (int step = 0; step < StepCount; ++step)
        said << u"%1=%2"_s.arg(stepNames[size_t(step)]).arg(taken[size_t(step)]);
    return said.join(u' ');
}

QString nameOf(Step step)
{
    return stepNames[size_t(step)];
}

bool stepNamed(const QString &name, Step *step)
{
    for (int i = 0; i < StepCount; ++i) {
        if (stepNames[size_t(i)] == name) {
            *step = Step(i);
            return true;
        }
    }
    return false;
}

} // namespace KillingVfs
