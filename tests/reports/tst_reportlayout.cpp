// The pages of the three listings, read from the page model: the front page, the entries
// and their order, the headings, the page furniture, and the rules of the layout.
#include "catalogue/cataloguefile.h"
#include "catalogue/generator.h"
#include "data/providererror.h"
#include "data/runtimeerror.h"
#include "reportfixture.h"
#include "reports/reportfont.h"
#include "reports/reportpaginator.h"
#include "support/testcatalogue.h"

#include <QFontMetricsF>
#include <QSqlQuery>

using namespace Qt::StringLiterals;

namespace {

// The first value of every row, ordered as the program orders text.
QStringList column(const TestCatalogue &catalogue, const QString &sql)
{
    QStringList values;
    for (const QVariantList &row : catalogue.programRows(sql))
        values.append(row.value(0).toString());
    return values;
}

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

const PageItem *itemOf(const ReportPage &page, const QString &control)
{
    for (const PageItem &item : page.items) {
        if (item.control == control)
            return &item;
    }
    return nullptr;
}

const QString continued = u" (continued)"_s;

// The texts of headings and entries, in the order printed, as "# topic" and "book"; a
// heading printed again at the top of a page as "# topic (continued)".
QStringList headingsAndTitles(const QList<const ReportPage *> &pages)
{
    QStringList printed;
    for (const ReportPage *page : pages) {
        for (const PageItem &item : page->items) {
            if (item.control == u"Text1")
                printed.append(u"# "_s + item.text);
            else if (item.control == u"txtBookDescription")
                printed.append(item.text);
        }
    }
    return printed;
}

// Where a one-line text printed by a control starts and ends across the page.
std::pair<qreal, qreal> textSpan(const ReportPage &page, const PageItem &item)
{
    const qreal start = item.rect.left() + item.textOrigin.x();
    const QFontMetricsF metrics(ReportFont(page.fontFamily, item.style));
    return {start, start + metrics.horizontalAdvance(item.text)};
}

QString generatedCatalogue(const QTemporaryDir &folder, int books)
{
    const QString path = folder.filePath(u"QuireshelfCatalog01.mdb"_s);
    Generator::Options options;
    options.books = books;
    CatalogueFile::create(path, false, [&](QSqlDatabase &db) { Generator::fill(db, options); });
    return path;
}

const QList<CatalogueListing> listings{CatalogueListing::ByTitle, CatalogueListing::ByAuthor,
                                       CatalogueListing::ByTopic};

} // namespace

