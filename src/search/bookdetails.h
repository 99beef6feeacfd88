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

// The shaping command the listing's rows come from: each book with its authors, topics and
// publisher as chapters.
QString BookDetailsCommandText();

// Every book, in BookID order, with the texts the listing shows. Throws ProviderError.
QList<BookListingRow> ReadBookDetails(const QString &connectionString);
