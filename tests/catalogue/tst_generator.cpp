// Generated catalogues: the same for a seed, in the stated proportions, linked as stated.
#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "catalogue/scopeddatabase.h"
#include "formlists.h"
#include "snapshot.h"

#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A generated catalogue in a temporary folder, open read-only for looking at.
class GeneratedCatalogue
{
public:
    explicit GeneratedCatalogue(const Generator::Options &options)
    {
        CatalogueFile::create(path(), false /* overwrite */,
                              [&](QSqlDatabase &db) { Generator::fill(db, options); });
        m_connection = std::make_unique<ScopedDatabase>(path(), ScopedDatabase::Mode::ReadOnly);
    }

    QString path() const { return m_dir.filePath(u"QuireshelfCatalog01.mdb"_s); }
    QSqlDatabase db() const { return m_connection->db(); }

    int count(const QString &sql) const
    {
        QSqlQuery query(db());
        if (!query.exec(sql) || !query.next())
            return -1;
        return query.value(0).toInt();
    }

private:
    QTemporaryDir m_dir;
    std::unique_ptr<ScopedDatabase> m_connection;
};

Generator::Options booksWithSeed(int books, quint64 seed)
{
    return {.books = books, .seed = seed, .progress = {}};
}

} // namespace

class TestGenerator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sameSeedGivesTheSameCatalogue()
    {
        const GeneratedCatalogue first(booksWithSeed(300, 7));
        const GeneratedCatalogue second(booksWithSeed(300, 7));
        const QStringList rows = rowDump(first.db());
        QVERIFY(rows.size() > 300);
        QCOMPARE(rowDump(second.db()), rows);
    }

    void anotherSeedGivesAnotherCatalogue()
    {
        const GeneratedCatalogue first(booksWithSeed(300, 7));
        const GeneratedCatalogue second(booksWithSeed(300, 8));
        QVERIFY(rowDump(first.db()) != rowDump(second.db()));
        QCOMPARE(second.count(u"SELECT count(*) FROM tblBook"_s), 300);
    }

    void countsAreInProportion_data()
    {
        QTest::addColumn<int>("books");
        QTest::addColumn<int>("authors");
        QTest::addColumn<int>("topics");
        QTest::addColumn<int>("publishers"); // with UnKnown
        QTest::newRow("1 book") << 1 << 1 << 1 << 2;
        QTest::newRow("29 books") << 29 << 9 << 1 << 3;
        QTest::newRow("500 books") << 500 << 166 << 16 << 51;
        QTest::newRow("3000 books") << 3000 << 1000 << 100 << 301;
    }

    void countsAreInProportion()
    {
        QFETCH(int, books);
        QFETCH(int, authors);
        QFETCH(int, topics);
        QFETCH(int, publishers);
        const GeneratedCatalogue catalogue(booksWithSeed(books, 1));
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblBook"_s), books);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblAuthor"_s), authors);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblTopic"_s), topics);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblPublisher"_s), publishers);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblPublisher WHERE PublisherName = 'UnKnown'"_s), 1);
        // Keys start at 1: the seed rows were taken over, not left behind.
        QCOMPARE(catalogue.count(u"SELECT max(BookID) FROM tblBook"_s), books);
    }

    void everyBookHasOneToThreeAuthorsAndOneOrTwoTopics()
    {
        const GeneratedCatalogue catalogue(booksWithSeed(500, 11));
        const QString perBook = u"SELECT count(*) FROM (SELECT b.BookID, "
                                "(SELECT count(*) FROM %1 l WHERE l.BookID = b.BookID) AS links "
                                "FROM tblBook b) WHERE links %2"_s;
        QCOMPARE(catalogue.count(perBook.arg(u"tblBookAuthor"_s, u"NOT BETWEEN 1 AND 3"_s)), 0);
        QCOMPARE(catalogue.count(perBook.arg(u"tblBookTopic"_s, u"NOT BETWEEN 1 AND 2"_s)), 0);
        // All the allowed numbers occur.
        QVERIFY(catalogue.count(perBook.arg(u"tblBookAuthor"_s, u"= 1"_s)) > 0);
        QVERIFY(catalogue.count(perBook.arg(u"tblBookAuthor"_s, u"= 3"_s)) > 0);
        QVERIFY(catalogue.count(perBook.arg(u"tblBookTopic"_s, u"= 2"_s)) > 0);
    }

    void valuesAreThoseTheFormsOffer()
    {
        const GeneratedCatalogue catalogue(booksWithSeed(500, 5));
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblBook WHERE BookCondition NOT IN "_s + FormLists::conditions), 0);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblBook WHERE BookCover NOT IN "_s + FormLists::covers), 0);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblAuthor WHERE AuthorNationality NOT IN "_s
                                 + FormLists::nationalities), 0);
        QCOMPARE(catalogue.count(u"SELECT count(*) FROM tblBook WHERE BookDescription = '' "
                                 "OR BookPagesText < 1 OR BookPrice <= 0"_s), 0);
        QCOMPARE(catalogue.count(u"SELECT count(DISTINCT TopicDescription) FROM tblTopic"_s), 16);
        QVERIFY(catalogue.count(u"SELECT count(*) FROM tblBook WHERE BookWhenPublished = 0"_s) > 0);
        QVERIFY(catalogue.count(u"SELECT count(*) FROM tblBook WHERE BookPrice >= 1000"_s) > 0);
    }

    void progressIsToldUpToTheEnd()
    {
        QList<int> told;
        Generator::Options options = booksWithSeed(2500, 1);
        options.progress = [&](int written, int total) {
            QCOMPARE(total, 2500);
            told << written;
        };
        const GeneratedCatalogue catalogue(options);
        QCOMPARE(told, QList<int>({1000, 2000, 2500}));
    }
};

QTEST_GUILESS_MAIN(TestGenerator)
#include "tst_generator.moc"
