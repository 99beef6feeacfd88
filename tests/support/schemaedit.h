#pragma once

#include <QString>

class QSqlDatabase;

// Lets a column of a test catalogue hold NULL, as the forms must cope with although the
// catalogue's own schema forbids it. Uses SQLite's documented way of editing a table's
// declaration in place, so that connections already open see the change. Answers what went
// wrong, empty when the column now admits NULL.
QString AllowNulls(const QSqlDatabase &db, const QString &table, const QString &column);
