// What each level of a shaped command's result holds, on the sample catalogue: the books,
// their chapters, the headings computed by topic, and the errors of a command that cannot run.
#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/providererror.h"
#include "data/recordset.h"
#include "data/shape.h"
#include "shapetexts.h"
#include "support/testcatalogue.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QStringList texts(const Recordset &rows, const QString &field)
{
    const int column = rows.fieldIndex(field);
    if (column < 0)
        return {u"(no field "_s + field + u")"_s};
    QStringList values;
    for (int r = 0; r < rows.recordCount(); ++r)
        values.append(rows.valueAt(r, column).toString());
    return values;
}

// A sample catalogue with a connection open on it, as a report has.
struct OpenCatalogue
{
    TestCatalogue catalogue{TestCatalogue::Content::Sample};
    Connection connection;

    OpenCatalogue() { connection.open(ConnectionString::forCatalogue(catalogue.path())); }

    std::unique_ptr<ShapedRecordset> run(const QString &text)
    {
        return ShapeCommand(text).execute(connection);
    }

    // The first column of a query straight on the file, with one optional bound value.
    QStringList texts(const QString &sql, const QVariant &bound = {}) const
    {
        QSqlQuery query(catalogue.db());
        query.prepare(sql);
        if (bound.isValid())
            query.addBindValue(bound);
        if (!query.exec())
            QTest::qFail(qPrintable(query.lastError().text()), __FILE__, __LINE__);
        QStringList values;
        while (query.next())
            values.append(query.value(0).toString());
        return values;
    }
};

} // namespace

