#pragma once

#include <QSqlDatabase>
#include <QString>

namespace StoredQueries {

// Brings a catalogue's stored queries (its views) to this version's definitions, so that a
// catalogue made by an earlier version reads what today's windows and listings read. Tables
// and rows are never touched. All or nothing: a catalogue that cannot be written (read-only,
// busy with another copy) keeps its queries as they were, and the call answers false.
// Answers true when the queries are today's, whether or not anything had to change.
bool Refresh(QSqlDatabase &db);
// The same on a connection of its own, before the program's connections read the catalogue:
// theirs keep the queries they found when they opened.
bool Refresh(const QString &cataloguePath);

} // namespace StoredQueries
