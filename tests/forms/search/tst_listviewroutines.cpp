// The listing's own routines on a list of rows made here: sorting by the value a column's
// texts stand for, and fitting the columns to their texts.

#include "forms/search/booklistingmodel.h"
#include "forms/search/listviewroutines.h"
#include "support/moneylocales.h"
#include "support/testmain.h"

#include <QAbstractItemModelTester>
#include <QHeaderView>
#include <QTreeView>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

// A row with every column "x" but the one given.
BookListingRow rowWith(int key, int column, const QString &text)
{
    QStringList texts(BookColumn::Count, u"x"_s);
    texts[column] = text;
    return {u"B"_s + QString::number(key), texts};
}

QStringList shown(const QTreeView &list, int column)
{
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row)
        texts.append(list.model()->index(row, column).data().toString());
    return texts;
}

} // namespace

class TestListViewRoutines : public QObject
{
    Q_OBJECT

    // A list over the rows, its model watched by the tester.
    static std::unique_ptr<QTreeView> listOf(const QList<BookListingRow> &rows)
    {
        auto list = std::make_unique<QTreeView>();
        auto *model = new BookListingModel(rows, list.get());
        new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::QtTest,
                                     model);
        list->setModel(model);
        return list;
    }

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void amountsSortByValue_data()
    {
        QTest::addColumn<int>("order");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("ascending") << int(Qt::AscendingOrder)
                                   << QStringList{u"-£3.00"_s, u"£9.50"_s, u"£12.00"_s,
                                                  u"£100.00"_s, u"£1,250.00"_s};
        QTest::newRow("descending") << int(Qt::DescendingOrder)
                                    << QStringList{u"£1,250.00"_s, u"£100.00"_s, u"£12.00"_s,
                                                   u"£9.50"_s, u"-£3.00"_s};
    }

    void amountsSortByValue()
    {
        QFETCH(int, order);
        QFETCH(QStringList, expected);
        const QStringList amounts{u"£100.00"_s, u"£12.00"_s, u"£1,250.00"_s, u"-£3.00"_s,
                                  u"£9.50"_s};
        QList<BookListingRow> rows;
        for (int key = 0; key < amounts.size(); ++key)
            rows.append(rowWith(key + 1, BookColumn::Price, amounts.at(key)));
        const std::unique_ptr<QTreeView> list = listOf(rows);
        ListViewSortOnNonStringField(list.get(), BookColumn::Price, Qt::SortOrder(order),
                                     false /* is date */);
        QCOMPARE(shown(*list, BookColumn::Price), expected);
        QVERIFY(list->updatesEnabled());
    }

    void amountsSortByValueInEveryLocale_data() { AddMoneyLocaleRows(); }

    // The locale's money: its symbol before or after, its group and decimal marks.
    void amountsSortByValueInEveryLocale()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        QList<BookListingRow> rows;
        for (qsizetype i = 0; i < MoneyAmounts.size(); ++i)
            rows.append(rowWith(int(i) + 1, BookColumn::Price, money.shown().at(i)));
        const std::unique_ptr<QTreeView> list = listOf(rows);
        ListViewSortOnNonStringField(list.get(), BookColumn::Price, Qt::AscendingOrder,
                                     false /* is date */);
        std::vector<qsizetype> byValue(MoneyAmounts.size());
        std::iota(byValue.begin(), byValue.end(), 0);
        std::sort(byValue.begin(), byValue.end(),
                  [](qsizetype a, qsizetype b) { return MoneyAmounts.at(a) < MoneyAmounts.at(b); });
        QStringList expected;
        for (const qsizetype i : byValue)
            expected.append(money.shown().at(i));
        QCOMPARE(shown(*list, BookColumn::Price), expected);
    }

    void datesSortByDay()
    {
        const QStringList dates{u"02/01/2003"_s, u"15/12/2001"_s, u"01/01/2003"_s};
        QList<BookListingRow> rows;
        for (int key = 0; key < dates.size(); ++key)
            rows.append(rowWith(key + 1, BookColumn::Published, dates.at(key)));
        const std::unique_ptr<QTreeView> list = listOf(rows);
        ListViewSortOnNonStringField(list.get(), BookColumn::Published, Qt::AscendingOrder,
                                     true /* is date */);
        QCOMPARE(shown(*list, BookColumn::Published),
                 (QStringList{u"15/12/2001"_s, u"01/01/2003"_s, u"02/01/2003"_s}));
    }

    // Equal amounts keep the order they had.
    void equalValuesKeepTheirOrder()
    {
        const std::unique_ptr<QTreeView> list = listOf(
            {rowWith(1, BookColumn::Price, u"£5.00"_s), rowWith(2, BookColumn::Price, u"£1.00"_s),
             rowWith(3, BookColumn::Price, u"£5.00"_s)});
        auto *rows = qobject_cast<BookListingModel *>(list->model());
        ListViewSortOnNonStringField(list.get(), BookColumn::Price, Qt::DescendingOrder, false);
        QCOMPARE((QStringList{rows->key(0), rows->key(1), rows->key(2)}),
                 (QStringList{u"B1"_s, u"B3"_s, u"B2"_s}));
    }

    void columnsFitTheirWidestText_data()
    {
        QTest::addColumn<bool>("includeHeaders");
        QTest::newRow("with the headers") << true;
        QTest::newRow("without the headers") << false;
    }

    void columnsFitTheirWidestText()
    {
        QFETCH(bool, includeHeaders);
        const QString wide = u"Montgomery-Featherstonehaugh, Wilhelmina"_s;
        const std::unique_ptr<QTreeView> list =
            listOf({rowWith(1, BookColumn::Author, u"Eliot, George"_s),
                    rowWith(2, BookColumn::Author, wide)});
        list->setColumnWidth(BookColumn::Title, 123);
        ListViewAdjustColumnWidth(list.get(), includeHeaders);
        const QFontMetrics metrics = list->fontMetrics();
        QVERIFY(list->columnWidth(BookColumn::Author) > metrics.horizontalAdvance(wide));
        QCOMPARE(list->columnWidth(BookColumn::Title), 123);
        // "x" is narrower than any header: only the headers make the column wider.
        const int condition = list->columnWidth(BookColumn::Condition);
        const int header = list->header()->fontMetrics().horizontalAdvance(u"Condition"_s);
        QCOMPARE(condition > header, includeHeaders);
    }
};

SHELVANE_TEST_MAIN(TestListViewRoutines)
#include "tst_listviewroutines.moc"
