#include "catalogue/cataloguelock.h"

#include <QFile>

#include <thread>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds RetryEvery(20);

constexpr qintptr NoHandle = -1;

enum class Attempt { Held, Busy, NoLockFile };

#ifdef Q_OS_WIN

Attempt tryLock(const QString &lockFile, CatalogueLock::Mode mode, qintptr &handle)
{
    // Windows keeps the lock file: a file that other copies have open cannot be removed.
    const HANDLE file = CreateFileW(reinterpret_cast<const wchar_t *>(lockFile.utf16()),
                                    GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return Attempt::NoLockFile;
    OVERLAPPED start = {};
    const DWORD flags = LOCKFILE_FAIL_IMMEDIATELY
        | (mode == CatalogueLock::Mode::Exclusive ? LOCKFILE_EXCLUSIVE_LOCK : 0);
    if (!LockFileEx(file, flags, 0, 1, 0, &start)) {
        const DWORD reason = GetLastError();
        CloseHandle(file);
        return reason == ERROR_LOCK_VIOLATION ? Attempt::Busy : Attempt::NoLockFile;
    }
    handle = reinterpret_cast<qintptr>(file);
    return Attempt::Held;
}

void unlock(const QString &, qintptr handle)
{
    const HANDLE file = reinterpret_cast<HANDLE>(handle);
    OVERLAPPED start = {};
    UnlockFileEx(file, 0, 1, 0, &start);
    CloseHandle(file);
}

#else

// Whether the descriptor is still the file of that name: the last holder may have removed
// it between our opening it and our lock being granted.
bool stillNamed(int handle, const QByteArray &name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(handle, &opened) == 0 && ::stat(name.constData(), &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

Attempt tryLock(const QString &lockFile, CatalogueLock::Mode mode, qintptr &handle)
{
    const QByteArray name = QFile::encodeName(lockFile);
    for (;;) {
        int file = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        // A lock file another user made: locking needs no right to write it.
        if (file < 0 && errno == EACCES)
            file = ::open(name.constData(), O_RDONLY | O_CLOEXEC);
        if (file < 0)
            return Attempt::NoLockFile;
        const int operation = mode == CatalogueLock::Mode::Exclusive ? LOCK_EX : LOCK_SH;
        if (::flock(file, operation | LOCK_NB) != 0) {
            const int reason = errno;
            ::close(file);
            // Where the system has no locks to give (some network folders), none are held.
            return reason == EWOULDBLOCK ? Attempt::Busy : Attempt::NoLockFile;
        }
        if (stillNamed(file, name)) {
            handle = file;
            return Attempt::Held;
        }
        ::close(file);
    }
}

void unlock(const QString &lockFile, qintptr handle)
{
    const int file = int(handle);
    // Only a holder alone may remove the file: a copy still holding it shared keeps it, and
    // one waiting for it finds it gone and makes a new one.
    if (::flock(file, LOCK_EX | LOCK_NB) == 0)
        ::unlink(QFile::encodeName(lockFile).constData());
    ::close(file);
}

#endif

} // namespace

CatalogueLock::CatalogueLock(const QString &catalogue, Mode mode,
                             std::chrono::milliseconds patience)
    : m_lockFile(lockFilePath(catalogue))
{
    const auto deadline = Clock::now() + patience;
    for (;;) {
        switch (tryLock(m_lockFile, mode, m_handle)) {
        case Attempt::Held:
        case Attempt::NoLockFile:
            return;
        case Attempt::Busy:
            break;
        }
        if (Clock::now() >= deadline) {
            m_inUse = true;
            return;
        }
        std::this_thread::sleep_for(RetryEvery);
    }
}

CatalogueLock::~CatalogueLock()
{
    release();
}

void CatalogueLock::release()
{
    if (m_handle == NoHandle)
        return;
    unlock(m_lockFile, m_handle);
    m_handle = NoHandle;
}

QString CatalogueLock::lockFilePath(const QString &catalogue)
{
    return catalogue + u".lock"_s;
}
