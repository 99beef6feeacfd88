// The book listing: its rows against the catalogue, sorting by the column headers, and a
// ticked row opening its book alone in the book form.

#include "app/formregistry.h"
#include "app/mainframe.h"
#include "browsefixture.h"
#include "forms/books/bookformfixture.h"
#include "forms/search/booklistingmodel.h"
#include "support/finders.h"
#include "support/modalresponder.h"
#include "support/moneylocales.h"
#include "support/screenshot.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCollator>
#include <QHeaderView>
#include <QLocale>
#include <QPushButton>
#include <QSqlQuery>
#include <QStyle>
#include <QTextBrowser>
#include <QTreeView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString ListingName = u"frmBookListing"_s;

enum Column { Author, Title, Price, Condition, Publisher, Published, Topic };

QTreeView *listOf(const QWidget *form)
{
    return FindControl<QTreeView>(form, u"lstBookList"_s);
}

BookListingModel *rowsOf(const QWidget *form)
{
    return qobject_cast<BookListingModel *>(listOf(form)->model());
}

QStringList columnTexts(const QWidget *form, int column)
{
    const QAbstractItemModel *rows = listOf(form)->model();
    QStringList texts;
    for (int row = 0; row < rows->rowCount(); ++row)
        texts.append(rows->index(row, column).data().toString());
    return texts;
}

// A click on the header of a column, scrolled into sight first.
void clickHeader(const QWidget *form, int column)
{
    QTreeView *list = listOf(form);
    list->scrollTo(list->model()->index(0, column));
    QHeaderView *header = list->header();
    const QPoint centre(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                        header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, centre);
}

// A click on the check box at the start of a row.
void clickBox(const QWidget *form, int row)
{
    QTreeView *list = listOf(form);
    const QModelIndex box = list->model()->index(row, Author);
    list->scrollTo(box);
    const QRect cell = list->visualRect(box);
    const QStyle *style = list->style();
    const int x = cell.left() + style->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, list) + 1
        + style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, list) / 2;
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(x, cell.center().y()));
}

int rowOfKey(const QWidget *form, const QString &key)
{
    const BookListingModel *rows = rowsOf(form);
    for (int row = 0; row < rows->rowCount(); ++row) {
        if (rows->key(row) == key)
            return row;
    }
    return -1;
}

bool ticked(const QWidget *form, int row)
{
    return listOf(form)->model()->index(row, Author).data(Qt::CheckStateRole).toInt() == Qt::Checked;
}

double priceOf(const QString &shown)
{
    QString number = shown;
    number.remove(QLocale().currencySymbol());
    return QLocale().toDouble(number);
}

// Whether every text stands in the given order to the next one, ignoring letter case.
// In a dictionary's order for the test's locale: letters first, case and accents second.
bool inTextOrder(const QStringList &texts, Qt::SortOrder order)
{
    QCollator dictionary{QLocale()};
    dictionary.setCaseSensitivity(Qt::CaseInsensitive);
    for (qsizetype i = 1; i < texts.size(); ++i) {
        const int comparison = dictionary.compare(texts.at(i - 1), texts.at(i));
        if (order == Qt::AscendingOrder ? comparison > 0 : comparison < 0)
            return false;
    }
    return true;
}

} // namespace

class TestBookListing : public QObject
{
    Q_OBJECT

    std::unique_ptr<BrowseFixture> m_fixture;

    QWidget *openListing(const QString &entry = u"mnuBookList"_s)
    {
        QWidget *form = m_fixture->open(entry, ListingName);
        if (form)
            new QAbstractItemModelTester(listOf(form)->model(),
                                         QAbstractItemModelTester::FailureReportingMode::QtTest,
                                         form);
        return form;
    }

private Q_SLOTS:
    void init()
    {
        m_fixture = std::make_unique<BrowseFixture>();
        QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
    }
    void cleanup()
    {
        m_fixture.reset();
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    }

