#include "data/connection.h"
#include "data/connectionstring.h"
#include "data/lazyrows.h"
#include "data/providererror.h"
#include "data/recordset.h"
#include "support/testcatalogue.h"

#include <QSqlQuery>
#include <QTest>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

// The book form's two record sources in its filtered mode, as it writes them.
const QString FilteredBooks =
    u"Select tblBook.* from tblBook,tblCriteriaHits where tblcriteriahits.BookID = "
    "tblBook.BookID order by tblBook.BookDescription"_s;
const QString FilteredLookup =
    u"select tblbook.BookID, tblbook.bookdescription from tblbook, tblCriteriaHits where "
    "tblcriteriahits.BookID = tblBook.BookID order by tblBook.bookdescription"_s;

// The same select read whole: a text in quotes makes a record set read every row when it
// opens, and leaves SQLite's way through the tables as it was.
QString readWhole(const QString &select)
{
    return QString(select).replace(u" order by "_s, u" and '' = '' order by "_s);
}

QString describe(const QVariant &value)
{
    return value.isNull() ? u"Null"_s : value.toString();
}

// Every row as valueAt gives it, and where the cursor is.
QStringList seen(const Recordset &rs)
{
    QStringList rows{u"at %1 of %2, mode %3"_s.arg(rs.absolutePosition())
                         .arg(rs.recordCount())
                         .arg(int(rs.editMode()))};
    for (int row = 0; row < rs.recordCount(); ++row) {
        QStringList values;
        for (int field = 0; field < rs.fieldCount(); ++field)
            values << describe(rs.valueAt(row, field));
        rows << values.join(u'|');
    }
    return rows;
}

// What a step does, and the error it meets (an empty text when none).
using Step = std::function<void(Recordset &)>;

QString run(Recordset &rs, const Step &step)
{
    try {
        step(rs);
    } catch (const ProviderError &error) {
        return u"error "_s + QString::number(error.number);
    }
    return {};
}

} // namespace

// A select of one table's fields joined with others (the book form's filtered sources)
// reads its keys when it opens and each row when it is visited, and shows what the same
// select read whole shows: the same rows in the same order, the same finds, and edits written
// as before (or refused, when the record set is read-only).
class TestLazyJoin : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestCatalogue> m_catalogue;
    std::unique_ptr<Connection> m_connection;

    void hit(const QString &books)
    {
        QSqlQuery query(m_catalogue->db());
        QVERIFY(query.exec(u"delete from tblCriteriaHits"_s));
        QVERIFY(query.exec(u"insert into tblCriteriaHits (BookID) "_s + books));
    }

    // The rows and the catalogue's books after the step, the select read as it is and read
    // whole, each on a fresh catalogue.
    void compare(const QString &select, const Step &step, QStringList (&results)[2])
    {
        const QString selects[2]{select, readWhole(select)};
        for (int i = 0; i < 2; ++i) {
            init();
            std::unique_ptr<Recordset> rs = m_connection->execute(selects[i]);
            QCOMPARE(rs->rowsRead() == rs->recordCount(), i == 1);
            results[i] << run(*rs, step) << seen(*rs);
            QSqlQuery books(m_catalogue->db());
            books.exec(u"select BookID, BookDescription, BookNotes from tblBook order by BookID"_s);
            while (books.next())
                results[i] << books.value(0).toString() + u'|' + books.value(1).toString() + u'|'
                        + describe(books.value(2));
        }
    }

