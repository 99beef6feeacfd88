#pragma once

#include "catalogue/scopeddatabase.h"

#include <QFile>
#include <QSqlQuery>
#include <QString>
#include <QTemporaryDir>
#include <QVariant>

// The Jet files the import is tested on (see testdata/jet/README.md).
inline QString jetFixture(const QString &name)
{
    return QStringLiteral(SHELVANE_JET_TESTDATA "/") + name;
}

// The older catalogue every import test starts from.
inline const QString catalogueFixture = QStringLiteral("QuireshelfCatalog01.mdb");

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

// The first value of a query on a catalogue file, opened read-only; null when there is none.
inline QVariant scalar(const QString &path, const QString &sql)
{
    ScopedDatabase file(path, ScopedDatabase::Mode::ReadOnly);
    QSqlQuery query(file.db());
    if (!query.exec(sql) || !query.next())
        return {};
    return query.value(0);
}
