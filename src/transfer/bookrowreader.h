#pragma once

#include "catalogue/cataloguewriter.h"
#include "transfer/bookcolumns.h"
#include "transfer/csvreader.h"
#include "transfer/personname.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <variant>

// A book read from one record of a CSV file, its authors, topics and publisher named but not
// yet found in the catalogue.
struct ImportedBook
{
    int line = 0;
    BookRow row; // publisherId not yet set
    QString publisher; // empty: the publisher is not known
    QString place;
    QList<PersonName> authors;
    QStringList topics;
    // A condition or cover the book form's lists do not hold, kept in the notes: "Cover: Kindle".
    QStringList keptInNotes;
};

// Why the catalogue would refuse a record: "price \"abc\" is not a number".
struct RefusedRow
{
    int line = 0;
    QString reason;
};

// Reads the records of a CSV file of books by the columns its first record names.
class BookRowReader
{
public:
    // Throws CatalogueFileError when no column holds the titles.
    explicit BookRowReader(const QStringList &header);

    // The headers of the columns that are not read, in file order.
    QStringList unreadColumns() const { return m_unread; }

    std::variant<ImportedBook, RefusedRow> read(const CsvRecord &record) const;

private:
    struct Column
    {
        qsizetype index;
        ColumnMatch match;
        QString header;
    };

    QList<Column> m_columns;
    QStringList m_unread;
    qsizetype m_headerSize = 0;
};
