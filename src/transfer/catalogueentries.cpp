#include "transfer/catalogueentries.h"

#include "catalogue/cataloguefile.h"
#include "catalogue/cataloguewriter.h"
#include "data/textcollation.h"

#include <QSqlError>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

const QString unknownPublisher = u"UnKnown"_s;

// Names of two parts are one key; the unit separator never appears in a name.
QString keyOf(QStringView first, QStringView second = {})
{
    return TextCollation::equalityKey(first) + u'\x1f' + TextCollation::equalityKey(second);
}

// Of several that are equal, the first (in key order) is the one found.
void insertFirst(QHash<QString, qint64> &ids, const QString &key, qint64 id)
{
    if (!ids.contains(key))
        ids.insert(key, id);
}

template<typename Handle>
void readRows(const QSqlDatabase &db, const QString &statement, Handle handle)
{
    QSqlQuery query(db);
    query.setForwardOnly(true);
    if (!query.exec(statement))
        throw CatalogueFileError(query.lastError().databaseText());
    while (query.next())
        handle(query);
}

} // namespace

CatalogueEntries::CatalogueEntries(CatalogueWriter *writer)
    : m_writer(writer)
{
}

void CatalogueEntries::loadAll(const QSqlDatabase &db)
{
    readRows(db, u"SELECT AuthorID, AuthorSurname, AuthorFirstName FROM tblAuthor ORDER BY AuthorID"_s,
             [this](const QSqlQuery &row) {
                 insertFirst(m_authors, keyOf(row.value(1).toString(), row.value(2).toString()),
                                       row.value(0).toLongLong());
             });
    readRows(db, u"SELECT TopicID, TopicDescription FROM tblTopic ORDER BY TopicID"_s,
             [this](const QSqlQuery &row) {
                 insertFirst(m_topics, keyOf(row.value(1).toString()), row.value(0).toLongLong());
             });
    loadPublishers(db);
}

void CatalogueEntries::loadPublishers(const QSqlDatabase &db)
{
    readRows(db, u"SELECT PublisherID, PublisherName, PublisherPlace FROM tblPublisher ORDER BY PublisherID"_s,
             [this](const QSqlQuery &row) { remember(row.value(1).toString(), row.value(2).toString(), row.value(0).toLongLong()); });
}

void CatalogueEntries::remember(const QString &name, const QString &place, qint64 id)
{
    insertFirst(m_publishers, keyOf(name, place), id);
    insertFirst(m_publisherNames, keyOf(name), id);
}

qint64 CatalogueEntries::author(const PersonName &name)
{
    const QString key = keyOf(name.surname, name.firstName);
    if (const auto found = m_authors.constFind(key); found != m_authors.cend())
        return *found;
    ++m_newAuthors;
    const qint64 id = m_writer ? m_writer->addAuthor({name.firstName, name.surname, {}, {}}) : --m_notWritten;
    m_authors.insert(key, id);
    return id;
}

qint64 CatalogueEntries::topic(const QString &description)
{
    const QString key = keyOf(description);
    if (const auto found = m_topics.constFind(key); found != m_topics.cend())
        return *found;
    ++m_newTopics;
    const qint64 id = m_writer ? m_writer->addTopic({description, {}}) : --m_notWritten;
    m_topics.insert(key, id);
    return id;
}

qint64 CatalogueEntries::publisher(const QString &name, const QString &place)
{
    const QString shownName = name.isEmpty() ? unknownPublisher : name;
    const QString key = keyOf(shownName, place);
    if (const auto found = m_publishers.constFind(key); found != m_publishers.cend())
        return *found;
    if (place.isEmpty()) {
        if (const auto found = m_publisherNames.constFind(keyOf(shownName)); found != m_publisherNames.cend())
            return *found;
    }
    ++m_newPublishers;
    const qint64 id = m_writer ? m_writer->addPublisher({shownName, place, {}}) : --m_notWritten;
    remember(shownName, place, id);
    return id;
}
