// Numbers written into statement text: SQL's form whatever the locale, read back by SQLite as
// the same number.
#include "data/sqlnumber.h"
#include "support/moneylocales.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QTest>

using namespace Qt::StringLiterals;

class TestSqlNumber : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void writtenInSqlsForm_data()
    {
        QTest::addColumn<double>("number");
        QTest::addColumn<QString>("written");
        QTest::newRow("price") << 12.5 << u"12.5"_s;
        QTest::newRow("price above a thousand") << 1234.56 << u"1234.56"_s;
        QTest::newRow("increase of 5%") << 1.05 << u"1.05"_s;
        QTest::newRow("fall of 2.5%") << 0.975 << u"0.975"_s;
        QTest::newRow("whole") << 8400.0 << u"8400"_s;
        QTest::newRow("four decimals") << 10.9688 << u"10.9688"_s;
        QTest::newRow("a hundredth of a penny") << 0.0001 << u"0.0001"_s;
        QTest::newRow("millions, no exponent") << 12345678.9 << u"12345678.9"_s;
        QTest::newRow("negative") << -2.5 << u"-2.5"_s;
        QTest::newRow("zero") << 0.0 << u"0"_s;
    }

    // The same text in every locale, and SQLite reads it as the number it was.
    void writtenInSqlsForm()
    {
        QFETCH(double, number);
        QFETCH(QString, written);
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"numbers"_s);
        db.setDatabaseName(u":memory:"_s);
        QVERIFY(db.open());
        for (qsizetype i = 0; i < MoneyLocales().size(); ++i) {
            UseMoneyLocale(int(i));
            QCOMPARE(SqlNumber(number), written);
            QSqlQuery query(db);
            QVERIFY(query.exec(u"select "_s + SqlNumber(number)) && query.next());
            QCOMPARE(query.value(0).toDouble(), number);
        }
        db.close();
        db = QSqlDatabase();
        QSqlDatabase::removeDatabase(u"numbers"_s);
    }
};

QTEST_GUILESS_MAIN(TestSqlNumber)
#include "tst_sqlnumber.moc"
