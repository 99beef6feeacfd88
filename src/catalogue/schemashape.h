#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// What a catalogue file's schema looks like, as SQLite itself reports it (table_info,
// index_list, foreign_key_list), so that two files can be compared object by object.
struct ObjectShape
{
    QString name;
    QString kind; // "table", "view" or "trigger"
    QStringList columnNames;
    QStringList columnDeclarations; // type and constraints of each column, in column order
    QStringList keys;               // indexes, described by uniqueness and columns
    QStringList foreignKeys;        // described by columns, parent and delete action
    QString error;                  // why the object could not be read, if it could not
};

using SchemaShape = QList<ObjectShape>; // in the order the file defines its objects

// Reads every table, view and trigger of `db` except SQLite's own. Throws CatalogueFileError
// when the file cannot be read as an SQLite database at all.
SchemaShape readSchemaShape(const QSqlDatabase &db);

// The object named `name` (case-insensitively, as SQLite names are), or nullptr.
const ObjectShape *findObject(const SchemaShape &shape, const QString &name);
