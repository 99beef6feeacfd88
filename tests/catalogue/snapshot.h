#pragma once

#include <QByteArray>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>

// Snapshots of a catalogue, for telling whether two catalogues, or one before and after, differ.

// Every row of every table, one line each ("tblBook|1|Emma|…"), tables in the order the file
// defines them and rows in key order: two catalogues with the same dump hold the same content.
QStringList rowDump(const QSqlDatabase &db);

// A hash of the file's bytes (empty when it cannot be read).
QByteArray fileFingerprint(const QString &path);
