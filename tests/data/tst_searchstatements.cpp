// The search form's statement for each kind of criterion, against the books plain SQLite finds,
// and the hits it writes that filter the book form.
#include "statementfixture.h"

#include <QSqlQuery>
#include <QTest>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QList<qint64> idsOf(const TestCatalogue &catalogue, const QString &sql)
{
    QList<qint64> ids;
    QSqlQuery query(catalogue.db());
    query.exec(sql);
    while (query.next())
        ids << query.value(0).toLongLong();
    std::sort(ids.begin(), ids.end());
    return ids;
}

QList<qint64> idsOf(const Recordset &rs)
{
    QList<qint64> ids;
    for (int row = 0; row < rs.recordCount(); ++row)
        ids << rs.valueAt(row, 0).toLongLong();
    std::sort(ids.begin(), ids.end());
    return ids;
}

// The criteria of the search form; a range bound or a text is used exactly as typed.
struct Search
{
    std::optional<QString> title = {};
    std::optional<std::pair<QString, QString>> author = {}; // pick, typed surname
    std::optional<std::pair<QString, QString>> topic = {};
    std::optional<std::pair<QString, QString>> publisher = {};
    std::optional<std::pair<QString, QString>> price = {}; // from, to
    std::optional<std::pair<QString, QString>> published = {};
};

// "like 'war%'" for war*, "= 'war'" for war.
QString pattern(const QString &typed)
{
    return (typed.contains(u'*') ? u"like '"_s : u"= '"_s) + QString(typed).replace(u'*', u'%')
        + u'\'';
}

void addTextCriterion(QString &where, const std::pair<QString, QString> &criterion,
                      const QString &pickPrefix, const QString &typedPrefix)
{
    if (!criterion.first.isEmpty())
        where += pickPrefix + criterion.first + u'\'';
    if (!criterion.second.isEmpty())
        where += typedPrefix + pattern(criterion.second);
}

// The statement as the search form puts it together.
QString searchStatement(const Search &search)
{
    QString statement = u"Select distinct tblBook.BookID from tblBook "_s;
    QString where;
    if (search.author) {
        statement += u",tblBookAuthor,tblauthor"_s;
        where += u" and tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = tblAuthor.AuthorID"_s;
    }
    if (search.topic) {
        statement += u",tblBookTopic ,tblTopic"_s;
        where += u" and tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = tblTopic.TopicID"_s;
    }
    if (search.publisher) {
        statement += u" ,tblPublisher "_s;
        where += u" and tblBook.BookPublisherID = tblPublisher.PublisherID"_s;
    }
    if (search.title)
        where += u" and tblBook.BookDescription  "_s + pattern(*search.title);
    if (search.author)
        addTextCriterion(where, *search.author, u" and tblAuthor.AuthorSurname = '"_s,
                         u" and tblAuthor.AuthorSurname "_s);
    if (search.topic)
        addTextCriterion(where, *search.topic, u" and tblTopic.TopicDescription = '"_s,
                         u" and tblTopic.TopicDescription  "_s);
    if (search.publisher)
        addTextCriterion(where, *search.publisher, u" and tblPublisher.PublisherName = '"_s,
                         u" and tblPublisher.PublisherName  "_s);
    if (search.price)
        where += u" and tblBook.BookPrice between "_s + search.price->first + u" and "_s
            + search.price->second;
    if (search.published)
        where += u" and tblBook.BookWhenPublished between "_s + search.published->first
            + u" and "_s + search.published->second;
    if (where.startsWith(u" and "_s))
        where.replace(0, 5, u" where "_s);
    return statement + where;
}

} // namespace

Q_DECLARE_METATYPE(Search)

