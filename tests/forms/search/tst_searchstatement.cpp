// The statement the search builds from each combination of criteria, set through the form's
// own boxes, and the books the search then puts into tblCriteriaHits.

#include "searchformfixture.h"

#include "forms/books/frmbookmaintenance.h"
#include "forms/search/frmsearch.h"
#include "support/finders.h"
#include "support/testmain.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Start = u"Select distinct tblBook.BookID from tblBook "_s;
const QString AuthorTables = u",tblBookAuthor,tblauthor"_s;
const QString AuthorJoin = u" tblBook.BookID = tblBookAuthor.BookID and tblBookAuthor.AuthorID = "
                           "tblAuthor.AuthorID"_s;
const QString TopicTables = u",tblBookTopic ,tblTopic"_s;
const QString TopicJoin = u" tblBook.BookID = tblBookTopic.BookID and tblBookTopic.TopicID = "
                          "tblTopic.TopicID"_s;
const QString PublisherTables = u" ,tblPublisher "_s;
const QString PublisherJoin = u" tblBook.BookPublisherID = tblPublisher.PublisherID"_s;

// The steps of setting the criteria, as SearchFormFixture::apply() takes them.
using Steps = QStringList;

} // namespace

class TestSearchStatement : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<SearchFormFixture> m_fixture;

