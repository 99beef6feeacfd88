#include "transfer/bookcolumns.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace {

const QString listed = u";"_s;
// Tags and the extra authors of a reading site are listed with commas too.
const QString listedWithCommas = u";,"_s;

struct KnownHeader
{
    QString header; // normalised
    BookColumn column;
    QString separators = listed;
};

// Our own export's names come first; then the headers other programs write.
const QList<KnownHeader> knownHeaders{
    {u"book number"_s, BookColumn::Number},
    {u"book id"_s, BookColumn::Number},
    {u"title"_s, BookColumn::Title},
    {u"book title"_s, BookColumn::Title},
    {u"authors"_s, BookColumn::Authors},
    {u"author"_s, BookColumn::Authors},
    {u"author s"_s, BookColumn::Authors},
    {u"primary author"_s, BookColumn::Authors},
    {u"author l f"_s, BookColumn::Authors},
    {u"author last first"_s, BookColumn::Authors},
    {u"creators"_s, BookColumn::Authors},
    {u"additional authors"_s, BookColumn::AdditionalAuthors, listedWithCommas},
    {u"secondary author"_s, BookColumn::AdditionalAuthors, listedWithCommas},
    {u"secondary authors"_s, BookColumn::AdditionalAuthors, listedWithCommas},
    {u"topics"_s, BookColumn::Topics},
    {u"topic"_s, BookColumn::Topics},
    {u"subjects"_s, BookColumn::Topics},
    {u"subject"_s, BookColumn::Topics},
    {u"genres"_s, BookColumn::Topics},
    {u"genre"_s, BookColumn::Topics},
    {u"tags"_s, BookColumn::Topics, listedWithCommas},
    {u"publisher"_s, BookColumn::Publisher},
    {u"publisher name"_s, BookColumn::Publisher},
    {u"place"_s, BookColumn::Place},
    {u"publisher place"_s, BookColumn::Place},
    {u"place of publication"_s, BookColumn::Place},
    {u"publication place"_s, BookColumn::Place},
    {u"place published"_s, BookColumn::Place},
    {u"year published"_s, BookColumn::Published},
    {u"year"_s, BookColumn::Published},
    {u"published"_s, BookColumn::Published},
    {u"date published"_s, BookColumn::Published},
    {u"publication date"_s, BookColumn::Published},
    {u"publication year"_s, BookColumn::Published},
    {u"original publication year"_s, BookColumn::Published},
    {u"date"_s, BookColumn::Published},
    {u"condition"_s, BookColumn::Condition},
    {u"cover"_s, BookColumn::Cover},
    {u"binding"_s, BookColumn::Cover},
    {u"pages"_s, BookColumn::Pages},
    {u"number of pages"_s, BookColumn::Pages},
    {u"page count"_s, BookColumn::Pages},
    {u"num pages"_s, BookColumn::Pages},
    {u"introduction pages"_s, BookColumn::Introduction},
    {u"introduction"_s, BookColumn::Introduction},
    {u"price"_s, BookColumn::Price},
    {u"value"_s, BookColumn::Price},
    {u"purchase price"_s, BookColumn::Price},
    {u"price paid"_s, BookColumn::Price},
    {u"cost"_s, BookColumn::Price},
    {u"selling price"_s, BookColumn::SellPrice},
    {u"sell price"_s, BookColumn::SellPrice},
    {u"sale price"_s, BookColumn::SellPrice},
    {u"year purchased"_s, BookColumn::Purchased},
    {u"purchased"_s, BookColumn::Purchased},
    {u"date purchased"_s, BookColumn::Purchased},
    {u"date acquired"_s, BookColumn::Purchased},
    {u"year sold"_s, BookColumn::Sold},
    {u"sold"_s, BookColumn::Sold},
    {u"date sold"_s, BookColumn::Sold},
    {u"illustrated"_s, BookColumn::Illustrated},
    {u"illustrations"_s, BookColumn::Illustrations},
    {u"number of illustrations"_s, BookColumn::Illustrations},
    {u"plans"_s, BookColumn::Plans},
    {u"maps"_s, BookColumn::Maps},
    {u"first edition"_s, BookColumn::FirstEdition},
    {u"1st edition"_s, BookColumn::FirstEdition},
    {u"bibliography"_s, BookColumn::Bibliography},
    {u"notes"_s, BookColumn::Notes},
    {u"note"_s, BookColumn::Notes},
    {u"comments"_s, BookColumn::Notes},
    {u"private notes"_s, BookColumn::Notes},
    {u"isbn"_s, BookColumn::Isbn},
    {u"isbn13"_s, BookColumn::Isbn},
    {u"isbn 13"_s, BookColumn::Isbn},
    {u"isbn10"_s, BookColumn::Isbn},
    {u"isbn 10"_s, BookColumn::Isbn},
    {u"ean"_s, BookColumn::Isbn},
};

} // namespace

namespace BookColumns {

const QList<std::pair<BookColumn, QString>> &exported()
{
    static const QList<std::pair<BookColumn, QString>> columns{
        {BookColumn::Number, u"Book Number"_s},
        {BookColumn::Title, u"Title"_s},
        {BookColumn::Authors, u"Authors"_s},
        {BookColumn::Topics, u"Topics"_s},
        {BookColumn::Publisher, u"Publisher"_s},
        {BookColumn::Place, u"Place"_s},
        {BookColumn::Published, u"Year Published"_s},
        {BookColumn::Condition, u"Condition"_s},
        {BookColumn::Cover, u"Cover"_s},
        {BookColumn::Pages, u"Pages"_s},
        {BookColumn::Introduction, u"Introduction Pages"_s},
        {BookColumn::Price, u"Price"_s},
        {BookColumn::SellPrice, u"Selling Price"_s},
        {BookColumn::Purchased, u"Year Purchased"_s},
        {BookColumn::Sold, u"Year Sold"_s},
        {BookColumn::Illustrated, u"Illustrated"_s},
        {BookColumn::Illustrations, u"Illustrations"_s},
        {BookColumn::Plans, u"Plans"_s},
        {BookColumn::Maps, u"Maps"_s},
        {BookColumn::FirstEdition, u"First Edition"_s},
        {BookColumn::Bibliography, u"Bibliography"_s},
        {BookColumn::Notes, u"Notes"_s},
    };
    return columns;
}

std::optional<ColumnMatch> match(QStringView header)
{
    static const QHash<QString, ColumnMatch> byHeader = [] {
        QHash<QString, ColumnMatch> table;
        for (const KnownHeader &known : knownHeaders)
            table.insert(known.header, {known.column, known.separators});
        return table;
    }();
    const auto found = byHeader.constFind(normalised(header));
    if (found == byHeader.cend())
        return std::nullopt;
    return *found;
}

QString normalised(QStringView header)
{
    QString words;
    bool gap = false;
    for (const QChar c : header.toString().toCaseFolded()) {
        if (c.isLetterOrNumber()) {
            if (gap && !words.isEmpty())
                words += u' ';
            words += c;
            gap = false;
        } else {
            gap = true;
        }
    }
    return words;
}

} // namespace BookColumns
