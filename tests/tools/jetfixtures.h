#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

// The Jet files the import is tested on (see testdata/jet/README.md).
inline QString jetFixture(const QString &name)
{
    return QStringLiteral(SHELVANE_JET_TESTDATA "/") + name;
}

// A copy of a fixture named old.mdb in `dir`, cut after `size` bytes unless `size` is
// negative; empty when it cannot be made.
inline QString jetFixtureCopy(const QTemporaryDir &dir, const QString &name, qint64 size = -1)
{
    QFile source(jetFixture(name));
    const QString path = dir.filePath(QStringLiteral("old.mdb"));
    QFile copy(path);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly))
        return {};
    const QByteArray bytes = size < 0 ? source.readAll() : source.read(size);
    return copy.write(bytes) == bytes.size() ? path : QString();
}