private Q_SLOTS:
    void initTestCase()
    {
        TestEnvironment::clearSettings();
        // The book form opens at once: the statement's books are what it shows.
        TestEnvironment::storeSetting(u"frmSearch"_s, u"AddNewPrompt"_s, u"N"_s);
        m_fixture = std::make_unique<SearchFormFixture>();
        QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
        QVERIFY(m_fixture->openSearch());
    }

    void cleanupTestCase() { m_fixture.reset(); }

    void statementOfEachCombination_data()
    {
        QTest::addColumn<Steps>("steps");
        QTest::addColumn<QString>("statement");

        QTest::newRow("no box ticked") << Steps{} << Start;

        QTest::newRow("title with a star")
            << Steps{u"tick chkTitle"_s, u"type txtTitle war*"_s}
            << Start + u" where tblBook.BookDescription  like 'war%'"_s;
        QTest::newRow("title without a star")
            << Steps{u"tick chkTitle"_s, u"type txtTitle Emma"_s}
            << Start + u" where tblBook.BookDescription  = 'Emma'"_s;
        QTest::newRow("title ticked and empty")
            << Steps{u"tick chkTitle"_s} << Start + u" where tblBook.BookDescription  = ''"_s;
        QTest::newRow("title with stars inside")
            << Steps{u"tick chkTitle"_s, u"type txtTitle *and*"_s}
            << Start + u" where tblBook.BookDescription  like '%and%'"_s;

        QTest::newRow("author ticked, nothing chosen")
            << Steps{u"tick chkAuthor"_s} << Start + AuthorTables + u" where"_s + AuthorJoin;
        QTest::newRow("author picked")
            << Steps{u"tick chkAuthor"_s, u"pick dboAuthorLkup Dickens"_s}
            << Start + AuthorTables + u" where"_s + AuthorJoin
                   + u" and tblAuthor.AuthorSurname = 'Dickens'"_s;
        QTest::newRow("author surname typed")
            << Steps{u"tick chkAuthor"_s, u"type txtAuthor Aus*"_s}
            << Start + AuthorTables + u" where"_s + AuthorJoin
                   + u" and tblAuthor.AuthorSurname like 'Aus%'"_s;
        QTest::newRow("author picked and surname typed")
            << Steps{u"tick chkAuthor"_s, u"pick dboAuthorLkup Dickens"_s,
                     u"type txtAuthor Dick*"_s}
            << Start + AuthorTables + u" where"_s + AuthorJoin
                   + u" and tblAuthor.AuthorSurname = 'Dickens' and tblAuthor.AuthorSurname "
                     "like 'Dick%'"_s;

        QTest::newRow("topic picked")
            << Steps{u"tick chkTopic"_s, u"pick dboTopicLkup Fiction"_s}
            << Start + TopicTables + u" where"_s + TopicJoin
                   + u" and tblTopic.TopicDescription = 'Fiction'"_s;
        QTest::newRow("topic typed")
            << Steps{u"tick chkTopic"_s, u"type txtTopic Poe*"_s}
            << Start + TopicTables + u" where"_s + TopicJoin
                   + u" and tblTopic.TopicDescription  like 'Poe%'"_s;

        QTest::newRow("publisher picked")
            << Steps{u"tick chkPublisher"_s, u"pick dboPublisherLkup Mercer Brothers"_s}
            << Start + PublisherTables + u" where"_s + PublisherJoin
                   + u" and tblPublisher.PublisherName = 'Mercer Brothers'"_s;
        QTest::newRow("publisher typed")
            << Steps{u"tick chkPublisher"_s, u"type txtPublisher Tarn*"_s}
            << Start + PublisherTables + u" where"_s + PublisherJoin
                   + u" and tblPublisher.PublisherName  like 'Tarn%'"_s;

        QTest::newRow("price from 10 to 20")
            << Steps{u"tick chkPrice"_s, u"type txtPriceFrom 10"_s, u"type txtPriceTo 20"_s}
            << u"Select distinct tblBook.BookID from tblBook  where tblBook.BookPrice between 10 "
               "and 20"_s;
        QTest::newRow("publication years")
            << Steps{u"tick chkDate"_s, u"type txtDateFrom 1840"_s, u"type txtDateTo 1860"_s}
            << Start + u" where tblBook.BookWhenPublished between 1840 and 1860"_s;

        QTest::newRow("title and price")
            << Steps{u"tick chkTitle"_s, u"type txtTitle *e*"_s, u"tick chkPrice"_s,
                     u"type txtPriceFrom 0"_s, u"type txtPriceTo 100"_s}
            << Start + u" where tblBook.BookDescription  like '%e%' and tblBook.BookPrice "
                       "between 0 and 100"_s;
        QTest::newRow("author and topic")
            << Steps{u"tick chkTopic"_s, u"pick dboTopicLkup Fiction"_s, u"tick chkAuthor"_s,
                     u"type txtAuthor B*"_s}
            << Start + AuthorTables + TopicTables + u" where"_s + AuthorJoin + u" and"_s
                   + TopicJoin + u" and tblAuthor.AuthorSurname like 'B%'"_s
                   + u" and tblTopic.TopicDescription = 'Fiction'"_s;
        QTest::newRow("every box")
            << Steps{u"tick chkDate"_s,          u"type txtDateFrom 1800"_s,
                     u"type txtDateTo 2000"_s,   u"tick chkPrice"_s,
                     u"type txtPriceFrom 1"_s,   u"type txtPriceTo 100000"_s,
                     u"tick chkPublisher"_s,     u"type txtPublisher *"_s,
                     u"tick chkTopic"_s,         u"type txtTopic *i*"_s,
                     u"tick chkAuthor"_s,        u"pick dboAuthorLkup Dickens"_s,
                     u"tick chkTitle"_s,         u"type txtTitle *"_s}
            << Start + AuthorTables + TopicTables + PublisherTables + u" where"_s + AuthorJoin
                   + u" and"_s + TopicJoin + u" and"_s + PublisherJoin
                   + u" and tblBook.BookDescription  like '%'"_s
                   + u" and tblAuthor.AuthorSurname = 'Dickens'"_s
                   + u" and tblTopic.TopicDescription  like '%i%'"_s
                   + u" and tblPublisher.PublisherName  like '%'"_s
                   + u" and tblBook.BookPrice between 1 and 100000"_s
                   + u" and tblBook.BookWhenPublished between 1800 and 2000"_s;
    }

    // The statement built from the boxes, and the search's hits against what it selects.
    void statementOfEachCombination()
    {
        QFETCH(Steps, steps);
        QFETCH(QString, statement);
        QVERIFY(m_fixture->openSearch());
        Click(FindControl(m_fixture->search(), u"cmdReset"_s));
        m_fixture->apply(steps);
        QCOMPARE(SearchStatement(m_fixture->search()->criteria()), statement);

        const QStringList selected = m_fixture->keysOf(statement);
        m_fixture->setHits({u"-1"_s});
        if (selected.isEmpty()) {
            const QString answered = m_fixture->pressSearch(
                {Message(u"Search Result"_s,
                         u"No Books found matching the specified search criteria"_s)});
            QVERIFY2(answered.isEmpty(), qPrintable(answered));
            QCOMPARE(m_fixture->hits(), QStringList{u"-1"_s});
            return;
        }
        const QString answered = m_fixture->pressSearch({});
        QVERIFY2(answered.isEmpty(), qPrintable(answered));
        QCOMPARE(m_fixture->hits(), selected);
        QTRY_VERIFY(m_fixture->form() && m_fixture->form()->isVisible());
        QCOMPARE(Panel(m_fixture->form(), 1), u"Filtered"_s);
        QCOMPARE(Panel(m_fixture->form(), 2), u"Book 1 of "_s + QString::number(selected.size()));
    }
};

SHELVANE_TEST_MAIN(TestSearchStatement)
#include "tst_searchstatement.moc"
