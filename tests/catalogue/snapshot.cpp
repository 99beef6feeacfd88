#include "snapshot.h"

#include <QCryptographicHash>
#include <QFile>

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

using namespace Qt::StringLiterals;

QStringList rowDump(const QSqlDatabase &db)
{
    QStringList tables;
    QSqlQuery list(db);
    list.exec(u"SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid"_s);
    while (list.next())
        tables << list.value(0).toString();

    QStringList lines;
    for (const QString &table : tables) {
        QSqlQuery rows(db);
        rows.exec(u"SELECT * FROM \"%1\" ORDER BY rowid"_s.arg(table));
        while (rows.next()) {
            QStringList fields{table};
            for (int i = 0; i < rows.record().count(); ++i)
                fields << (rows.isNull(i) ? u"NULL"_s : rows.value(i).toString());
            lines << fields.join(u'|');
        }
    }
    return lines;
}

QByteArray fileFingerprint(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}
