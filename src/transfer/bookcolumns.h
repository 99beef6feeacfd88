#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <optional>

// The columns a CSV file of books may have, by what they hold.
enum class BookColumn {
    Number, // the catalogue's own book number: written, never read back (numbers are assigned)
    Title,
    Authors,
    AdditionalAuthors, // "First Surname" names, several to a field
    Topics,
    Publisher,
    Place,
    Published,
    Condition,
    Cover,
    Pages,
    Introduction,
    Price,
    SellPrice,
    Purchased,
    Sold,
    Illustrated,
    Illustrations,
    Plans,
    Maps,
    FirstEdition,
    Bibliography,
    Notes,
    Isbn,
};

struct ColumnMatch
{
    BookColumn column;
    // The characters that part several names or topics in one field.
    QString separators;
};

namespace BookColumns {

// The header row of an export, in order: plain English names, one for each field of the
// book form and for its authors, topics and publisher.
const QList<std::pair<BookColumn, QString>> &exported();

// The column a header names: our own export's names and the usual headers of other
// catalogue programs and reading sites, in any letter case, spacing or punctuation.
std::optional<ColumnMatch> match(QStringView header);

// "Year_Published", "year-published" and "Year Published" all read "year published".
QString normalised(QStringView header);

} // namespace BookColumns
