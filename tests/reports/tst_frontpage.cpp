// The front page of the three listings, read from the page model: the owner's details in
// order, trimmed and left blank as typed, and the errors of a missing or null owner.
#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "reportfixture.h"
#include "reports/reportpaginator.h"
#include "support/testcatalogue.h"

#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

void exec(const TestCatalogue &catalogue, const QString &sql)
{
    QSqlQuery query(catalogue.db());
    QVERIFY2(query.exec(sql), qPrintable(sql));
}

// The front page's texts from the top of the page down, footer left out.
QStringList frontPageTexts(const ReportPage &page)
{
    QList<const PageItem *> items;
    for (const PageItem &item : page.items) {
        if (item.kind == PageItem::Kind::Text && item.section == u"FrontPage")
            items.append(&item);
    }
    std::stable_sort(items.begin(), items.end(), [](const PageItem *a, const PageItem *b) {
        if (!qFuzzyCompare(a->rect.top(), b->rect.top()))
            return a->rect.top() < b->rect.top();
        return a->rect.left() < b->rect.left();
    });
    QStringList texts;
    for (const PageItem *item : items)
        texts.append(item->text);
    return texts;
}

const QList<CatalogueListing> listings{CatalogueListing::ByTitle, CatalogueListing::ByAuthor,
                                       CatalogueListing::ByTopic};

} // namespace

