#pragma once

#include <QString>
#include <QStringList>

namespace CatalogueCheck {

// Every problem found in the catalogue file at `path`, one line each, each naming the table,
// view or rule concerned; empty when the catalogue is sound. The file's structure is compared
// with a catalogue made in memory from the same schema, so the check follows the schema.
// Opens the file read-only, once a write left unfinished by a program that stopped has been
// undone. Throws CatalogueFileError only when there is no file to check.
QStringList problemsIn(const QString &path);

} // namespace CatalogueCheck
