#include "catalogue/filereplacement.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

namespace {

bool syncHandle(int handle)
{
#ifdef Q_OS_WIN
    return _commit(handle) == 0;
#else
    return ::fsync(handle) == 0;
#endif
}

// A rename lasts once the folder that holds the name is on the disk too. Windows makes its
// folders last by itself and cannot open one as a file.
QString flushFolderOf(const QString &path)
{
#ifdef Q_OS_WIN
    Q_UNUSED(path)
    return {};
#else
    const QByteArray folder = QFile::encodeName(QFileInfo(path).absolutePath());
    const int handle = ::open(folder.constData(), O_RDONLY | O_DIRECTORY);
    if (handle < 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    const bool synced = ::fsync(handle) == 0;
    const int reason = errno;
    ::close(handle);
    return synced ? QString() : QString::fromLocal8Bit(std::strerror(reason));
#endif
}

} // namespace

namespace FileReplacement {

QString flushToDisk(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return file.errorString();
    if (!syncHandle(file.handle()))
        return QString::fromLocal8Bit(std::strerror(errno));
    return {};
}

QString renameOver(const QString &replacement, const QString &target)
{
    std::error_code failure;
    // Unlike QFile::rename, this replaces an existing target, in one step on both systems.
    std::filesystem::rename(QFileInfo(replacement).filesystemFilePath(),
                            QFileInfo(target).filesystemFilePath(), failure);
    if (failure)
        return QString::fromLocal8Bit(failure.message());
    return flushFolderOf(target);
}

QString replace(const QString &replacement, const QString &target)
{
    const QString problem = flushToDisk(replacement);
    return problem.isEmpty() ? renameOver(replacement, target) : problem;
}

} // namespace FileReplacement
