// Handing one book to the book form: the hits replaced as a whole, and the book form loaded
// afresh on them.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "browsefixture.h"
#include "data/providererror.h"
#include "forms/books/bookformfixture.h"
#include "forms/search/bookhandover.h"
#include "support/testmain.h"

using namespace Qt::StringLiterals;

class TestBookHandOver : public QObject
{
    Q_OBJECT

    std::unique_ptr<BrowseFixture> m_fixture;

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<BrowseFixture>();
        QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
        QCOMPARE(m_fixture->exec(u"insert into tblCriteriaHits (BookID) values (3), (4)"_s),
                 QString());
    }
    void cleanup() { m_fixture.reset(); }

    void theBookBecomesTheOnlyHit()
    {
        ShowOnlyBook(m_fixture->frame(), u"6"_s);
        QCOMPARE(m_fixture->hits(), QStringList{u"6"_s});
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Wuthering Heights"_s), QString());
    }

    // A book form open on the whole collection is closed and opened again, filtered.
    void anOpenBookFormIsLoadedAfresh()
    {
        QWidget *before = m_fixture->frame().forms().show(u"frmBookMaintenance"_s);
        QVERIFY(before);
        QVERIFY(Panel(before, 1) != u"Filtered"_s);
        ShowOnlyBook(m_fixture->frame(), u"2"_s);
        QVERIFY(m_fixture->bookForm() != before);
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Emma"_s), QString());
    }

    // Deleting the old hits and inserting the new one are one change: when the insert
    // fails, the old hits stay and the book form is left as it was.
    void aFailedInsertKeepsTheEarlierHits()
    {
        QWidget *before = m_fixture->bookForm();
        bool failed = false;
        try {
            ShowOnlyBook(m_fixture->frame(), u"6)"_s);
        } catch (const ProviderError &) {
            failed = true;
        }
        QVERIFY(failed);
        QCOMPARE(m_fixture->hits(), (QStringList{u"3"_s, u"4"_s}));
        QVERIFY(!m_fixture->frame().session().BookFilterPending);
        QCOMPARE(m_fixture->bookForm(), before);
    }
};

SHELVANE_TEST_MAIN(TestBookHandOver)
#include "tst_bookhandover.moc"
