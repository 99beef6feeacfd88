#pragma once

#include <QString>

// Rewrites a statement in the dialect the forms write (Jet SQL) into one SQLite runs with
// the same meaning. Only text outside string literals is touched, so an apostrophe that
// breaks a statement still breaks it, with SQLite's syntax message.
namespace JetSql {

QString toSqlite(const QString &jetStatement);

} // namespace JetSql
