#include "catalogueprobe.h"

#include "snapshot.h"

#include "catalogue/scopeddatabase.h"

#include <QFile>
#include <QSqlQuery>
#include <QVariant>

QStringList rowsOf(const QString &path)
{
    ScopedDatabase catalogue(path, ScopedDatabase::Mode::ReadOnly);
    return rowDump(catalogue.db());
}

qint64 scalarOf(const QString &path, const QString &sql)
{
    ScopedDatabase catalogue(path, ScopedDatabase::Mode::ReadOnly);
    QSqlQuery query(catalogue.db());
    if (!query.exec(sql) || !query.next())
        return -1;
    return query.value(0).toLongLong();
}

bool writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}
