#pragma once

#include <QList>
#include <QString>
#include <QStringList>

// The columns of the book listing, in their order on screen.
namespace BookColumn {
enum : int { Author, Title, Price, Condition, Publisher, Published, Topic, Count };
}

// One book as the listing shows it: its key ("B" + BookID) and the text of every column.
struct BookListingRow
{
    QString key;
    QStringList texts;
};

// Every book, in BookID order, with the texts the listing shows: the data environment's
// BookDetails command, each book with its authors, topics and publisher as chapters, run on
// the catalogue at that path. Throws ProviderError.
QList<BookListingRow> ReadBookDetails(const QString &cataloguePath);
