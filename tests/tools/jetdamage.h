#pragma once

#include <QList>
#include <QString>

// Older catalogues damaged as files are damaged: bytes changed at random, a page zeroed,
// the file cut short, and the counts a table's definition gives (of its columns, of its
// indexes, where the map of its pages is) changed. The same seed always makes the same files.
struct DamagedJet
{
    QString path;
    QString damage; // "page 12 zeroed", "4 bytes changed at 1234 ...", "cut at 81920 bytes"
};

// Writes damaged copies of the Jet file at `original` into `folder`: every page zeroed in
// turn, a hundred with a few bytes changed, fifty cut short, and each table definition with
// one of three of its counts changed; always the same ones. Empty when a file cannot be
// written.
QList<DamagedJet> MakeDamagedJets(const QString &original, const QString &folder);
