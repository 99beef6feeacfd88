#pragma once

#include <QString>
#include <QVariant>

class QSqlDatabase;

// Leaves the catalogue without books, not even the one every new catalogue starts with.
bool RemoveAllBooks(const QSqlDatabase &db);

// Adds a book with just the columns the figures read; a null price needs a catalogue whose
// price column admits NULL. Answers false when the catalogue refused the row.
bool AddBook(const QSqlDatabase &db, const QString &description, const QVariant &price,
             int yearPublished = 0);

// Money as the en_GB locale of the tests writes it: "£1,234.50".
QString Pounds(double amount);
