#pragma once

#include "data/cataloguebackups.h"

#include <QString>

// Says, once, that an automatic backup could not be made: where, why, and that the
// catalogue itself is unharmed.
void TellBackupFailed(const CatalogueBackups::Made &made);

// Keeps a backup of the catalogue in the folder beside it and tells when none could be made.
// Answers whether one was made.
bool KeepBackup(const QString &catalogue);
