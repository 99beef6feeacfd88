#pragma once

struct sqlite3;
class QSqlDatabase;

// SQLite's own handle of a connection Qt's driver opened, for what the driver does not offer
// (collations, the online backup). nullptr when the connection is not SQLite's or not open.
sqlite3 *SqliteHandleOf(const QSqlDatabase &database);
