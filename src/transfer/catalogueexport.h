#pragma once

#include <QString>

#include <functional>

// Writes a catalogue's books to a CSV file: one row per book with every field of the book
// form, its authors and topics (each list joined with "; " in dictionary order), its
// publisher's name and place and its book number, under a header row of plain English
// names (BookColumns::exported()). UTF-8 without a byte order mark, RFC 4180 quoting.
namespace CatalogueExport {

struct Options
{
    bool overwrite = false;
    // Told now and then how many books are written, and once more at the end.
    std::function<void(int done, int total)> progress;
};

struct Summary
{
    int books = 0;
    qint64 milliseconds = 0;
};

// The file is written under a temporary name beside `csvPath` and renamed at the end, so a
// failure never leaves a half-written file under that name. Refuses to replace an existing
// file unless `overwrite`. Throws CatalogueFileError.
Summary write(const QString &cataloguePath, const QString &csvPath, const Options &options);

} // namespace CatalogueExport
