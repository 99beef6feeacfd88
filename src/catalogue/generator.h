#pragma once

#include <QSqlDatabase>

#include <functional>

// Makes large made-up catalogues for benchmarks: plausible titles and names, always the
// same catalogue for the same seed.
namespace Generator {

// Keys are held in 16-bit integers by the program, so a catalogue holds at most this many books.
constexpr int MaxBooks = 32767;

struct Options
{
    int books = 1; // 1 to MaxBooks
    quint64 seed = 1;
    // Told now and then how many books are written, and once more at the end.
    std::function<void(int written, int total)> progress;
};

// How many rows of each kind go with a number of books ("UnKnown" not counted).
struct Proportions
{
    int authors;
    int topics;
    int publishers;
};
Proportions proportionsFor(int books);

// Fills a new catalogue; each book gets one to three authors and one or two topics.
// Serves inside the filler of CatalogueFile::create(); throws CatalogueFileError.
void fill(QSqlDatabase &db, const Options &options);

} // namespace Generator