class TestReportLayout : public QObject
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

    void titleListingHoldsEveryBookOnceInTitleOrder()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QVERIFY(pages.size() > 2);
        QCOMPARE(TextsOf(pages, u"txtBookDescription"_s),
                 column(catalogue, u"SELECT BookDescription FROM tblBook ORDER BY BookDescription, BookID"_s));
        QCOMPARE(TextsOf(pages, u"txtBookId"_s),
                 column(catalogue, u"SELECT 'Book No. ' || BookID FROM tblBook ORDER BY BookDescription, BookID"_s));
        for (const ReportPage *page : pages.mid(1))
            QCOMPARE(page->textsOf(u"lblCatalogueName"_s), QStringList({u"The Whitcombe Library"_s}));
    }

    void authorListingPrintsTheRowsInTheOrderReceived()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByAuthor).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QCOMPARE(TextsOf(pages, u"txtBookId"_s),
                 column(catalogue, u"SELECT 'Book No. ' || Expr1 FROM qryReport02"_s));
        QCOMPARE(TextsOf(pages, u"txtBookOtherDets"_s),
                 column(catalogue, u"SELECT BookDets2 FROM qryReport02 WHERE BookDets2 <> ''"_s));
    }

    void topicListingPrintsEachTopicOverItsBooks()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByTopic).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QStringList expected;
        for (const QString &topic : column(catalogue, u"SELECT DISTINCT t.TopicDescription FROM tblTopic t "
                                                      "JOIN tblBookTopic bt ON bt.TopicID = t.TopicID "
                                                      "ORDER BY t.TopicDescription"_s)) {
            expected.append(u"# "_s + topic);
            QString escaped = topic;
            escaped.replace(u"'"_s, u"''"_s);
            expected += column(catalogue, u"SELECT b.BookDescription FROM tblBook b "
                                          "JOIN tblBookTopic bt ON bt.BookID = b.BookID "
                                          "JOIN tblTopic t ON t.TopicID = bt.TopicID "
                                          "WHERE t.TopicDescription = '%1' "
                                          "ORDER BY b.BookDescription, b.BookID"_s.arg(escaped));
        }
        QStringList printed = headingsAndTitles(pages);
        printed.removeIf([](const QString &text) { return text.endsWith(continued); });
        QCOMPARE(printed, expected);
        // A heading never ends a page: its first book follows it there.
        for (const ReportPage *page : pages) {
            const QStringList printed = headingsAndTitles({page});
            if (!printed.isEmpty())
                QVERIFY2(!printed.constLast().startsWith(u"# "_s), qPrintable(printed.constLast()));
        }
    }

    // A topic whose books run onto the next page is headed there again, marked as continued,
    // right under the page header; a page that starts a topic of its own starts with its
    // heading.
    void aTopicRunningOntoANewPageIsHeadedThereAgain()
    {
        QTemporaryDir folder;
        const QString path = generatedCatalogue(folder, 300);
        const auto report = LoadListingOf(path, CatalogueListing::ByTopic).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QString lastHeading;
        int continuations = 0;
        for (const ReportPage *page : pages.mid(1)) {
            const QStringList printed = headingsAndTitles({page});
            if (!printed.isEmpty() && !printed.constFirst().startsWith(u"# "_s))
                QFAIL(qPrintable(u"page %1 starts with \"%2\" under no heading"_s
                                     .arg(page->number).arg(printed.constFirst())));
            for (const QString &text : printed) {
                if (!text.startsWith(u"# "_s))
                    continue;
                if (text.endsWith(continued)) {
                    QCOMPARE(text, lastHeading + continued);
                    QCOMPARE(text, printed.constFirst());
                    ++continuations;
                } else {
                    lastHeading = text;
                }
            }
            const QList<PageItem>::const_iterator heading =
                std::find_if(page->items.cbegin(), page->items.cend(),
                             [](const PageItem &item) { return item.control == u"Text1"; });
            if (heading != page->items.cend() && heading->text.endsWith(continued)) {
                const qreal headerRule = itemOf(*page, u"linHeaderRule"_s)->rect.top();
                QVERIFY(heading->rect.top() > headerRule);
                QVERIFY(heading->rect.top() < headerRule + 30 * Decipoints::PerPoint);
            }
        }
        QVERIFY(continuations > 0);
    }

    // The author listing prints a book under each of its authors; each page's header names
    // the first and last author whose books are on it.
    void theAuthorListingIsHeadedWithTheFirstAndLastAuthorOfEachPage()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        const auto report = LoadListingOf(catalogue.path(), CatalogueListing::ByAuthor).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QVERIFY(pages.size() > 3);
        const QStringList authors = column(catalogue, u"SELECT ifnull(ListedAuthor, '') FROM qryReport02"_s);
        QVERIFY(authors.contains(u"Brontë, Charlotte"_s));
        qsizetype entry = 0;
        for (const ReportPage *page : pages.mid(1)) {
            const qsizetype entries = page->textsOf(u"txtBookDescription"_s).size();
            QStringList onPage = authors.mid(entry, entries);
            entry += entries;
            onPage.removeAll(QString());
            QString expected;
            if (!onPage.isEmpty()) {
                expected = onPage.constFirst() == onPage.constLast()
                    ? onPage.constFirst()
                    : onPage.constFirst() + u" \u2013 "_s + onPage.constLast();
            }
            QCOMPARE(page->textsOf(u"txtRunningHead"_s),
                     expected.isEmpty() ? QStringList() : QStringList{expected});
        }
        QCOMPARE(entry, authors.size());
        // The other listings have no running head.
        for (CatalogueListing listing : {CatalogueListing::ByTitle, CatalogueListing::ByTopic}) {
            const auto other = LoadListingOf(catalogue.path(), listing).paginate();
            QVERIFY(TextsOf(AllPages(*other), u"txtRunningHead"_s).isEmpty());
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

    // "Page: N" reads as one text that ends where the footer's rule ends, whatever N's width.
    void pageNumberEndsAtTheRightEndOfTheFootersRule()
    {
        QTemporaryDir folder;
        const QString path = generatedCatalogue(folder, 200);
        const auto report = LoadListingOf(path, CatalogueListing::ByTitle).paginate();
        const QList<const ReportPage *> pages = AllPages(*report);
        QVERIFY(pages.size() >= 10);
        for (const ReportPage *page : pages) {
            const PageItem *rule = itemOf(*page, u"linFooterRule"_s);
            const PageItem *caption = itemOf(*page, u"lblPage"_s);
            const PageItem *number = itemOf(*page, u"txtPageNumber"_s);
            QVERIFY(rule && caption && number);
            const auto [numberStart, numberEnd] = textSpan(*page, *number);
            const auto [captionStart, captionEnd] = textSpan(*page, *caption);
            QVERIFY2(qAbs(numberEnd - rule->rect.right()) < 0.5,
                     qPrintable(u"page %1 ends at %2, the rule at %3"_s.arg(page->number)
                                .arg(numberEnd).arg(rule->rect.right())));
            QVERIFY2(qAbs(captionEnd - numberStart) < 0.5,
                     qPrintable(u"page %1: \"Page: \" ends at %2, the number starts at %3"_s
                                .arg(page->number).arg(captionEnd).arg(numberStart)));
            QVERIFY(captionStart > rule->rect.left());
        }
    }

    void everyPageSaysPage()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            const QList<const ReportPage *> pages = AllPages(*report);
            for (const ReportPage *page : pages) {
                QCOMPARE(page->textsOf(u"lblPage"_s), QStringList({u"Page: "_s}));
                QCOMPARE(page->textsOf(u"txtPageNumber"_s), QStringList({QString::number(page->number)}));
            }
            QCOMPARE(pages.constLast()->number, pages.size());
        }
    }

    void nothingIsPrintedOutsideThePrintableArea()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            for (const ReportPage *page : AllPages(*report)) {
                const QRectF area = page->printableRect.adjusted(-0.01, -0.01, 0.01, 0.01);
                for (const PageItem &item : page->items) {
                    const QRectF &r = item.rect;
                    QVERIFY2(r.left() >= area.left() && r.right() <= area.right()
                                 && r.top() >= area.top() && r.bottom() <= area.bottom(),
                             qPrintable(u"page %1: %2 \"%3\""_s.arg(page->number).arg(item.control, item.text)));
                }
            }
        }
    }

    void noEntryIsSplitAcrossPages()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            for (const ReportPage *page : AllPages(*report)) {
                const qsizetype entries = page->textsOf(u"txtBookDescription"_s).size();
                QCOMPARE(page->textsOf(u"txtBookPrice"_s).size(), entries);
                QCOMPARE(page->textsOf(u"txtBookId"_s).size(), entries);
                // Each entry's frame closes above the page footer, holding the whole entry.
                const PageItem *footerRule = itemOf(*page, u"linFooterRule"_s);
                QVERIFY(footerRule);
                for (const PageItem &frame : page->items) {
                    if (frame.control != u"Shape1")
                        continue;
                    QVERIFY(frame.rect.bottom() <= footerRule->rect.top());
                }
                for (const PageItem &text : page->items) {
                    if (text.section != u"BookLine" && text.section != u"cmdReport3Sub_Detail")
                        continue;
                    bool framed = false;
                    for (const PageItem &frame : page->items) {
                        if (frame.control == u"Shape1" && frame.rect.contains(text.rect))
                            framed = true;
                    }
                    QVERIFY2(framed, qPrintable(text.text));
                }
            }
        }
    }

    void pricesPrintWithTheSessionSymbolWhateverTheDesign_data()
    {
        QTest::addColumn<CatalogueListing>("listing");
        QTest::newRow("designed with dollars") << CatalogueListing::ByTitle;
        QTest::newRow("designed with pounds") << CatalogueListing::ByAuthor;
        QTest::newRow("topic listing") << CatalogueListing::ByTopic;
    }

    void pricesPrintWithTheSessionSymbolWhateverTheDesign()
    {
        QFETCH(CatalogueListing, listing);
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        for (const QString &symbol : {u"£"_s, u"€"_s}) {
            const auto report = LoadListingOf(catalogue.path(), listing, symbol + u"###,##0.00"_s).paginate();
            const QStringList prices = TextsOf(AllPages(*report), u"txtBookPrice"_s);
            QVERIFY(!prices.isEmpty());
            for (const QString &price : prices)
                QVERIFY2(price.startsWith(symbol) && !price.contains(u'$'), qPrintable(price));
        }
        const auto pounds = LoadListingOf(catalogue.path(), CatalogueListing::ByTitle).paginate();
        QVERIFY(TextsOf(AllPages(*pounds), u"txtBookPrice"_s).contains(u"£8,400.00"_s));
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

    void apostrophesAccentsAndAmpersandsPrintAsTyped()
    {
        const TestCatalogue catalogue(TestCatalogue::Content::Sample);
        exec(catalogue, u"UPDATE tblCatalogueControl SET Firstname = 'Siobhán', "
                        "Surname = 'O''Brien & Søn'"_s);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            QString all;
            for (const ReportPage *page : AllPages(*report))
                all += page->texts().join(u'\n');
            for (const QString &typed : {u"Siobhán O'Brien & Søn"_s, u"Declan O'Brien"_s,
                                         u"Ravensworth & Co."_s, u"Dvořák in England"_s,
                                         u"Lindqvist Förlag"_s, u"Brontë"_s})
                QVERIFY2(all.contains(typed), qPrintable(typed));
        }
    }

    void emptyCataloguePrintsItsFrontPageAndAnEmptyListing()
    {
        const TestCatalogue catalogue;
        exec(catalogue, u"DELETE FROM tblBook"_s);
        for (CatalogueListing listing : listings) {
            const auto report = LoadListingOf(catalogue.path(), listing).paginate();
            const QList<const ReportPage *> pages = AllPages(*report);
            QCOMPARE(pages.constFirst()->textsOf(u"lblTitle"_s), QStringList({u"My Book Catalogue"_s}));
            QVERIFY(TextsOf(pages, u"txtBookDescription"_s).isEmpty());
            QVERIFY(TextsOf(pages, u"Text1"_s).isEmpty());
            QCOMPARE(TextsOf(pages, u"lblEndOfListing"_s), QStringList({u"End of listing"_s}));
        }
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

    void theFirstPageIsReadyBeforeTheRestAreLaidOut()
    {
        QTemporaryDir folder;
        const QString path = generatedCatalogue(folder, 1500);
        const auto report = LoadListingOf(path, CatalogueListing::ByTitle).paginate();
        QVERIFY(report->page(1));
        QCOMPARE(report->pagesLaidOut(), 2);
        QVERIFY(!report->isComplete());
        QVERIFY(report->pageCount() > 100);
        QVERIFY(report->isComplete());
        QVERIFY(!report->page(report->pageCount()));
        QCOMPARE(TextsOf(AllPages(*report), u"txtBookDescription"_s).size(), 1500);
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestReportLayout)
#include "tst_reportlayout.moc"
