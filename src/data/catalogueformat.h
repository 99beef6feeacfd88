#pragma once

#include <QString>

// What a file on disk is, judged by its first bytes, so that opening the wrong kind of file
// fails with a message that says what to do instead of a bare format error.
namespace CatalogueFormat {

enum class Kind { Missing, Sqlite, Jet, Other };

Kind ofFile(const QString &path);

} // namespace CatalogueFormat
