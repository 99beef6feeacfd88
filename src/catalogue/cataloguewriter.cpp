#include "catalogue/cataloguewriter.h"

#include "catalogue/cataloguefile.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <QVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

enum class Seed { Keep, TakeOver };

Seed seedOf(CatalogueWriter::SeedRows seedRows)
{
    return seedRows == CatalogueWriter::SeedRows::TakeOver ? Seed::TakeOver : Seed::Keep;
}

QVariant optionalValue(const std::optional<int> &value)
{
    return value ? QVariant(*value) : QVariant(QMetaType::fromType<int>());
}

// The owner's details are never NULL: an empty QString would otherwise be bound as NULL.
QVariant text(const QString &value)
{
    return value.isNull() ? QVariant(u""_s) : QVariant(value);
}

void prepare(QSqlQuery &query, const QString &statement)
{
    if (!query.prepare(statement))
        throw CatalogueFileError(query.lastError().databaseText());
}

void run(QSqlQuery &query, const QVariantList &values)
{
    for (const QVariant &value : values)
        query.addBindValue(value);
    if (!query.exec())
        throw CatalogueFileError(query.lastError().databaseText());
}

} // namespace

// Inserts rows into one table; with Seed::TakeOver the first row written updates the table's
// seed row instead.
class CatalogueWriter::Table
{
public:
    Table(const QSqlDatabase &db, const QString &table, const QStringList &columns,
          const QString &key = {}, Seed seed = Seed::Keep)
        : m_insert(db), m_update(db)
    {
        const QString marks = QStringList(columns.size(), u"?"_s).join(u", "_s);
        prepare(m_insert, u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(table, columns.join(u", "_s), marks));
        if (seed == Seed::TakeOver) {
            QSqlQuery find(db);
            if (!find.exec(u"SELECT min(%1) FROM %2"_s.arg(key, table)) || !find.next())
                throw CatalogueFileError(find.lastError().databaseText());
            if (!find.value(0).isNull())
                m_seedRow = find.value(0).toLongLong();
            prepare(m_update, u"UPDATE %1 SET %2 = ? WHERE %3 = ?"_s.arg(table, columns.join(u" = ?, "_s), key));
        }
    }

    qint64 write(const QVariantList &values)
    {
        if (m_seedRow) {
            const qint64 id = *std::exchange(m_seedRow, std::nullopt);
            run(m_update, values + QVariantList{id});
            return id;
        }
        run(m_insert, values);
        return m_insert.lastInsertId().toLongLong();
    }

private:
    QSqlQuery m_insert;
    QSqlQuery m_update;
    std::optional<qint64> m_seedRow;
};

CatalogueWriter::CatalogueWriter(const QSqlDatabase &db, SeedRows seedRows)
    : m_publishers(std::make_unique<Table>(db, u"tblPublisher"_s,
          QStringList{u"PublisherName"_s, u"PublisherPlace"_s, u"PublisherNotes"_s}))
    , m_authors(std::make_unique<Table>(db, u"tblAuthor"_s,
          QStringList{u"AuthorFirstName"_s, u"AuthorSurname"_s, u"AuthorNationality"_s, u"AuthorNotes"_s},
          u"AuthorID"_s, seedOf(seedRows)))
    , m_topics(std::make_unique<Table>(db, u"tblTopic"_s,
          QStringList{u"TopicDescription"_s, u"TopicNotes"_s}, u"TopicID"_s, seedOf(seedRows)))
    , m_books(std::make_unique<Table>(db, u"tblBook"_s,
          QStringList{u"BookDescription"_s, u"BookPagesText"_s, u"BookPagesInto"_s, u"BookCondition"_s,
                      u"BookCover"_s, u"BookPublisherId"_s, u"BookPrice"_s, u"BookSellPrice"_s,
                      u"BookWhenPublished"_s, u"BookWhenPurchased"_s, u"BookWhenSold"_s,
                      u"BookIllustrated"_s, u"BookIllustrations"_s, u"BookPlans"_s, u"BookMaps"_s,
                      u"Book1stEd"_s, u"BookBibliography"_s, u"BookNotes"_s},
          u"BookID"_s, seedOf(seedRows)))
    , m_bookAuthors(std::make_unique<Table>(db, u"tblBookAuthor"_s, QStringList{u"BookID"_s, u"AuthorID"_s}))
    , m_bookTopics(std::make_unique<Table>(db, u"tblBookTopic"_s, QStringList{u"BookID"_s, u"TopicID"_s}))
    , m_db(db)
{
    QSqlQuery find(db);
    if (!find.exec(u"SELECT min(PublisherID) FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s)
        || !find.next() || find.value(0).isNull())
        throw CatalogueFileError(u"the new catalogue has no \"UnKnown\" publisher"_s);
    m_unknownPublisher = find.value(0).toLongLong();
}

CatalogueWriter::~CatalogueWriter() = default;

qint64 CatalogueWriter::addPublisher(const PublisherRow &row)
{
    return m_publishers->write({row.name, row.place, row.notes});
}

qint64 CatalogueWriter::addAuthor(const AuthorRow &row)
{
    return m_authors->write({row.firstName, row.surname, row.nationality, row.notes});
}

qint64 CatalogueWriter::addTopic(const TopicRow &row)
{
    return m_topics->write({row.description, row.notes});
}

qint64 CatalogueWriter::addBook(const BookRow &row)
{
    return m_books->write({row.description, row.pagesText, row.pagesIntro, row.condition, row.cover,
                           row.publisherId, row.price, row.sellPrice, row.whenPublished,
                           optionalValue(row.whenPurchased), optionalValue(row.whenSold),
                           int(row.illustrated), optionalValue(row.illustrations),
                           optionalValue(row.plans), optionalValue(row.maps),
                           int(row.firstEdition), int(row.bibliography), row.notes});
}

void CatalogueWriter::linkAuthor(qint64 bookId, qint64 authorId)
{
    m_bookAuthors->write({bookId, authorId});
}

void CatalogueWriter::linkTopic(qint64 bookId, qint64 topicId)
{
    m_bookTopics->write({bookId, topicId});
}

void CatalogueWriter::setOwner(const OwnerDetails &owner)
{
    // The table holds exactly one row, so the update names none.
    QSqlQuery update(m_db);
    prepare(update, u"UPDATE tblCatalogueControl SET CatalogueName = ?, Firstname = ?, Surname = ?, "
                    "Addr1 = ?, Addr2 = ?, Addr3 = ?, Addr4 = ?, Addr5 = ?, PostCode = ?, "
                    "TelNo1 = ?, TelNo2 = ?, FaxNo = ?, Email = ?"_s);
    run(update, {text(owner.catalogueName), text(owner.firstName), text(owner.surname),
                 text(owner.address[0]), text(owner.address[1]), text(owner.address[2]),
                 text(owner.address[3]), text(owner.address[4]), text(owner.postCode),
                 text(owner.telephone1), text(owner.telephone2), text(owner.fax), text(owner.email)});
}
