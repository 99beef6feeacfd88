#include "cataloguedamage.h"

#include "catalogue/scopeddatabase.h"

#include <QFile>
#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

QString damageLinkIndex(const QString &path)
{
    qint64 pageSize = 0;
    qint64 rootPage = 0;
    {
        ScopedDatabase catalogue(path, ScopedDatabase::Mode::ReadOnly);
        QSqlQuery query(catalogue.db());
        if (!query.exec(u"PRAGMA page_size"_s) || !query.next())
            return u"no page size"_s;
        pageSize = query.value(0).toLongLong();
        if (!query.exec(u"SELECT rootpage FROM sqlite_master WHERE name = 'idxBookTopicTopic'"_s)
            || !query.next())
            return u"no index idxBookTopicTopic"_s;
        rootPage = query.value(0).toLongLong();
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return file.errorString();
    // The last byte of an index page is the row number of the entry stored first.
    const qint64 lastByte = rootPage * pageSize - 1;
    char byte = 0;
    if (!file.seek(lastByte) || !file.getChar(&byte) || !file.seek(lastByte))
        return file.errorString();
    if (!file.putChar(char(byte ^ 0x40)))
        return file.errorString();
    return {};
}
