#include "forms/search/searchstatement.h"

using namespace Qt::StringLiterals;

namespace {

const QString And = u" and "_s;

// An equality, or a LIKE when the text holds the "*" of a partial match.
QString pattern(const QString &text)
{
    const QString operation = text.contains(u'*') ? u"like '"_s : u"= '"_s;
    return operation + QString(text).replace(u'*', u'%') + u"'"_s;
}

// The lookup's exact name first, then the typed pattern; either, both or neither.
QString nameConditions(const SearchCriteria::Lookup &lookup, const QString &column,
                       const QString &patternColumn)
{
    QString conditions;
    if (!lookup.lookupText.isEmpty())
        conditions += And + column + u" = '"_s + lookup.lookupText + u"'"_s;
    if (!lookup.text.isEmpty())
        conditions += And + patternColumn + pattern(lookup.text);
    return conditions;
}

QString rangeCondition(const SearchCriteria::Range &range, const QString &column)
{
    return And + column + u" between "_s + range.from + And + range.to;
}

} // namespace

QString SearchStatement(const SearchCriteria &criteria)
{
    QString statement = u"Select distinct tblBook.BookID from tblBook "_s;
    QString conditions;

    if (criteria.author.ticked) {
        statement += u",tblBookAuthor,tblauthor"_s;
        conditions += u" and tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = "
                      "tblAuthor.AuthorID"_s;
    }
    if (criteria.topic.ticked) {
        statement += u",tblBookTopic ,tblTopic"_s;
        conditions += u" and tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = "
                      "tblTopic.TopicID"_s;
    }
    if (criteria.publisher.ticked) {
        statement += u" ,tblPublisher "_s;
        conditions += u" and tblBook.BookPublisherID = tblPublisher.PublisherID"_s;
    }

    // An empty title is not skipped: it asks for books whose title is empty.
    if (criteria.title.ticked)
        conditions += u" and tblBook.BookDescription  "_s + pattern(criteria.title.text);
    if (criteria.author.ticked)
        conditions += nameConditions(criteria.author, u"tblAuthor.AuthorSurname"_s,
                                     u"tblAuthor.AuthorSurname "_s);
    if (criteria.topic.ticked)
        conditions += nameConditions(criteria.topic, u"tblTopic.TopicDescription"_s,
                                     u"tblTopic.TopicDescription  "_s);
    if (criteria.publisher.ticked)
        conditions += nameConditions(criteria.publisher, u"tblPublisher.PublisherName"_s,
                                     u"tblPublisher.PublisherName  "_s);
    if (criteria.price.ticked)
        conditions += rangeCondition(criteria.price, u"tblBook.BookPrice"_s);
    if (criteria.date.ticked)
        conditions += rangeCondition(criteria.date, u"tblBook.BookWhenPublished"_s);

    // The first condition is introduced by "where" instead of "and".
    if (conditions.startsWith(And))
        conditions.replace(0, And.size(), u" where "_s);
    return statement + conditions;
}