class TestShapedRecordsets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bookDetailsHasEveryBookInBookOrder()
    {
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText());
        QCOMPARE(books->records().fieldNames(),
                 (QStringList{u"BookCondition"_s, u"BookDescription"_s, u"BookID"_s, u"BookPrice"_s,
                              u"BookWhenPublished"_s, u"BookPublisherId"_s}));
        QCOMPARE(texts(books->records(), u"BookID"_s),
                 open.texts(u"SELECT BookID FROM tblBook ORDER BY BookID"_s));
        QCOMPARE(books->chapterNames(),
                 (QStringList{u"AuthorDetails"_s, u"TopicDetails"_s, u"PublisherDetails"_s}));
    }

    void bookDetailsChaptersHoldEachBooksRows_data()
    {
        QTest::addColumn<QString>("chapter");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("ofBook");
        QTest::addColumn<QString>("total");
        QTest::newRow("authors")
            << u"AuthorDetails"_s << u"AuthorSurname"_s
            << u"SELECT a.AuthorSurname FROM tblBookAuthor ba JOIN tblAuthor a "
               "ON a.AuthorID = ba.AuthorID WHERE ba.BookID = ?"_s
            << u"SELECT count(*) FROM tblBookAuthor"_s;
        QTest::newRow("topics")
            << u"TopicDetails"_s << u"TopicDescription"_s
            << u"SELECT t.TopicDescription FROM tblBookTopic bt JOIN tblTopic t "
               "ON t.TopicID = bt.TopicID WHERE bt.BookID = ?"_s
            << u"SELECT count(*) FROM tblBookTopic"_s;
        QTest::newRow("publisher")
            << u"PublisherDetails"_s << u"PublisherName"_s
            << u"SELECT p.PublisherName FROM tblBook b JOIN tblPublisher p "
               "ON p.PublisherID = b.BookPublisherId WHERE b.BookID = ?"_s
            << u"SELECT count(*) FROM tblBook"_s;
    }

    void bookDetailsChaptersHoldEachBooksRows()
    {
        QFETCH(QString, chapter);
        QFETCH(QString, field);
        QFETCH(QString, ofBook);
        QFETCH(QString, total);
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText());
        const Recordset &rows = books->records();
        const int bookId = rows.fieldIndex(u"BookID"_s);
        int related = 0;
        for (int r = 0; r < rows.recordCount(); ++r) {
            const auto rowsOfBook = books->chapter(chapter, r);
            QVERIFY(rowsOfBook);
            QStringList actual = texts(rowsOfBook->records(), field);
            QStringList expected = open.texts(ofBook, rows.valueAt(r, bookId));
            actual.sort();
            expected.sort();
            QCOMPARE(actual, expected);
            related += int(actual.size());
        }
        QCOMPARE(related, open.texts(total).value(0).toInt());
        QVERIFY(related > 0);
    }

    void aBookWithoutAuthorHasAnEmptyAuthorChapter()
    {
        OpenCatalogue open;
        QSqlQuery insert(open.catalogue.db());
        QVERIFY(insert.exec(u"INSERT INTO tblBook (BookDescription, BookPublisherId, BookPrice) "
                            "SELECT 'Anonymous Pamphlet', PublisherID, 0 FROM tblPublisher "
                            "WHERE PublisherName = 'UnKnown'"_s));
        const auto books = open.run(bookDetailsText());
        const int last = books->records().recordCount() - 1;
        QCOMPARE(books->records().valueAt(last, books->records().fieldIndex(u"BookDescription"_s)),
                 QVariant(u"Anonymous Pamphlet"_s));

        const auto authors = books->chapter(u"AuthorDetails"_s, last);
        QVERIFY(authors);
        QCOMPARE(authors->records().recordCount(), 0);
        QVERIFY(authors->records().eof());
        QVERIFY(authors->records().fieldIndex(u"AuthorSurname"_s) >= 0);
        QCOMPARE(books->chapter(u"TopicDetails"_s, last)->records().recordCount(), 0);
        const auto publisher = books->chapter(u"PublisherDetails"_s, last);
        QCOMPARE(texts(publisher->records(), u"PublisherName"_s), QStringList{u"UnKnown"_s});
    }

    void findsChaptersByNameInAnyLetterCase()
    {
        OpenCatalogue open;
        const auto books = open.run(bookDetailsText());
        const int count = books->records().recordCount();
        QVERIFY(books->chapter(u"authordetails"_s, 0));
        QVERIFY(!books->chapter(u"Authors"_s, 0));
        QVERIFY(!books->chapter(u"AuthorDetails"_s, -1));
        QVERIFY(!books->chapter(u"AuthorDetails"_s, count));
        QVERIFY(books->chapter(u"AuthorDetails"_s, 0)->chapterNames().isEmpty());
    }

    void byTopicDescriptionHasOneHeadingPerTopicInOrder()
    {
        OpenCatalogue open;
        const auto topics = open.run(byTopicDescriptionText());
        QCOMPARE(topics->records().fieldNames(), QStringList{u"TopicDescription"_s});
        QCOMPARE(topics->chapterNames(), QStringList{u"cmdReport3"_s});
        // A topic without books has no heading.
        QCOMPARE(texts(topics->records(), u"TopicDescription"_s),
                 open.texts(u"SELECT TopicDescription FROM tblTopic WHERE TopicID IN "
                            "(SELECT TopicID FROM tblBookTopic) "
                            "GROUP BY TopicDescription ORDER BY TopicDescription"_s));
    }

    void byTopicDescriptionListsEachTopicsBooks()
    {
        OpenCatalogue open;
        const auto topics = open.run(byTopicDescriptionText());
        const Recordset &headings = topics->records();
        int entries = 0;
        for (int g = 0; g < headings.recordCount(); ++g) {
            const QVariant topic = headings.valueAt(g, 0);
            const auto group = topics->chapter(u"cmdReport3"_s, g);
            QVERIFY(group);
            QCOMPARE(group->chapterNames(), QStringList{u"cmdReport3Sub"_s});
            QCOMPARE(texts(group->records(), u"BookID"_s),
                     open.texts(u"SELECT bt.BookID FROM tblBookTopic bt JOIN tblTopic t "
                                "ON t.TopicID = bt.TopicID JOIN tblBook b ON b.BookID = bt.BookID "
                                "WHERE t.TopicDescription = ? "
                                "ORDER BY t.TopicID, b.BookDescription, bt.BookID"_s,
                                topic));
            for (int b = 0; b < group->records().recordCount(); ++b) {
                const QVariant bookId = group->records().valueAt(b, group->records().fieldIndex(u"BookID"_s));
                const auto entry = group->chapter(u"cmdReport3Sub"_s, b);
                QVERIFY(entry);
                QCOMPARE(texts(entry->records(), u"Expr1"_s), QStringList{bookId.toString()});
                QCOMPARE(texts(entry->records(), u"BookDets1"_s),
                         open.texts(u"SELECT BookDescription FROM tblBook WHERE BookID = ?"_s, bookId));
                ++entries;
            }
        }
        QCOMPARE(entries, open.texts(u"SELECT count(*) FROM tblBookTopic"_s).value(0).toInt());
    }

    void relatesEqualValues_data()
    {
        QTest::addColumn<QString>("parent");
        QTest::addColumn<QString>("child");
        QTest::addColumn<QList<int>>("chapterSizes");
        QTest::newRow("whole numbers stored as integers or reals")
            << u"SELECT 1 AS k UNION ALL SELECT 2"_s
            << u"SELECT 1.0 AS k UNION ALL SELECT 1 UNION ALL SELECT 1.5"_s << QList<int>{2, 0};
        QTest::newRow("text in any letter case")
            << u"SELECT 'Fiction' AS k UNION ALL SELECT 'Travel'"_s
            << u"SELECT 'FICTION' AS k UNION ALL SELECT 'fiction' UNION ALL SELECT 'Travels'"_s
            << QList<int>{2, 0};
        QTest::newRow("null matches nothing")
            << u"SELECT NULL AS k UNION ALL SELECT 3"_s
            << u"SELECT NULL AS k UNION ALL SELECT 3 UNION ALL SELECT NULL"_s << QList<int>{0, 1};
        QTest::newRow("no child rows")
            << u"SELECT 1 AS k"_s << u"SELECT 1 AS k WHERE 0"_s << QList<int>{0};
        QTest::newRow("no parent rows")
            << u"SELECT 1 AS k WHERE 0"_s << u"SELECT 1 AS k"_s << QList<int>{};
    }

    void relatesEqualValues()
    {
        QFETCH(QString, parent);
        QFETCH(QString, child);
        QFETCH(QList<int>, chapterSizes);
        OpenCatalogue open;
        const auto shaped = open.run(u"SHAPE {"_s + parent + u"} AS p APPEND ({"_s + child
                                     + u"} AS c RELATE 'K' TO 'k') AS c"_s);
        QList<int> sizes;
        for (int r = 0; r < shaped->records().recordCount(); ++r)
            sizes.append(shaped->chapter(u"c"_s, r)->records().recordCount());
        QCOMPARE(sizes, chapterSizes);
    }

    void groupsEqualValuesTogether()
    {
        OpenCatalogue open;
        const auto groups = open.run(
            u"SHAPE (SHAPE {SELECT 'b' AS t, 1 AS n UNION ALL SELECT NULL, 2 UNION ALL "
            "SELECT 'B', 3 UNION ALL SELECT 'a', 4 UNION ALL SELECT NULL, 5} AS r) COMPUTE r BY 't'"_s);
        QCOMPARE(groups->records().recordCount(), 3);
        QCOMPARE(groups->records().valueAt(0, 0), QVariant(u"b"_s));
        QVERIFY(groups->records().valueAt(1, 0).isNull());
        QCOMPARE(groups->records().valueAt(2, 0), QVariant(u"a"_s));
        const QList<QStringList> members{{u"1"_s, u"3"_s}, {u"2"_s, u"5"_s}, {u"4"_s}};
        for (int g = 0; g < 3; ++g)
            QCOMPARE(texts(groups->chapter(u"r"_s, g)->records(), u"n"_s), members.at(g));
    }

    void namesAColumnThatIsMissing_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("error");
        QTest::newRow("RELATE")
            << u"SHAPE {SELECT BookID FROM tblBook} AS Books APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS Links RELATE 'BookNo' TO 'BookID') AS Links"_s
            << u"Shape command: 'BookNo' named after RELATE is not a column of Books."_s;
        QTest::newRow("TO")
            << u"SHAPE {SELECT BookID FROM tblBook} AS Books APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS Links RELATE 'BookID' TO 'BookNo') AS Links"_s
            << u"Shape command: 'BookNo' named after TO is not a column of Links."_s;
        QTest::newRow("BY")
            << u"SHAPE (SHAPE {SELECT * FROM qryTopicDescForRep3} AS Topics) COMPUTE Topics BY 'Topic'"_s
            << u"Shape command: 'Topic' named after BY is not a column of Topics."_s;
        QTest::newRow("one chapter name twice")
            << u"SHAPE {SELECT BookID FROM tblBook} AS b APPEND ({SELECT BookID FROM tblBookAuthor} "
               "AS a RELATE 'BookID' TO 'BookID') AS Links, ({SELECT BookID FROM tblBookTopic} AS t "
               "RELATE 'BookID' TO 'BookID') AS LINKS"_s
            << u"Shape command: the chapter name 'LINKS' is used twice."_s;
        QTest::newRow("a chapter name of the nested parent again")
            << u"SHAPE (SHAPE {SELECT BookID FROM tblBook} AS b APPEND ({SELECT BookID FROM "
               "tblBookAuthor} AS a RELATE 'BookID' TO 'BookID') AS Links) AS b APPEND ({SELECT "
               "BookID FROM tblBookTopic} AS t RELATE 'BookID' TO 'BookID') AS links"_s
            << u"Shape command: the chapter name 'links' is used twice."_s;
    }

    void namesAColumnThatIsMissing()
    {
        QFETCH(QString, text);
        QFETCH(QString, error);
        OpenCatalogue open;
        try {
            open.run(text);
            QFAIL("The command ran");
        } catch (const ProviderError &refusal) {
            QCOMPARE(refusal.number, ProviderErrorNumber::Syntax);
            QCOMPARE(refusal.description, error);
        }
    }

    void passesOnTheCataloguesOwnError()
    {
        OpenCatalogue open;
        try {
            open.run(u"SHAPE {SELECT * FROM tblNowhere} AS x"_s);
            QFAIL("The command ran");
        } catch (const ProviderError &refusal) {
            QCOMPARE(refusal.description, u"no such table: tblNowhere"_s);
        }
    }
};

QTEST_GUILESS_MAIN(TestShapedRecordsets)
#include "tst_shapedrecordsets.moc"