    void captionControlsAndHeaders()
    {
        QWidget *form = openListing();
        QVERIFY(form);
        QCOMPARE(form->windowTitle(), u"Book Listing"_s);
        QTreeView *list = listOf(form);
        QVERIFY(list);
        QCOMPARE(list->toolTip(), u"Click check box in left hand column to view book details"_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdExit"_s)->text(), u"E&xit"_s);
        QCOMPARE(FindControl<QPushButton>(form, u"cmdHelp"_s)->text(), u"Help"_s);
        QStringList headers;
        for (int column = 0; column < list->model()->columnCount(); ++column)
            headers.append(list->model()->headerData(column, Qt::Horizontal).toString());
        QCOMPARE(headers, (QStringList{u"Author"_s, u"Title"_s, u"Price"_s, u"Condition"_s,
                                       u"Publisher"_s, u"Published"_s, u"Topic"_s}));
    }

    void oneRowPerBookInKeyOrder()
    {
        QWidget *form = openListing();
        const BookListingModel *rows = rowsOf(form);
        const QStringList ids = m_fixture->column(u"select BookID from tblBook order by BookID"_s);
        QCOMPARE(rows->rowCount(), ids.size());
        for (int row = 0; row < rows->rowCount(); ++row)
            QCOMPARE(rows->key(row), u"B"_s + ids.at(row));
        QCOMPARE(columnTexts(form, Title),
                 m_fixture->column(u"select BookDescription from tblBook order by BookID"_s));
    }

    void rowTextsFollowTheCatalogue()
    {
        QWidget *form = openListing();
        const int row = rowOfKey(form, u"B1"_s);
        QVERIFY(row >= 0);
        const QString author = m_fixture->column(
            u"select AuthorSurname || ', ' || AuthorFirstName from tblBookAuthor, tblAuthor "
            "where tblBookAuthor.AuthorID = tblAuthor.AuthorID and BookID = 1"_s).value(0);
        const QString topic = m_fixture->column(
            u"select TopicDescription from tblTopic, tblBookTopic where tblTopic.TopicID = "
            "tblBookTopic.TopicID and BookID = 1"_s).value(0);
        const QString publisher = m_fixture->column(
            u"select PublisherName from tblBook, tblPublisher where BookPublisherId = "
            "PublisherID and BookID = 1"_s).value(0);
        const QString condition =
            m_fixture->column(u"select BookCondition from tblBook where BookID = 1"_s).value(0);
        const BookListingModel *rows = rowsOf(form);
        QCOMPARE(rows->text(row, Author), author);
        QCOMPARE(rows->text(row, Title), u"Pride and Prejudice"_s);
        QCOMPARE(rows->text(row, Price), u"£385.00"_s);
        QCOMPARE(rows->text(row, Condition), condition);
        QCOMPARE(rows->text(row, Publisher), publisher);
        QCOMPARE(rows->text(row, Published), u"1894"_s);
        QCOMPARE(rows->text(row, Topic), topic);
    }

    void bookWithoutAuthorOrTopicShowsTheFallbacks()
    {
        QCOMPARE(m_fixture->addUnlinkedBook(u"Loose Leaves"_s), QString());
        QWidget *form = openListing();
        const BookListingModel *rows = rowsOf(form);
        const int row = rows->rowCount() - 1;
        QCOMPARE(rows->text(row, Title), u"Loose Leaves"_s);
        QCOMPARE(rows->text(row, Author), u"Book has no author assigned"_s);
        QCOMPARE(rows->text(row, Topic), u"Book has no topic assigned"_s);
        QCOMPARE(rows->text(row, Published), QString());
    }

    void severalAuthorsShowOnlyTheFirstOfTheChapter()
    {
        // The chapter's rows come in the order its select gives them.
        const QString chapter = u"SELECT tblAuthor.AuthorSurname || ', ' || "
                                "tblAuthor.AuthorFirstName, tblBookAuthor.BookID FROM "
                                "tblBookAuthor, tblAuthor WHERE tblBookAuthor.AuthorID = "
                                "tblAuthor.AuthorID"_s;
        QSqlQuery query(m_fixture->catalogue().db());
        QVERIFY(query.exec(chapter));
        QStringList authorsOf52;
        while (query.next()) {
            if (query.value(1).toInt() == 52)
                authorsOf52.append(query.value(0).toString());
        }
        QCOMPARE(authorsOf52.size(), 2);
        QWidget *form = openListing();
        const int row = rowOfKey(form, u"B52"_s);
        QCOMPARE(rowsOf(form)->text(row, Author), authorsOf52.first());
        QVERIFY(authorsOf52.first() != authorsOf52.last());
    }

    void emptyCatalogueShowsNoBooksToDisplay()
    {
        m_fixture = std::make_unique<BrowseFixture>(TestCatalogue::Content::Empty);
        QVERIFY2(m_fixture->problems().isEmpty(), qPrintable(m_fixture->problems()));
        // Even an empty catalogue holds a first book.
        QCOMPARE(m_fixture->exec(u"delete from tblBook"_s), QString());
        ModalResponder responder;
        responder.expect(ModalResponder::message(u"List Books"_s,
                                                 u"There are no books to display"_s,
                                                 QMessageBox::Warning, {u"OK"_s}, u"OK"_s));
        QWidget *form = openListing();
        QCOMPARE(responder.finish(), QString());
        QVERIFY(form);
        QCOMPARE(listOf(form)->model()->rowCount(), 0);
        // A click on a header of the empty list does no harm.
        clickHeader(form, Price);
        QCOMPARE(listOf(form)->model()->rowCount(), 0);
    }

    void priceSortsByValueAscendingThenDescending()
    {
        QWidget *form = openListing();
        QStringList byValue = m_fixture->column(
            u"select BookPrice from tblBook order by BookPrice, BookID"_s);
        clickHeader(form, Price);
        QStringList shown = columnTexts(form, Price);
        QList<double> values;
        for (const QString &text : shown)
            values.append(priceOf(text));
        QList<double> expected;
        for (const QString &value : byValue)
            expected.append(value.toDouble());
        QCOMPARE(values, expected);
        // 12 before 100: by value, not as text.
        QVERIFY(shown.indexOf(u"£12.50"_s) < shown.indexOf(u"£385.00"_s));
        QVERIFY(shown.indexOf(u"£385.00"_s) < shown.indexOf(u"£4,750.00"_s));

        clickHeader(form, Price);
        values.clear();
        for (const QString &text : columnTexts(form, Price))
            values.append(priceOf(text));
        std::reverse(expected.begin(), expected.end());
        QCOMPARE(values, expected);
        QCOMPARE(listOf(form)->header()->sortIndicatorSection(), int(Price));
        QCOMPARE(listOf(form)->header()->sortIndicatorOrder(), Qt::DescendingOrder);
    }

    void priceSortsByValueInEveryLocale_data() { AddMoneyLocaleRows(); }

    // Each book priced at one of the amounts in turn: the rows follow the catalogue's prices,
    // each shown in the locale's money, whatever side its symbol stands on.
    void priceSortsByValueInEveryLocale()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        for (qsizetype i = 0; i < MoneyAmounts.size(); ++i) {
            const QString sql = u"UPDATE tblBook SET BookPrice = %1 WHERE BookID % %2 = %3"_s
                                    .arg(QString::number(MoneyAmounts.at(i), 'f', 2))
                                    .arg(MoneyAmounts.size())
                                    .arg(i);
            QCOMPARE(m_fixture->exec(sql), QString());
        }
        QWidget *form = openListing();
        QVERIFY(form);
        for (const Qt::SortOrder order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
            clickHeader(form, Price);
            QList<double> prices;
            for (int row = 0; row < rowsOf(form)->rowCount(); ++row) {
                const qsizetype amount = rowsOf(form)->key(row).mid(1).toInt() % MoneyAmounts.size();
                QCOMPARE(rowsOf(form)->text(row, Price), money.shown().at(amount));
                prices.append(MoneyAmounts.at(amount));
            }
            QVERIFY(std::is_sorted(prices.cbegin(), prices.cend()) == (order == Qt::AscendingOrder));
            QVERIFY(std::is_sorted(prices.crbegin(), prices.crend()) == (order == Qt::DescendingOrder));
        }
    }

