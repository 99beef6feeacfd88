// A book's values as a spreadsheet writes them, read and written whatever the locale.
#include "transfer/fieldtext.h"

#include <QLocale>
#include <QTest>

using namespace Qt::StringLiterals;

class TestFieldText : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        // A locale with a decimal comma must change nothing.
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    }

    void writesMoney_data()
    {
        QTest::addColumn<double>("amount");
        QTest::addColumn<QString>("written");
        QTest::newRow("whole") << 385.0 << u"385.00"_s;
        QTest::newRow("pence") << 12.5 << u"12.50"_s;
        QTest::newRow("nought") << 0.0 << u"0.00"_s;
        QTest::newRow("four decimals") << 3.1416 << u"3.1416"_s;
        QTest::newRow("three decimals") << 1.125 << u"1.125"_s;
        QTest::newRow("thousands, no grouping") << 8400.0 << u"8400.00"_s;
    }

    void writesMoney()
    {
        QFETCH(double, amount);
        QFETCH(QString, written);
        QCOMPARE(FieldText::money(amount), written);
        QCOMPARE(FieldText::readMoney(written), amount);
    }

    void readsMoney_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("isMoney");
        QTest::addColumn<double>("amount");
        QTest::newRow("point") << u"12.50"_s << true << 12.5;
        QTest::newRow("whole") << u"12"_s << true << 12.0;
        QTest::newRow("pound sign") << u"£12.50"_s << true << 12.5;
        QTest::newRow("dollar after a space") << u"$ 3.99"_s << true << 3.99;
        QTest::newRow("euro after") << u"7.25 €"_s << true << 7.25;
        QTest::newRow("grouped") << u"1,234.56"_s << true << 1234.56;
        QTest::newRow("spaces") << u" 4.5 "_s << true << 4.5;
        QTest::newRow("words") << u"about ten"_s << false << 0.0;
        QTest::newRow("negative") << u"-3"_s << false << 0.0;
        QTest::newRow("decimal comma") << u"12,50"_s << false << 0.0;
        QTest::newRow("two points") << u"1.2.3"_s << false << 0.0;
    }

    void readsMoney()
    {
        QFETCH(QString, text);
        QFETCH(bool, isMoney);
        QFETCH(double, amount);
        const std::optional<double> read = FieldText::readMoney(text);
        QCOMPARE(read.has_value(), isMoney);
        if (isMoney)
            QCOMPARE(*read, amount);
    }

    void readsYears_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("year"); // -1: not a year
        QTest::newRow("year") << u"1894"_s << 1894;
        QTest::newRow("not known") << u"0"_s << 0;
        QTest::newRow("ISO date") << u"1894-05-01"_s << 1894;
        QTest::newRow("year and month") << u"2004-03"_s << 2004;
        QTest::newRow("slashes") << u"2019/12/31"_s << 2019;
        QTest::newRow("impossible date") << u"2019-02-30"_s << -1;
        QTest::newRow("words") << u"19th century"_s << -1;
        QTest::newRow("circa") << u"c1900"_s << -1;
        QTest::newRow("five digits") << u"18940"_s << -1;
        QTest::newRow("negative") << u"-50"_s << -1;
    }

    void readsYears()
    {
        QFETCH(QString, text);
        QFETCH(int, year);
        QCOMPARE(FieldText::readYear(text).value_or(-1), year);
    }

    void readsWholeNumbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("number"); // -1: not a whole number
        QTest::newRow("number") << u"476"_s << 476;
        QTest::newRow("spaces") << u" 12 "_s << 12;
        QTest::newRow("nought") << u"0"_s << 0;
        QTest::newRow("decimal") << u"12.5"_s << -1;
        QTest::newRow("roman") << u"xxviii"_s << -1;
        QTest::newRow("sign") << u"+3"_s << -1;
        QTest::newRow("too long") << u"1234567890"_s << -1;
    }

    void readsWholeNumbers()
    {
        QFETCH(QString, text);
        QFETCH(int, number);
        QCOMPARE(FieldText::readWholeNumber(text).value_or(-1), number);
    }

    void readsYesNo_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("value"); // -1: neither
        for (const QString &yes : {u"Yes"_s, u"yes"_s, u"Y"_s, u"TRUE"_s, u"1"_s, u"x"_s})
            QTest::addRow("%s", qPrintable(yes)) << yes << 1;
        for (const QString &no : {u"No"_s, u"n"_s, u"False"_s, u"0"_s})
            QTest::addRow("%s", qPrintable(no)) << no << 0;
        QTest::newRow("maybe") << u"maybe"_s << -1;
    }

    void readsYesNo()
    {
        QFETCH(QString, text);
        QFETCH(int, value);
        const std::optional<bool> read = FieldText::readYesNo(text);
        QCOMPARE(read ? int(*read) : -1, value);
    }

    void readsTheBookFormsLists_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("condition");
        QTest::addColumn<QString>("cover");
        QTest::newRow("own spelling") << u"Excl"_s << u"Excl"_s << QString();
        QTest::newRow("other case") << u"gOOD"_s << u"Good"_s << QString();
        QTest::newRow("very good") << u"Very Good"_s << u"Excl"_s << QString();
        QTest::newRow("as new") << u"as new"_s << u"Mint"_s << QString();
        QTest::newRow("cover, own spelling") << u"hard back & dw"_s << QString() << u"Hard Back & DW"_s;
        QTest::newRow("paperback") << u"Paperback"_s << QString() << u"Paper Back"_s;
        QTest::newRow("hardcover") << u"Hardcover"_s << QString() << u"Hard Back no DW"_s;
        QTest::newRow("neither") << u"Kindle Edition"_s << QString() << QString();
    }

    void readsTheBookFormsLists()
    {
        QFETCH(QString, text);
        QFETCH(QString, condition);
        QFETCH(QString, cover);
        QCOMPARE(FieldText::readCondition(text).value_or(QString()), condition);
        QCOMPARE(FieldText::readCover(text).value_or(QString()), cover);
    }
};

QTEST_GUILESS_MAIN(TestFieldText)
#include "tst_fieldtext.moc"
