#pragma once

class QSqlDatabase;
struct sqlite3;

// The SQLite handle under a database opened with Qt's SQLite driver; nullptr for any other
// driver or a closed database.
sqlite3 *SqliteHandleOf(const QSqlDatabase &database);
