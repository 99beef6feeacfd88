#pragma once

#include <QSqlDatabase>
#include <QString>

#include <array>
#include <memory>
#include <optional>

struct PublisherRow
{
    QString name;
    QString place;
    QString notes;
};

struct AuthorRow
{
    QString firstName;
    QString surname;
    QString nationality;
    QString notes;
};

struct TopicRow
{
    QString description;
    QString notes;
};

// One tblBook row. Optional counts and years are NULL in the file when not given.
struct BookRow
{
    QString description;
    int pagesText = 0;
    QString pagesIntro;
    QString condition;
    QString cover;
    qint64 publisherId = 0;
    double price = 0;
    double sellPrice = 0;
    int whenPublished = 0; // 0: not known
    std::optional<int> whenPurchased;
    std::optional<int> whenSold;
    bool illustrated = false;
    std::optional<int> illustrations;
    std::optional<int> plans;
    std::optional<int> maps;
    bool firstEdition = false;
    bool bibliography = false;
    QString notes;
};

// The single tblCatalogueControl row, printed on the first page of every report.
struct OwnerDetails
{
    QString catalogueName;
    QString firstName;
    QString surname;
    std::array<QString, 5> address;
    QString postCode;
    QString telephone1;
    QString telephone2;
    QString fax;
    QString email;
};

// Writes rows into a catalogue, through statements prepared once and reused, so that tens of
// thousands of rows go in quickly. In a catalogue being made, the first author, topic and
// book written take the place of the seed rows every new catalogue starts with, so the
// catalogue holds exactly the rows written, numbered from 1; the "UnKnown" publisher stays.
// Rows added to a catalogue in use leave its own rows as they are.
// Every method throws CatalogueFileError on failure.
class CatalogueWriter
{
public:
    enum class SeedRows { TakeOver, Keep };

    explicit CatalogueWriter(const QSqlDatabase &db, SeedRows seedRows = SeedRows::TakeOver);
    ~CatalogueWriter();
    CatalogueWriter(const CatalogueWriter &) = delete;
    CatalogueWriter &operator=(const CatalogueWriter &) = delete;

    qint64 unknownPublisher() const { return m_unknownPublisher; }

    qint64 addPublisher(const PublisherRow &row);
    qint64 addAuthor(const AuthorRow &row);
    qint64 addTopic(const TopicRow &row);
    qint64 addBook(const BookRow &row);
    void linkAuthor(qint64 bookId, qint64 authorId);
    void linkTopic(qint64 bookId, qint64 topicId);
    void setOwner(const OwnerDetails &owner);

private:
    class Table;

    std::unique_ptr<Table> m_publishers;
    std::unique_ptr<Table> m_authors;
    std::unique_ptr<Table> m_topics;
    std::unique_ptr<Table> m_books;
    std::unique_ptr<Table> m_bookAuthors;
    std::unique_ptr<Table> m_bookTopics;
    QSqlDatabase m_db;
    qint64 m_unknownPublisher = 0;
};
