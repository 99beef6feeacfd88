#pragma once

#include "catalogue/cataloguebackups.h"

#include <QString>

#include <functional>
#include <optional>

// Re-organising the catalogue file: a dated backup is kept beside it, it is compacted into the
// backup, the backup is compacted again into a new file beside the catalogue, and that file
// takes the catalogue's name in one step. At every moment the catalogue's name holds a whole
// catalogue, the old one or the compacted one; the backup is deleted only once the compacted
// file is in place. No copy of the program may have the catalogue open meanwhile.
namespace Reorganisation {

// The points the re-organisation passes, in order.
enum class Step {
    CatalogueHeld,  // no one else can reach the catalogue now
    DatedCopyKept,  // the dated backup beside the catalogue, made or not
    BackupWritten,
    NewFileWritten, // the compacted copy is beside the catalogue
    NewFileFlushed,
    Renamed,        // the compacted copy is the catalogue
    BackupDeleted,
};

enum class Outcome {
    Done,
    InUse,         // another program, or a copy of this one, has the catalogue open: nothing
                   // was done
    Damaged,       // the catalogue fails the integrity check: nothing was done
    BackupFailed,  // the backup could not be written: the catalogue is as it was, no backup
    ReplaceFailed, // the compacted copy could not take the catalogue's place: the catalogue is
                   // as it was, the backup is kept
};

struct Result
{
    Outcome outcome = Outcome::Done;
    // Why it failed, in SQLite's or the system's words.
    QString reason;
    // The dated backup kept before compacting, when it got that far. A failed one does not
    // stop the compaction, which keeps its own backup until the compacted file is in place.
    std::optional<CatalogueBackups::Made> kept;
};

// Told of each step as it is passed; a caller can watch the re-organisation go by.
using StepWatcher = std::function<void(Step)>;

// Re-organises the catalogue at `catalogue`, which no connection of this process may have
// open, through the backup at `backup` (a backup left there earlier is replaced). Throws
// ProviderError only when the catalogue cannot be opened at all.
Result reorganiseCatalogue(const QString &catalogue, const QString &backup,
                           const StepWatcher &watch = {});

// The file the compacted copy is written to before it takes the catalogue's name.
QString newFileBeside(const QString &catalogue);

} // namespace Reorganisation
