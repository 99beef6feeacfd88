#pragma once

#include <QString>

// Replacing a file by another in one step, so that a file of that name is always whole: the
// new file is written beside the old one, flushed to the disk, and renamed over it.
namespace FileReplacement {

// Writes what the system still holds of the file in memory to the disk. Answers the
// system's reason when it cannot, an empty string when it did.
QString flushToDisk(const QString &path);

// Renames `replacement` over `target` in one step (the old target is gone with it) and
// makes the rename itself last. Answers the system's reason when it cannot, an empty string
// when it did.
QString renameOver(const QString &replacement, const QString &target);

// Both, in that order: `replacement`, written in full, takes the place of `target`.
QString replace(const QString &replacement, const QString &target);

} // namespace FileReplacement
