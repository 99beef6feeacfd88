#pragma once

#include <QSqlDatabase>

namespace SampleCollection {

// Fills a new catalogue with the demo collection: about sixty books with their authors,
// topics, publishers and the owner's details. Always the same rows. Serves as the filler
// of CatalogueFile::create(); throws CatalogueFileError.
void fill(QSqlDatabase &db);

} // namespace SampleCollection
