#pragma once

#include <QString>
#include <QStringList>

// Every book of a catalogue as one line of text, in book number order: its number, every
// field, its authors, topics and publisher. Two catalogues hold the same books, links,
// authors, topics and publishers exactly when their lines are the same.
QStringList bookLines(const QString &cataloguePath);

// Adds a book whose title and notes hold what CSV must quote: accents, apostrophes, quotes,
// delimiters and line breaks, with an author and a topic of the same kind.
void addAwkwardBook(const QString &cataloguePath);

// The text of a file, or of a CSV file to write for a test.
QByteArray contentOf(const QString &path);
void writeFile(const QString &path, const QByteArray &content);
