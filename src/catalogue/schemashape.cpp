#include "catalogue/schemashape.h"

#include "catalogue/cataloguefile.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

using namespace Qt::StringLiterals;

namespace {

QSqlQuery select(const QSqlDatabase &db, const QString &statement, const QString &argument = {})
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        throw CatalogueFileError(query.lastError().databaseText());
    if (!argument.isNull())
        query.addBindValue(argument);
    if (!query.exec())
        throw CatalogueFileError(query.lastError().databaseText());
    return query;
}

void readColumns(const QSqlDatabase &db, ObjectShape &object)
{
    QSqlQuery columns = select(db, u"SELECT name, type, \"notnull\", dflt_value, pk "
                                   "FROM pragma_table_info(?) ORDER BY cid"_s, object.name);
    while (columns.next()) {
        QString declaration = columns.value(1).toString();
        if (columns.value(2).toInt())
            declaration += u" NOT NULL"_s;
        if (!columns.value(3).isNull())
            declaration += u" DEFAULT "_s + columns.value(3).toString();
        if (columns.value(4).toInt())
            declaration += u" PRIMARY KEY"_s;
        object.columnNames << columns.value(0).toString();
        object.columnDeclarations << declaration;
    }
}

void readKeys(const QSqlDatabase &db, ObjectShape &object)
{
    QSqlQuery indexes = select(db, u"SELECT name, \"unique\" FROM pragma_index_list(?)"_s, object.name);
    while (indexes.next()) {
        QStringList columns;
        QSqlQuery parts = select(db, u"SELECT name FROM pragma_index_info(?) ORDER BY seqno"_s,
                                 indexes.value(0).toString());
        while (parts.next())
            columns << parts.value(0).toString();
        const QString kind = indexes.value(1).toInt() ? u"unique key"_s : u"index"_s;
        object.keys << u"%1 (%2)"_s.arg(kind, columns.join(u", "_s));
    }
    object.keys.sort();
}

void readForeignKeys(const QSqlDatabase &db, ObjectShape &object)
{
    QSqlQuery references = select(db, u"SELECT id, \"table\", \"from\", \"to\", on_delete "
                                      "FROM pragma_foreign_key_list(?) ORDER BY id, seq"_s, object.name);
    int current = -1;
    QStringList from, to;
    QString parent, onDelete;
    auto flush = [&] {
        if (current >= 0) {
            object.foreignKeys << u"(%1) references %2 (%3) on delete %4"_s.arg(
                from.join(u", "_s), parent, to.join(u", "_s), onDelete);
        }
        from.clear();
        to.clear();
    };
    while (references.next()) {
        if (references.value(0).toInt() != current) {
            flush();
            current = references.value(0).toInt();
            parent = references.value(1).toString();
            onDelete = references.value(4).toString();
        }
        from << references.value(2).toString();
        to << references.value(3).toString();
    }
    flush();
    object.foreignKeys.sort();
}

} // namespace

SchemaShape readSchemaShape(const QSqlDatabase &db)
{
    SchemaShape shape;
    QSqlQuery objects = select(db, u"SELECT type, name FROM sqlite_master "
                                   "WHERE type IN ('table', 'view', 'trigger') "
                                   "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid"_s);
    while (objects.next()) {
        ObjectShape object;
        object.name = objects.value(1).toString();
        object.kind = objects.value(0).toString();
        shape.append(object);
    }
    for (ObjectShape &object : shape) {
        try {
            if (object.kind != u"trigger"_s)
                readColumns(db, object);
            if (object.kind == u"table"_s) {
                readKeys(db, object);
                readForeignKeys(db, object);
            }
        } catch (const CatalogueFileError &e) {
            object.error = e.message();
        }
    }
    return shape;
}

const ObjectShape *findObject(const SchemaShape &shape, const QString &name)
{
    for (const ObjectShape &object : shape) {
        if (object.name.compare(name, Qt::CaseInsensitive) == 0)
            return &object;
    }
    return nullptr;
}
