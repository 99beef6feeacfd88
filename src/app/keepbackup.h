#pragma once

#include "catalogue/cataloguebackups.h"

struct Session;

// Says, once, that an automatic backup could not be made: where, why, and that the
// catalogue itself is unharmed.
void TellBackupFailed(const CatalogueBackups::Made &made);

// Before a catalogue that changed since it was opened (or last backed up) is closed: keeps a
// backup of it in the folder beside it, and tells when none could be made. The close goes on
// either way.
void KeepBackupIfChanged(const Session &session);
