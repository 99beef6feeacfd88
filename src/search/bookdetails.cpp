#include "search/bookdetails.h"

#include "data/connection.h"
#include "data/fieldformat.h"
#include "data/recordset.h"
#include "data/shape.h"

using namespace Qt::StringLiterals;

namespace {

// The first row's values of some fields of a chapter; empty when the chapter has no rows.
QVariantList firstRowOf(const ShapedRecordset &parent, const QString &chapter, int row,
                        const QStringList &fields)
{
    const std::unique_ptr<ShapedRecordset> rows = parent.chapter(chapter, row);
    if (!rows || rows->records().recordCount() == 0)
        return {};
    const Recordset &records = rows->records();
    QVariantList values;
    for (const QString &field : fields)
        values.append(records.valueAt(0, records.fieldIndex(field)));
    return values;
}

QString authorText(const ShapedRecordset &books, int row)
{
    const QVariantList author = firstRowOf(books, u"AuthorDetails"_s, row,
                                           {u"AuthorSurname"_s, u"AuthorFirstname"_s});
    if (author.isEmpty())
        return u"Book has no author assigned"_s;
    return author.at(0).toString() + u", "_s + author.at(1).toString();
}

QString topicText(const ShapedRecordset &books, int row)
{
    const QVariantList topic = firstRowOf(books, u"TopicDetails"_s, row, {u"TopicDescription"_s});
    return topic.isEmpty() ? u"Book has no topic assigned"_s : topic.at(0).toString();
}

QString publisherText(const ShapedRecordset &books, int row)
{
    const QVariantList publisher =
        firstRowOf(books, u"PublisherDetails"_s, row, {u"PublisherName"_s});
    return publisher.isEmpty() ? QString() : publisher.at(0).toString();
}

BookListingRow listingRow(const ShapedRecordset &books, int row)
{
    const Recordset &book = books.records();
    const auto field = [&](const QString &name) {
        return book.valueAt(row, book.fieldIndex(name));
    };
    QStringList texts(BookColumn::Count);
    texts[BookColumn::Author] = authorText(books, row);
    texts[BookColumn::Title] = field(u"BookDescription"_s).toString();
    texts[BookColumn::Price] = FieldFormats::display(field(u"BookPrice"_s), FieldFormat::Money);
    texts[BookColumn::Condition] = field(u"BookCondition"_s).toString();
    texts[BookColumn::Publisher] = publisherText(books, row);
    texts[BookColumn::Published] = field(u"BookWhenPublished"_s).toString(); // null: empty
    texts[BookColumn::Topic] = topicText(books, row);
    return {u"B"_s + field(u"BookID"_s).toString(), texts};
}

} // namespace

QString BookDetailsCommandText()
{
    return u"SHAPE {SELECT BookCondition, BookDescription, BookID, BookPrice, BookWhenPublished, "
           "BookPublisherId FROM tblBook ORDER BY BookID}  AS BookDetails APPEND ({SELECT "
           "tblAuthor.AuthorFirstName, tblAuthor.AuthorSurname, tblBookAuthor.BookID FROM "
           "tblBookAuthor, tblAuthor WHERE tblBookAuthor.AuthorID = tblAuthor.AuthorID}  AS "
           "AuthorDetails RELATE 'BookID' TO 'BookID') AS AuthorDetails,({SELECT "
           "tblTopic.TopicDescription, tblBookTopic.BookID FROM tblTopic, tblBookTopic WHERE "
           "tblTopic.TopicID = tblBookTopic.TopicID}  AS TopicDetails RELATE 'BookID' TO "
           "'BookID') AS TopicDetails,({SELECT PublisherName, PublisherID FROM tblPublisher}  "
           "AS PublisherDetails RELATE 'BookPublisherId' TO 'PublisherID') AS PublisherDetails"_s;
}

QList<BookListingRow> ReadBookDetails(const QString &connectionString)
{
    Connection connection;
    connection.open(connectionString);
    const std::unique_ptr<ShapedRecordset> books =
        ShapeCommand(BookDetailsCommandText()).execute(connection);
    QList<BookListingRow> rows;
    const int count = books->records().recordCount();
    rows.reserve(count);
    for (int row = 0; row < count; ++row)
        rows.append(listingRow(*books, row));
    return rows;
}
