#pragma once

#include <QString>

// Rewrites a statement in the dialect the forms write (Jet SQL) into one SQLite runs with
// the same meaning. Only text outside string literals is touched, so an apostrophe that
// breaks a statement still breaks it, with SQLite's syntax message.
namespace JetSql {

// The translation alone, runnable on any SQLite connection.
QString toSqlite(const QString &jetStatement);

// The translation with the program's text order and case folding (see TextCollation): every
// ORDER BY term collated in the locale's dictionary order, "=" / "<>" against a text ignoring
// the case of every letter, and < > <= >= against a text in that dictionary order. Only the
// program's own connections can run it.
QString toCollatedSqlite(const QString &jetStatement);

// A statement already in SQLite's dialect (a stored query's) with its ORDER BY terms collated
// as above, and nothing else changed.
QString withOrderCollation(const QString &sqliteStatement);

} // namespace JetSql
