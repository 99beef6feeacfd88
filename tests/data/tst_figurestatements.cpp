// The statistics form's figures and the revaluation's update of every price.
#include "statementfixture.h"

#include <QLocale>
#include <QSqlQuery>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QStringList prices(const TestCatalogue &catalogue, const QString &column)
{
    QStringList values;
    QSqlQuery query(catalogue.db());
    query.exec(u"SELECT "_s + column + u" FROM tblBook ORDER BY BookID"_s);
    while (query.next())
        values << cell(query.value(0));
    return values;
}

// The factor of a revaluation, as the plain conversion of a double writes it.
QString factorText(double percent)
{
    return QLocale(QLocale::English, QLocale::UnitedKingdom)
        .toString((percent + 100) / 100, 'g', QLocale::FloatingPointShortest);
}

} // namespace

class TestFigureStatements : public StatementTest
{
    Q_OBJECT

private Q_SLOTS:
    void statistics()
    {
        QList<double> all;
        QList<int> years;
        QSqlQuery query(catalogue().db());
        query.exec(u"SELECT BookPrice, BookWhenPublished FROM tblBook"_s);
        while (query.next()) {
            all << query.value(0).toDouble();
            years << query.value(1).toInt();
        }
        double total = 0;
        for (double price : all)
            total += price;
        const auto rs = open(
            u"select count(*) as TotalNoBooks, sum(BookPrice) as TotalValue, avg(BookPrice) as AverageCost, max(BookPrice) as Expensive, min(BookPrice) as Cheapest, min(BookWhenPublished) as Oldest from tblBook"_s);
        QCOMPARE(rs->recordCount(), 1);
        QCOMPARE(rs->value(u"TotalNoBooks"_s).toInt(), all.size());
        QVERIFY(qFuzzyCompare(rs->value(u"TotalValue"_s).toDouble(), total));
        QVERIFY(qFuzzyCompare(rs->value(u"AverageCost"_s).toDouble(), total / all.size()));
        QCOMPARE(rs->value(u"Expensive"_s).toDouble(), *std::max_element(all.begin(), all.end()));
        QCOMPARE(rs->value(u"Cheapest"_s).toDouble(), *std::min_element(all.begin(), all.end()));
        QCOMPARE(rs->value(u"Oldest"_s).toInt(), *std::min_element(years.begin(), years.end()));
        QCOMPARE(rs->value(u"Oldest"_s).toInt(), 0); // books with no known date hold 0

        years.removeAll(0);
        const auto oldest = open(
            u"select   min(BookWhenPublished) as Oldest from tblBook where BookWhenPublished <> 0"_s);
        QCOMPARE(oldest->value(u"Oldest"_s).toInt(), *std::min_element(years.begin(), years.end()));
    }

    void collectionValue()
    {
        double total = 0;
        for (const QString &price : prices(catalogue(), u"BookPrice"_s))
            total += price.toDouble();
        const auto rs = open(u"select sum(BookPrice) as TotalValue from tblBook"_s);
        QVERIFY(qFuzzyCompare(rs->value(u"TotalValue"_s).toDouble(), total));
    }

    void revaluation_data()
    {
        QTest::addColumn<double>("percent");
        QTest::addColumn<QString>("factor");
        QTest::newRow("revaluation by 5%") << 5.0 << u"1.05"_s;
        QTest::newRow("revaluation by -2.5%") << -2.5 << u"0.975"_s;
        QTest::newRow("revaluation by 15%") << 15.0 << u"1.15"_s;
    }

    void revaluation()
    {
        QFETCH(double, percent);
        QFETCH(QString, factor);
        QCOMPARE(factorText(percent), factor);
        const QStringList before = prices(catalogue(), u"BookPrice"_s);
        const QStringList sellBefore = prices(catalogue(), u"BookSellPrice"_s);

        QCOMPARE(run(u"Update tblBook set bookPrice = bookprice * "_s + factorText(percent)), before.size());

        const QStringList after = prices(catalogue(), u"BookPrice"_s);
        for (qsizetype i = 0; i < before.size(); ++i) {
            const double wanted = before[i].toDouble() * factor.toDouble();
            QVERIFY2(qAbs(after[i].toDouble() - wanted) <= 0.00005 + 1e-9,
                     qPrintable(before[i] + u" became "_s + after[i]));
        }
        QCOMPARE(prices(catalogue(), u"BookSellPrice"_s), sellBefore);
    }
};

QTEST_GUILESS_MAIN(TestFigureStatements)
#include "tst_figurestatements.moc"
