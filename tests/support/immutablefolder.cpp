#include "support/immutablefolder.h"

#include <QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

QString setImmutable(const QString &path, bool immutable)
{
    const int handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    if (handle < 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    int flags = 0;
    bool done = ::ioctl(handle, FS_IOC_GETFLAGS, &flags) == 0;
    if (done) {
        flags = immutable ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
        done = ::ioctl(handle, FS_IOC_SETFLAGS, &flags) == 0;
    }
    const int reason = errno;
    ::close(handle);
    return done ? QString() : QString::fromLocal8Bit(std::strerror(reason));
}

ImmutableFolder::ImmutableFolder(const QString &path)
    : m_path(path)
    , m_problem(setImmutable(path, true))
{
}

ImmutableFolder::~ImmutableFolder()
{
    if (isImmutable())
        setImmutable(m_path, false);
}