class TestFrontPage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void frontPageShowsTheOwnerInOrder_data()
    {
        QTest::addColumn<CatalogueListing>("listing");
        QTest::addColumn<QString>("title");
        QTest::newRow("by title") << CatalogueListing::ByTitle << u"Main Book Listing"_s;
        QTest::newRow("by author") << CatalogueListing::ByAuthor << u"Listing by Author"_s;
        QTest::newRow("by topic") << CatalogueListing::ByTopic << u"Listing by Topic"_s;
    }

    void frontPageShowsTheOwnerInOrder()
    {
        QFETCH(CatalogueListing, listing);
        QFETCH(QString, title);
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto report = LoadListingOf(catalogue.path(), listing).paginate(QDate(2026, 11, 24));
        const ReportPage *front = report->page(0);
        QVERIFY(front);
        QCOMPARE(frontPageTexts(*front),
                 QStringList({u"The Whitcombe Library"_s, title, u"the collection of"_s,
                              u"Eleanor Whitcombe"_s, u"Rosemary Cottage"_s, u"12 Church Lane"_s,
                              u"Little Hadham"_s, u"Ware"_s, u"Hertfordshire"_s, u"SG11 2DX"_s,
                              u"Telephone: "_s, u"01632 960418"_s, u"Fax:"_s, u"01632 960419"_s,
                              u"E-mail: "_s, u"eleanor.whitcombe@example.com"_s,
                              u"Printed 24 November 2026"_s}));
        // The front page stands alone: no entry and no page header on it.
        QVERIFY(front->textsOf(u"txtBookDescription"_s).isEmpty());
        QVERIFY(front->textsOf(u"lblCatalogueName"_s).isEmpty());
    }

    void secondTelephoneIsNeverPrinted()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            for (const ReportPage *page : AllPages(*report))
                QVERIFY(!page->texts().join(u'|').contains(u"07700 900523"_s));
        }
    }

    // With nothing to say about an owner, the front page leaves out its own lines about one:
    // "the collection of" and the printed date (which the page footer still carries).
    void anEmptyOwnerLeavesTheFrontPageToTheTitles()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        exec(catalogue, u"UPDATE tblCatalogueControl SET Firstname = '', Surname = '', Addr1 = '', "
                        "Addr2 = '', Addr3 = '', Addr4 = '', Addr5 = '', PostCode = '', TelNo1 = '', "
                        "TelNo2 = '', FaxNo = '', Email = ''"_s);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate(QDate(2026, 11, 24));
        const ReportPage &front = *report->page(0);
        QCOMPARE(frontPageTexts(front), QStringList({u"The Whitcombe Library"_s, u"Main Book Listing"_s,
                                                     u" "_s, u"Telephone: "_s, u"Fax:"_s, u"E-mail: "_s}));
        QCOMPARE(front.textsOf(u"txtPrintDate"_s), QStringList({u"24 November 2026"_s}));

        // One detail is enough for both lines to come back.
        exec(catalogue, u"UPDATE tblCatalogueControl SET Email = 'me@example.com'"_s);
        const auto mailed = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate(QDate(2026, 11, 24));
        QVERIFY(frontPageTexts(*mailed->page(0)).contains(u"the collection of"_s));
        QVERIFY(frontPageTexts(*mailed->page(0)).contains(u"Printed 24 November 2026"_s));
    }

    void emptyAddressLinesPrintBlankInPlace()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto before = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        const QRectF addr3 = itemOf(*before->page(0), u"lblAddr3"_s)->rect;
        exec(catalogue, u"UPDATE tblCatalogueControl SET Firstname = '  ', Surname = '', "
                        "Addr2 = '', Addr4 = '   '"_s);
        const auto after = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        const ReportPage &front = *after->page(0);
        QCOMPARE(front.textsOf(u"lblName"_s), QStringList({u" "_s}));
        QVERIFY(front.textsOf(u"lblAddr2"_s).isEmpty());
        QVERIFY(front.textsOf(u"lblAddr4"_s).isEmpty());
        QCOMPARE(itemOf(front, u"lblAddr3"_s)->rect, addr3);
        QCOMPARE(front.textsOf(u"lblAddr5"_s), QStringList({u"Hertfordshire"_s}));
    }

    void catalogueNameIsPrintedUntrimmedAndTheRestTrimmed()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        exec(catalogue, u"UPDATE tblCatalogueControl SET CatalogueName = ' Spaced Out ', "
                        "Addr1 = '  1 High St  ', Email = ' me@example.com '"_s);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        const ReportPage &front = *report->page(0);
        QCOMPARE(front.textsOf(u"lblTitle"_s), QStringList({u" Spaced Out "_s}));
        QCOMPARE(front.textsOf(u"lblAddr1"_s), QStringList({u"1 High St"_s}));
        QCOMPARE(front.textsOf(u"lblEmail"_s), QStringList({u"me@example.com"_s}));
    }

    void missingOwnerRowFailsWhileTheFrontPageIsFilled()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        exec(catalogue, u"DELETE FROM tblCatalogueControl"_s);
        try {
            LoadListingOf(catalogue.path(), CatalogueListing::ByTitle);
            QFAIL("the listing loaded without an owner row");
        } catch (const ProviderError &error) {
            QCOMPARE(error.number, 3021);
        }
    }

    void nullOwnerColumnFailsWhileTheFrontPageIsFilled()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        // A catalogue made elsewhere, whose owner table lets a column be null.
        exec(catalogue, u"DROP TABLE tblCatalogueControl"_s);
        exec(catalogue, u"CREATE TABLE tblCatalogueControl (CatalogueName TEXT, Firstname TEXT, "
                        "Surname TEXT, Addr1 TEXT, Addr2 TEXT, Addr3 TEXT, Addr4 TEXT, Addr5 TEXT, "
                        "PostCode TEXT, TelNo1 TEXT, TelNo2 TEXT, FaxNo TEXT, Email TEXT)"_s);
        exec(catalogue, u"INSERT INTO tblCatalogueControl VALUES ('Mine', 'A', 'B', '', '', '', "
                        "'', '', '', '', '', NULL, '')"_s);
        try {
            LoadListingOf(catalogue.path(), CatalogueListing::ByTopic);
            QFAIL("the listing loaded with a null fax number");
        } catch (const RuntimeError &error) {
            QCOMPARE(error.number, 94);
            QCOMPARE(error.description, u"Invalid use of Null"_s);
        }
        // The second telephone number is not printed, so a null there does no harm.
        exec(catalogue, u"UPDATE tblCatalogueControl SET FaxNo = '', TelNo2 = NULL"_s);
        QCOMPARE(LoadListingOf(catalogue.path(), CatalogueListing::ByTopic).paginate()->page(0)
                     ->textsOf(u"lblTitle"_s), QStringList({u"Mine"_s}));
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestFrontPage)
#include "tst_frontpage.moc"
