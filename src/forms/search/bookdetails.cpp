#include "forms/search/bookdetails.h"

#include "data/fieldformat.h"
#include "data/recordset.h"
#include "data/shape.h"
#include "reports/dataenvironment.h"

#include <QHash>

#include <bit>

using namespace Qt::StringLiterals;

namespace {

// Some fields of the first related row of one chapter, read straight from the chapter's rows:
// building a chapter for each of many books would cost far more than reading them.
class FirstRelated
{
public:
    FirstRelated(const ShapedRecordset &parent, const QString &chapter, const QStringList &fields)
        : m_parent(parent)
        , m_chapter(chapter)
        , m_rows(parent.chapterRecords(chapter))
    {
        for (const QString &field : fields)
            m_fields.append(m_rows->fieldIndex(field));
    }

    // Empty when the parent row has no related rows.
    QVariantList of(int parentRow) const
    {
        const QList<int> related = m_parent.chapterRows(m_chapter, parentRow);
        if (related.isEmpty())
            return {};
        QVariantList values;
        values.reserve(m_fields.size());
        for (int field : m_fields)
            values.append(m_rows->valueAt(related.first(), field));
        return values;
    }

private:
    const ShapedRecordset &m_parent;
    QString m_chapter;
    const Recordset *m_rows;
    QList<int> m_fields;
};

// Makes the listing's rows from the books and their chapters.
class ListingRowMaker
{
public:
    explicit ListingRowMaker(const ShapedRecordset &books)
        : m_books(books.records())
        , m_bookId(m_books.fieldIndex(u"BookID"_s))
        , m_title(m_books.fieldIndex(u"BookDescription"_s))
        , m_price(m_books.fieldIndex(u"BookPrice"_s))
        , m_condition(m_books.fieldIndex(u"BookCondition"_s))
        , m_published(m_books.fieldIndex(u"BookWhenPublished"_s))
        , m_author(books, u"AuthorDetails"_s, {u"AuthorSurname"_s, u"AuthorFirstname"_s})
        , m_topic(books, u"TopicDetails"_s, {u"TopicDescription"_s})
        , m_publisher(books, u"PublisherDetails"_s, {u"PublisherName"_s})
    {
    }

    BookListingRow operator()(int row)
    {
        const auto field = [&](int column) { return m_books.valueAt(row, column); };
        QStringList texts(BookColumn::Count);
        const QVariantList author = m_author.of(row);
        texts[BookColumn::Author] = author.isEmpty()
            ? u"Book has no author assigned"_s
            : author.at(0).toString() + u", "_s + author.at(1).toString();
        texts[BookColumn::Title] = field(m_title).toString();
        texts[BookColumn::Price] = priceText(field(m_price));
        texts[BookColumn::Condition] = field(m_condition).toString();
        texts[BookColumn::Publisher] = m_publisher.of(row).value(0).toString();
        texts[BookColumn::Published] = field(m_published).toString(); // null: empty
        const QVariantList topic = m_topic.of(row);
        texts[BookColumn::Topic] =
            topic.isEmpty() ? u"Book has no topic assigned"_s : topic.at(0).toString();
        return {u"B"_s + field(m_bookId).toString(), texts};
    }

private:
    // Books share prices, and formatting an amount in the locale's way is slow beside
    // everything else a row needs: each price is formatted once.
    QString priceText(const QVariant &price)
    {
        if (price.isNull())
            return {};
        // By its bits: -0.0 and 0.0 may read differently.
        const auto amount = std::bit_cast<quint64>(price.toDouble());
        auto known = m_priceTexts.constFind(amount);
        if (known == m_priceTexts.cend())
            known = m_priceTexts.insert(amount, FieldFormats::display(price, FieldFormat::Money));
        return known.value();
    }

    const Recordset &m_books;
    int m_bookId;
    int m_title;
    int m_price;
    int m_condition;
    int m_published;
    FirstRelated m_author;
    FirstRelated m_topic;
    FirstRelated m_publisher;
    QHash<quint64, QString> m_priceTexts;
};

} // namespace

QList<BookListingRow> ReadBookDetails(const QString &cataloguePath)
{
    const std::unique_ptr<DataEnvironment> deShelvane = PrepareDataEnvironment(cataloguePath);
    const std::unique_ptr<ShapedRecordset> books = deShelvane->runShaped(u"BookDetails"_s);
    ListingRowMaker listingRow(*books);
    QList<BookListingRow> rows;
    const int count = books->records().recordCount();
    rows.reserve(count);
    for (int row = 0; row < count; ++row)
        rows.append(listingRow(row));
    return rows;
}
