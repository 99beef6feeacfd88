#pragma once

#include "data/connection.h"

#include <QString>
#include <QStringList>

// Compacting a catalogue file: SQLite's VACUUM INTO writes a copy of the file without the
// pages that deleted rows left free, and leaves the file it reads unchanged.

// A catalogue file held by this process alone: no other connection, in this process or
// another, can read or write it until the hold is released. Compacting needs that, so that
// nothing written meanwhile is lost when the compacted copy takes the file's place.
class ExclusiveCatalogue
{
public:
    // Throws ProviderError, 3356 when another connection holds the file for longer than the
    // busy timeout.
    explicit ExclusiveCatalogue(const QString &path);
    ~ExclusiveCatalogue();
    ExclusiveCatalogue(const ExclusiveCatalogue &) = delete;
    ExclusiveCatalogue &operator=(const ExclusiveCatalogue &) = delete;

    // What SQLite's integrity check finds wrong with the file; empty when it is sound.
    QStringList integrityProblems();
    // Writes the compacted copy to `destination`, which must not exist yet. Throws
    // ProviderError (a full disk or a folder that cannot be written, in SQLite's words).
    void compactInto(const QString &destination);
    // The connection that holds the file, the only one that can read it meanwhile.
    QSqlDatabase database() const { return m_connection.database(); }
    void release();

private:
    Connection m_connection;
};

// Writes a compacted copy of the catalogue at `source` to `destination`.
void compactCatalogue(const QString &source, const QString &destination);
