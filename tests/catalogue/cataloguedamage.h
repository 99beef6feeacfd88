#pragma once

#include <QString>

// Damages the catalogue at `path` so that SQLite's integrity check fails while the file still
// opens and reads: one entry of a link table's index is made to point at the wrong row.
// Answers what went wrong, empty when the damage is done.
QString damageLinkIndex(const QString &path);
