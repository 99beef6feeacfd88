#pragma once

#include "support/catalogueopener.h"

#include <QList>
#include <QString>
#include <QVariant>

// A book with just the columns the figures read. A null price (an invalid QVariant) needs
// a catalogue whose prices may be null.
struct TestBook
{
    QString description;
    QVariant price;
    int yearPublished = 0;
};

// A catalogue holding these books and no other, not even the one every new catalogue starts
// with, opened through the open form with the figures' forms registered.
class CatalogueOfBooks
{
public:
    enum class Prices { NeverNull, MayBeNull };

    explicit CatalogueOfBooks(const QList<TestBook> &books, Prices prices = Prices::NeverNull);

    // What went wrong while making or opening it; empty when it is open.
    QString problems() const { return m_problems; }
    const TestCatalogue &catalogue() const { return m_opener.catalogue(); }
    bool addBook(const TestBook &book) const;

private:
    CatalogueOpener m_opener;
    QString m_problems;
};

// Money as the en_GB locale of the tests writes it: "£1,234.50".
QString Pounds(double amount);
