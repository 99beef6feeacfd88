#include "support/schemaedit.h"

#include <QRegularExpression>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

QString AllowNulls(const QSqlDatabase &db, const QString &table, const QString &column)
{
    QSqlQuery query(db);
    if (!query.exec(u"SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = '"_s + table
                    + u"'"_s)
        || !query.next())
        return u"No table "_s + table;
    QString declaration = query.value(0).toString();
    const QRegularExpression notNull(u"(\\b"_s + column + u"\\b[^,]*?)\\s+NOT NULL"_s,
                                     QRegularExpression::CaseInsensitiveOption);
    if (!declaration.contains(notNull))
        return column + u" is not declared NOT NULL"_s;
    declaration.replace(notNull, u"\\1"_s);

    if (!query.exec(u"PRAGMA schema_version"_s) || !query.next())
        return query.lastError().text();
    const qlonglong version = query.value(0).toLongLong();
    QSqlQuery edit(db);
    edit.exec(u"PRAGMA writable_schema = ON"_s);
    edit.prepare(u"UPDATE sqlite_schema SET sql = ? WHERE type = 'table' AND name = ?"_s);
    edit.addBindValue(declaration);
    edit.addBindValue(table);
    const bool edited = edit.exec();
    const QString problem = edited ? QString() : edit.lastError().text();
    // A new schema version makes every open connection read the declaration again.
    edit.exec(u"PRAGMA schema_version = "_s + QString::number(version + 1));
    edit.exec(u"PRAGMA writable_schema = OFF"_s);
    return problem;
}