    void publishedSortsAsText()
    {
        QCOMPARE(m_fixture->addUnlinkedBook(u"Ancient Verses"_s, u"867"_s), QString());
        QWidget *form = openListing();
        clickHeader(form, Published);
        const QStringList years = columnTexts(form, Published);
        QVERIFY(inTextOrder(years, Qt::AscendingOrder));
        // As text, "867" comes after every year of four figures.
        QCOMPARE(years.last(), u"867"_s);
        clickHeader(form, Published);
        QCOMPARE(columnTexts(form, Published).first(), u"867"_s);
        QVERIFY(inTextOrder(columnTexts(form, Published), Qt::DescendingOrder));
    }

    void everyClickTurnsTheOrderRound_data()
    {
        QTest::addColumn<QList<int>>("clicks");
        QTest::newRow("author then title") << QList<int>{Author, Title};
        QTest::newRow("condition, publisher, topic") << QList<int>{Condition, Publisher, Topic};
        QTest::newRow("topic twice then author") << QList<int>{Topic, Topic, Author};
        QTest::newRow("title, price, title") << QList<int>{Title, Price, Title};
    }

    // The order is the list's own, not the column's: each click turns it round, whichever
    // header it is on.
    void everyClickTurnsTheOrderRound()
    {
        QFETCH(QList<int>, clicks);
        QWidget *form = openListing();
        Qt::SortOrder order = Qt::DescendingOrder;
        for (int column : std::as_const(clicks)) {
            clickHeader(form, column);
            order = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
            if (column == Price)
                continue;
            QVERIFY2(inTextOrder(columnTexts(form, column), order),
                     qPrintable(u"column %1"_s.arg(column)));
            QCOMPARE(listOf(form)->model()->rowCount(), 60);
        }
    }