class TestSearchStatements : public StatementTest
{
    Q_OBJECT

private Q_SLOTS:
    void search_data()
    {
        QTest::addColumn<Search>("search");
        QTest::addColumn<QString>("expected"); // the books' keys

        QTest::newRow("search with no criterion") << Search{} << u"SELECT BookID FROM tblBook"_s;
        QTest::newRow("search by exact title")
            << Search{.title = u"Emma"_s}
            << u"SELECT BookID FROM tblBook WHERE lower(BookDescription) = 'emma'"_s;
        QTest::newRow("search by title start")
            << Search{.title = u"war*"_s}
            << u"SELECT BookID FROM tblBook WHERE lower(substr(BookDescription, 1, 3)) = 'war'"_s;
        QTest::newRow("search by title part")
            << Search{.title = u"*war*"_s}
            << u"SELECT BookID FROM tblBook WHERE instr(lower(BookDescription), 'war') > 0"_s;
        QTest::newRow("search by empty title")
            << Search{.title = QString()} << u"SELECT BookID FROM tblBook WHERE length(BookDescription) = 0"_s;
        QTest::newRow("search by author pick")
            << Search{.author = {{u"Dickens"_s, QString()}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = 'Dickens')"_s;
        QTest::newRow("search by author surname")
            << Search{.author = {{QString(), u"bront*"_s}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE lower(substr(AuthorSurname, 1, 5)) = 'bront')"_s;
        QTest::newRow("search by author pick and surname")
            << Search{.author = {{u"Austen"_s, u"Aus*"_s}}}
            << u"SELECT BookID FROM tblBookAuthor WHERE AuthorID IN (SELECT AuthorID FROM tblAuthor WHERE AuthorSurname = 'Austen')"_s;
        QTest::newRow("search by author pick and another surname")
            << Search{.author = {{u"Austen"_s, u"Dick*"_s}}} << u"SELECT 0 WHERE 0"_s;
        QTest::newRow("search by any author")
            << Search{.author = {{QString(), u"*"_s}}} << u"SELECT DISTINCT BookID FROM tblBookAuthor"_s;
        QTest::newRow("search by topic pick")
            << Search{.topic = {{u"Naval History"_s, QString()}}}
            << u"SELECT BookID FROM tblBookTopic WHERE TopicID IN (SELECT TopicID FROM tblTopic WHERE TopicDescription = 'Naval History')"_s;
        QTest::newRow("search by topic description")
            << Search{.topic = {{QString(), u"*History"_s}}}
            << u"SELECT DISTINCT BookID FROM tblBookTopic WHERE TopicID IN (SELECT TopicID FROM tblTopic WHERE substr(TopicDescription, -7) = 'History')"_s;
        QTest::newRow("search by publisher pick")
            << Search{.publisher = {{u"Ashdown & Pryce"_s, QString()}}}
            << u"SELECT BookID FROM tblBook WHERE BookPublisherId IN (SELECT PublisherID FROM tblPublisher WHERE PublisherName = 'Ashdown ' || char(38) || ' Pryce')"_s;
        QTest::newRow("search by publisher name")
            << Search{.publisher = {{QString(), u"Kestrel*"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookPublisherId IN (SELECT PublisherID FROM tblPublisher WHERE instr(PublisherName, 'Kestrel') = 1)"_s;
        QTest::newRow("search by price")
            << Search{.price = {{u"10"_s, u"20"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookPrice >= 10 AND BookPrice <= 20"_s;
        QTest::newRow("search by publication date")
            << Search{.published = {{u"1900"_s, u"1950"_s}}}
            << u"SELECT BookID FROM tblBook WHERE BookWhenPublished >= 1900 AND BookWhenPublished <= 1950"_s;
        QTest::newRow("search by every criterion")
            << Search{.title = u"*the*"_s, .author = {{QString(), u"*"_s}},
                      .topic = {{u"Fiction"_s, QString()}}, .publisher = {{QString(), u"*"_s}},
                      .price = {{u"0"_s, u"100"_s}}, .published = {{u"1800"_s, u"2000"_s}}}
            << u"SELECT BookID FROM tblBook b WHERE instr(lower(BookDescription), 'the') > 0 AND BookPrice BETWEEN 0 AND 100 AND BookWhenPublished BETWEEN 1800 AND 2000 AND EXISTS (SELECT 1 FROM tblBookAuthor a WHERE a.BookID = b.BookID) AND b.BookID IN (SELECT BookID FROM tblBookTopic JOIN tblTopic USING (TopicID) WHERE TopicDescription = 'Fiction')"_s;
    }

    // The search's statement finds the books; copied into the hits, it filters the book form.
    void search()
    {
        QFETCH(Search, search);
        QFETCH(QString, expected);
        const QString statement = searchStatement(search);
        const QList<qint64> wanted = idsOf(catalogue(), expected);

        const auto found = open(statement);
        QCOMPARE(idsOf(*found), wanted);
        if (wanted.isEmpty())
            return;

        run(u"Insert into tblcriteriahits (BookID) values (1)"_s);
        QVERIFY(run(u"Delete from tblcriteriahits"_s) >= 1);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) "_s + statement), wanted.size());
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), wanted);

        const auto filtered = open(
            u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.BookDescription"_s);
        QCOMPARE(idsOf(*filtered), wanted);
        QCOMPARE(filtered->fieldNames(), open(u"select * from tblBook"_s)->fieldNames());
        const auto lookup = open(
            u"select tblbook.BookID, tblbook.bookdescription from tblbook, tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.bookdescription"_s);
        QCOMPARE(idsOf(*lookup), wanted);
        for (int row = 1; row < lookup->recordCount(); ++row)
            QVERIFY(lookup->valueAt(row - 1, 1).toString().compare(lookup->valueAt(row, 1).toString(),
                                                                   Qt::CaseInsensitive) <= 0);
    }

    void searchThatFails_data()
    {
        QTest::addColumn<Search>("search");
        QTest::newRow("search by author pick with an apostrophe")
            << Search{.author = {{u"O'Brien"_s, QString()}}};
        QTest::newRow("search by topic pick with an apostrophe")
            << Search{.topic = {{u"Children's Books"_s, QString()}}};
        QTest::newRow("search by publisher pick with an apostrophe")
            << Search{.publisher = {{u"St Aldate's Press"_s, QString()}}};
        QTest::newRow("search by price without an upper bound") << Search{.price = {{u"10"_s, QString()}}};
        QTest::newRow("search by date without a lower bound")
            << Search{.published = {{QString(), u"1950"_s}}};
    }

    // The statement is refused before anything is written: the hits keep what they held.
    void searchThatFails()
    {
        QFETCH(Search, search);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) values (7)"_s), 1);
        QVERIFY_THROWS_EXCEPTION(ProviderError, open(searchStatement(search)));
        QVERIFY(!m_connection.errors().isEmpty());
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), QList<qint64>{7});
    }

    void oneBookHit_data()
    {
        QTest::addColumn<QString>("book");
        QTest::newRow("listing: row ticked") << u"Moby-Dick"_s;
        QTest::newRow("topic browser: Edit") << u"Heidi"_s;
        QTest::newRow("author browser: Edit") << u"Germinal"_s;
    }

    void oneBookHit()
    {
        QFETCH(QString, book);
        run(u"Insert into tblcriteriahits (BookID) values (3)"_s);
        run(u"Delete from tblcriteriahits"_s);
        QCOMPARE(count(u"SELECT count(*) FROM tblCriteriaHits"_s), 0);
        QCOMPARE(run(u"Insert into tblcriteriahits (BookID) values ("_s + QString::number(bookId(book)) + u")"_s), 1);
        QCOMPARE(idsOf(catalogue(), u"SELECT BookID FROM tblCriteriaHits"_s), QList<qint64>{bookId(book)});
        const auto filtered = open(
            u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = tblBook.BookID order by tblBook.BookDescription"_s);
        QCOMPARE(filtered->recordCount(), 1);
        QCOMPARE(filtered->value(u"BookDescription"_s).toString(), book);
    }
};

QTEST_GUILESS_MAIN(TestSearchStatements)
#include "tst_searchstatements.moc"
