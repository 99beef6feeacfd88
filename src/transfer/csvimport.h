#pragma once

#include "transfer/textencoding.h"

#include <QChar>
#include <QString>
#include <QStringList>

#include <functional>

// Brings the books of a CSV file into a catalogue: a new one, made for them, or an existing
// one, to which books are added and in which nothing is changed. Authors, topics and
// publishers are found by name as the program's "=" finds them, else added.
namespace CsvImport {

struct Options
{
    bool dryRun = false; // read and report everything, write nothing
    // A row the catalogue would refuse, or a value kept in the notes: "line 7: no title; row skipped".
    std::function<void(const QString &line)> report;
    // Told now and then how many records are read, and once more at the end.
    std::function<void(int done, int total)> progress;
};

struct Summary
{
    TextEncoding::Encoding encoding = TextEncoding::Encoding::Utf8;
    QChar delimiter;
    QStringList unreadColumns;
    bool newCatalogue = false;
    int books = 0; // imported, or that a dry run would import
    int skipped = 0;
    int newAuthors = 0;
    int newTopics = 0;
    int newPublishers = 0;
    qint64 milliseconds = 0;
};

// Throws CatalogueFileError, leaving the catalogue as it was (and no new file), when the CSV
// file cannot be read or names no titles, the catalogue cannot be opened or written, or the
// books would take keys past what the program holds.
Summary run(const QString &csvPath, const QString &cataloguePath, const Options &options);

} // namespace CsvImport