    void sortingKeepsEachRowTogether()
    {
        QWidget *form = openListing();
        clickHeader(form, Author);
        clickHeader(form, Price);
        const BookListingModel *rows = rowsOf(form);
        for (int row = 0; row < rows->rowCount(); ++row) {
            const QString id = rows->key(row).mid(1);
            QCOMPARE(rows->text(row, Title),
                     m_fixture->column(u"select BookDescription from tblBook where BookID = "_s + id)
                         .value(0));
        }
    }

    void tickingARowOpensItsBookAlone()
    {
        QWidget *form = openListing();
        const int row = rowOfKey(form, u"B6"_s);
        clickBox(form, row);
        QVERIFY(ticked(form, row));
        QCOMPARE(m_fixture->hits(), QStringList{u"6"_s});
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Wuthering Heights"_s), QString());
    }

    void tickingASecondRowUnticksTheFirst()
    {
        QWidget *form = openListing();
        clickHeader(form, Title); // sorted, so that the rows are not in key order
        const int first = rowOfKey(form, u"B6"_s);
        const int second = rowOfKey(form, u"B2"_s);
        clickBox(form, first);
        QCOMPARE(m_fixture->hits(), QStringList{u"6"_s});
        clickBox(form, second);
        QVERIFY(!ticked(form, first));
        QVERIFY(ticked(form, second));
        QCOMPARE(rowsOf(form)->tickedRows(), QList<int>{second});
        QCOMPARE(m_fixture->hits(), QStringList{u"2"_s});
        QCOMPARE(m_fixture->bookFormShowsOnly(u"Emma"_s), QString());
    }

    void untickingDoesNothing()
    {
        QWidget *form = openListing();
        const int row = rowOfKey(form, u"B6"_s);
        clickBox(form, row);
        QWidget *books = m_fixture->bookForm();
        clickBox(form, row);
        QVERIFY(!ticked(form, row));
        QCOMPARE(m_fixture->hits(), QStringList{u"6"_s});
        QCOMPARE(m_fixture->bookForm(), books);
        QCOMPARE(Shown(books, u"txtDescription"_s), u"Wuthering Heights"_s);
    }

    void menuEntryAndDropDownItemOffWhileOpen_data()
    {
        QTest::addColumn<QString>("opener");
        QTest::newRow("menu") << u"mnuBookList"_s;
        QTest::newRow("drop-down") << u"CompleteCat"_s;
    }

    void menuEntryAndDropDownItemOffWhileOpen()
    {
        QFETCH(QString, opener);
        QWidget *form = openListing(opener);
        QVERIFY(form);
        QVERIFY(!FindAction(u"mnuBookList"_s)->isEnabled());
        QVERIFY(!FindAction(u"CompleteCat"_s)->isEnabled());
        QVERIFY(FindAction(u"mnuTopicSrch"_s)->isEnabled());
        QTest::mouseClick(FindControl<QPushButton>(form, u"cmdExit"_s), Qt::LeftButton);
        QTRY_VERIFY(!FindForm(ListingName));
        QVERIFY(FindAction(u"mnuBookList"_s)->isEnabled());
        QVERIFY(FindAction(u"CompleteCat"_s)->isEnabled());
    }

    void closingASortedListing()
    {
        QWidget *form = openListing();
        clickHeader(form, Price);
        clickHeader(form, Topic);
        QVERIFY(m_fixture->frame().forms().unload(form));
        QVERIFY(!m_fixture->frame().forms().find(ListingName));
        QVERIFY(FindAction(u"mnuBookList"_s)->isEnabled());
    }

    void helpOpensTheListingsTopic()
    {
        QWidget *form = openListing();
        QTest::mouseClick(FindControl<QPushButton>(form, u"cmdHelp"_s), Qt::LeftButton);
        QWidget *help = FindForm(u"HelpWindow"_s);
        QVERIFY(help);
        auto *browser = FindControl<QTextBrowser>(help, u"helpBrowser"_s);
        QTRY_COMPARE(browser->documentTitle(), u"The book listing"_s);
        help->close();
    }

    void screenshotSortedByPriceDescending()
    {
        QWidget *form = openListing();
        clickHeader(form, Price);
        clickHeader(form, Price);
        listOf(form)->scrollToTop();
        // Every column fits its widest text but the title, which keeps its width.
        const QTreeView *list = listOf(form);
        for (int column : {Author, Price, Condition, Publisher, Published, Topic}) {
            int widest = 0;
            for (const QString &text : columnTexts(form, column))
                widest = std::max(widest, list->fontMetrics().horizontalAdvance(text));
            QVERIFY2(list->columnWidth(column) > widest, qPrintable(u"column %1"_s.arg(column)));
        }
        QVERIFY(!SaveScreenshot(m_fixture->frame().forms().windowOf(form),
                                u"booklisting-price-descending"_s)
                     .isEmpty());
    }
};

SHELVANE_TEST_MAIN(TestBookListing)
#include "tst_booklisting.moc"