private Q_SLOTS:
    void init()
    {
        m_connection.reset();
        m_catalogue = std::make_unique<TestCatalogue>(TestCatalogue::Content::Large);
        // Every third book, and a few twice over, as a hand-made table of hits may hold. Books
        // of the same title come in the order of their keys.
        hit(u"select BookID from tblBook where BookID % 3 = 0 union all select BookID from "
            "tblBook where BookID % 500 = 0 order by 1"_s);
        m_connection = std::make_unique<Connection>();
        m_connection->open(ConnectionString::forCatalogue(m_catalogue->path()));
    }
    void cleanup()
    {
        m_connection.reset();
        m_catalogue.reset();
    }

    void opensOnTheKeysOnly()
    {
        for (const QString &select : {FilteredBooks, FilteredLookup}) {
            std::unique_ptr<Recordset> rs = m_connection->execute(select);
            QCOMPARE(rs->recordCount(),
                     m_catalogue->scalar(u"select count(*) from tblCriteriaHits"_s).toInt());
            QCOMPARE(rs->rowsRead(), 0);
            rs->value(1);
            QCOMPARE(rs->rowsRead(), LazyRows::PageRows);
            rs->moveTo(rs->recordCount() / 2);
            rs->value(1);
            QCOMPARE(rs->rowsRead(), 2 * LazyRows::PageRows);
        }
    }

    void sameAsAWholeRead_data()
    {
        QTest::addColumn<QString>("select");
        QTest::addColumn<Step>("step");
        const auto row = [](int row) { return Step([row](Recordset &rs) { rs.moveTo(row); }); };
        for (const QString &select : {FilteredBooks, FilteredLookup}) {
            const QString name = select == FilteredBooks ? u"books: "_s : u"lookup: "_s;
            QTest::newRow(qPrintable(name + u"nothing"_s)) << select << Step([](Recordset &) {});
            QTest::newRow(qPrintable(name + u"far down"_s)) << select << row(1100);
            QTest::newRow(qPrintable(name + u"find a book twice over"_s))
                << select << Step([](Recordset &rs) {
                       rs.find(u"BookID = 1500"_s);
                       rs.find(u"BookID = 1500"_s, 1);
                   });
            QTest::newRow(qPrintable(name + u"find by title, back from the end"_s))
                << select << Step([](Recordset &rs) {
                       rs.moveLast();
                       rs.find(u"BookDescription = '"_s + rs.valueAt(40, 1).toString() + u'\'',
                               0, false /* forward */);
                   });
            QTest::newRow(qPrintable(name + u"edit a title"_s))
                << select << Step([](Recordset &rs) {
                       rs.moveTo(700);
                       rs.setValue(u"BookDescription"_s, u"Aardvarks"_s);
                       rs.moveNext();
                   });
            QTest::newRow(qPrintable(name + u"delete a book"_s))
                << select << Step([](Recordset &rs) {
                       rs.moveTo(900);
                       rs.deleteCurrent();
                       rs.moveNext();
                   });
            QTest::newRow(qPrintable(name + u"requery"_s))
                << select << Step([](Recordset &rs) {
                       rs.moveTo(20);
                       rs.requery();
                       rs.moveTo(1100);
                   });
        }
        QTest::newRow("books: notes written back")
            << FilteredBooks << Step([](Recordset &rs) {
                   rs.moveTo(1000);
                   rs.setValue(u"BookNotes"_s, u"Written through the join"_s);
                   rs.update();
                   rs.requery();
               });
    }

    void sameAsAWholeRead()
    {
        QFETCH(QString, select);
        QFETCH(Step, step);
        QStringList lazyAndWhole[2];
        compare(select, step, lazyAndWhole);
        QCOMPARE(lazyAndWhole[0], lazyAndWhole[1]);
    }

    void theLookupIsReadOnly()
    {
        std::unique_ptr<Recordset> rs = m_connection->execute(FilteredLookup);
        QVERIFY(!rs->isUpdatable());
        QCOMPARE(run(*rs, [](Recordset &lookup) { lookup.setValue(1, u"Changed"_s); }),
                 u"error "_s + QString::number(ProviderErrorNumber::ReadOnly));
        std::unique_ptr<Recordset> books = m_connection->execute(FilteredBooks);
        QVERIFY(books->isUpdatable());
        QCOMPARE(books->baseTable().toLower(), u"tblbook"_s);
    }

    // A hit taken away by another connection before its page is read: the row keeps its
    // place and its key, every other field Null, as a deleted row does.
    void aHitTakenAwayMeanwhile()
    {
        std::unique_ptr<Recordset> rs = m_connection->execute(FilteredBooks);
        const int count = rs->recordCount();
        const QVariant key = rs->valueAt(1400, 0);
        QSqlQuery other(m_catalogue->db());
        QVERIFY(other.exec(u"delete from tblCriteriaHits where BookID = "_s + key.toString()));
        rs->moveTo(1400);
        QCOMPARE(rs->recordCount(), count);
        QCOMPARE(rs->value(0), key);
        QVERIFY(rs->value(u"BookDescription"_s).isNull());
        rs->moveNext();
        QCOMPARE(rs->absolutePosition(), 1402);
    }

    void whichSelectsAreLazy_data()
    {
        QTest::addColumn<QString>("select");
        QTest::addColumn<bool>("lazy");
        QTest::newRow("filtered books") << FilteredBooks << true;
        QTest::newRow("filtered lookup") << FilteredLookup << true;
        QTest::newRow("inner join")
            << u"select tblBook.* from tblBook inner join tblCriteriaHits on "
               "tblCriteriaHits.BookID = tblBook.BookID order by BookDescription"_s
            << true;
        QTest::newRow("another table's field")
            << u"select tblBook.BookID, tblCriteriaHits.BookID from tblBook, tblCriteriaHits "
               "where tblCriteriaHits.BookID = tblBook.BookID order by tblBook.BookID"_s
            << false;
        QTest::newRow("fields not named by table")
            << u"select BookID, BookDescription from tblBook, tblCriteriaHits where "
               "tblCriteriaHits.BookID = tblBook.BookID order by BookDescription"_s
            << false;
        QTest::newRow("one table") << u"select tblBook.* from tblBook order by BookID"_s << false;
        QTest::newRow("no order") << u"select tblBook.* from tblBook, tblCriteriaHits"_s << false;
        QTest::newRow("a quoted text")
            << u"select tblBook.* from tblBook, tblCriteriaHits where tblCriteriaHits.BookID = "
               "tblBook.BookID and BookNotes = 'x where y' order by BookID"_s
            << false;
        QTest::newRow("order by place")
            << u"select tblBook.BookDescription, tblBook.BookID from tblBook, tblCriteriaHits "
               "where tblCriteriaHits.BookID = tblBook.BookID order by 1"_s
            << false;
        QTest::newRow("distinct")
            << u"select distinct tblBook.* from tblBook, tblCriteriaHits order by BookID"_s
            << false;
        QTest::newRow("group") << u"select tblBook.BookID from tblBook, tblCriteriaHits group "
                                  "by tblBook.BookID order by tblBook.BookID"_s
                               << false;
    }

    void whichSelectsAreLazy()
    {
        QFETCH(QString, select);
        QFETCH(bool, lazy);
        QCOMPARE(LazyRows::forJoin(select).has_value(), lazy);
    }

    // A column named by its place would name another column of the key query.
    void oneTableOrderedByPlaceIsReadWhole()
    {
        QVERIFY(!LazyRows::forSelect(u"select BookDescription, BookID from tblBook order by 1"_s));
        std::unique_ptr<Recordset> rs =
            m_connection->execute(u"select BookDescription, BookID from tblBook order by 1"_s);
        QCOMPARE(rs->value(0).toString(),
                 m_catalogue->programScalar(u"select BookDescription from tblBook order by "
                                            "BookDescription"_s)
                     .toString());
    }
};

QTEST_GUILESS_MAIN(TestLazyJoin)
#include "tst_lazyjoin.moc"
