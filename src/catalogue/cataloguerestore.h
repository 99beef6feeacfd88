#pragma once

#include <QString>

// Putting a backup back in the catalogue's place. The catalogue it replaces is kept as a
// backup first, and the backup's copy is written beside the catalogue, flushed to the disk
// and renamed over it in one step, so the catalogue's name always holds a whole catalogue.
namespace CatalogueRestore {

struct Restored
{
    // Where the replaced catalogue is kept; empty when there was none.
    QString keptAs;
    // The replaced catalogue failed its check: it is kept byte for byte, under a name that
    // says so, and never removed to make room for newer backups.
    bool keptUnchecked = false;
};

// Restores the backup at `backup` to `catalogue`. Throws CatalogueFileError, with nothing
// changed, when the backup is not a sound catalogue, a copy of the program has the catalogue
// open, or the catalogue cannot be kept first.
Restored run(const QString &backup, const QString &catalogue);

} // namespace CatalogueRestore
