#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Looks at a catalogue file through a connection of its own, opened for the look only: a file
// replaced on disk is seen as it is now, never through a connection still on the old one.

// Every row of every table, as rowDump() gives them.
QStringList rowsOf(const QString &path);

// The first column of the first row a query gives; -1 when none.
qint64 scalarOf(const QString &path, const QString &sql);

// Puts a file that is no catalogue at `path` (a leftover, or a file where a folder should be);
// answers whether it could.
bool writeFile(const QString &path, const QByteArray &content);
