// The number formats of the reports' text boxes, in the en_GB locale, and the price format
// of every locale.
#include "reportfixture.h"
#include "reports/numberformat.h"
#include "support/moneylocales.h"

using namespace Qt::StringLiterals;

class TestNumberFormat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void formats_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<QString>("format");
        QTest::addColumn<QString>("printed");
        QTest::newRow("session price format") << QVariant(1234.5) << u"£###,##0.00"_s << u"£1,234.50"_s;
        QTest::newRow("dollar design format") << QVariant(1234.5) << u"$#,##0.00"_s << u"$1,234.50"_s;
        QTest::newRow("quoted pound design format") << QVariant(7) << u"\"£\"#,##0.00"_s << u"£7.00"_s;
        QTest::newRow("millions grouped") << QVariant(1234567.891) << u"£###,##0.00"_s << u"£1,234,567.89"_s;
        QTest::newRow("zero keeps its zeros") << QVariant(0) << u"£###,##0.00"_s << u"£0.00"_s;
        QTest::newRow("negative sign leads") << QVariant(-3.5) << u"£###,##0.00"_s << u"-£3.50"_s;
        QTest::newRow("rounds half a penny") << QVariant(2.675) << u"£###,##0.00"_s << u"£2.68"_s;
        QTest::newRow("text prefix, no decimals") << QVariant(42) << u"\"Book No. \"0"_s << u"Book No. 42"_s;
        QTest::newRow("escaped literal") << QVariant(5) << u"\\#0"_s << u"#5"_s;
        QTest::newRow("no grouping without comma") << QVariant(12345) << u"0"_s << u"12345"_s;
        QTest::newRow("null prints nothing") << QVariant(QMetaType(QMetaType::Double)) << u"£###,##0.00"_s << QString();
        QTest::newRow("text is printed as it is") << QVariant(u"O'Brien & Søn"_s) << u"£###,##0.00"_s << u"O'Brien & Søn"_s;
        QTest::newRow("no format") << QVariant(3.25) << QString() << u"3.25"_s;
        QTest::newRow("symbol after the number gives a digit") << QVariant(9) << u"1###,##0.00"_s << u"19.00"_s;
    }

    void formats()
    {
        QFETCH(QVariant, value);
        QFETCH(QString, format);
        QFETCH(QString, printed);
        QCOMPARE(FormatNumber(value, format), printed);
    }

    void priceFormatOfTheLocale_data() { AddMoneyLocaleRows(); }

    // The stored amount to two decimals with the locale's marks, and its symbol where the
    // locale puts it: never a digit that is not in the price.
    void priceFormatOfTheLocale()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        QCOMPARE(CurrencySymbol(money.locale), money.symbol);
        QCOMPARE(PriceFormat(money.locale), money.priceFormat);
        for (qsizetype i = 0; i < MoneyAmounts.size(); ++i)
            QCOMPARE(FormatNumber(MoneyAmounts.at(i), PriceFormat(QLocale())), money.printed.at(i));
    }

    void priceFormatOfOtherLocales_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("format");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("printed");
        // The point of "kr." would be read as a decimal point unless escaped.
        QTest::newRow("da_DK") << u"da_DK"_s << u"###,##0.00\u00A0kr\\."_s << -1234.5
                               << u"-1.234,50\u00A0kr."_s;
        QTest::newRow("sv_SE minus sign") << u"sv_SE"_s << u"###,##0.00\u00A0kr"_s << -3.5
                                          << u"\u22123,50\u00A0kr"_s;
        QTest::newRow("nb_NO symbol before") << u"nb_NO"_s << u"kr\u00A0###,##0.00"_s << 8400.0
                                             << u"kr\u00A08\u00A0400,00"_s;
        // No symbol of its own: the currency's code, as its currency format shows.
        QTest::newRow("it_CH") << u"it_CH"_s << u"###,##0.00\u00A0CHF"_s << 8400.0
                               << u"8\u2019400.00\u00A0CHF"_s;
    }

    void priceFormatOfOtherLocales()
    {
        QFETCH(QString, name);
        QFETCH(QString, format);
        QFETCH(double, value);
        QFETCH(QString, printed);
        QCOMPARE(PriceFormat(QLocale(name)), format);
        QLocale::setDefault(QLocale(name));
        QCOMPARE(FormatNumber(value, format), printed);
    }
};

SHELVANE_PRINTING_TEST_MAIN(TestNumberFormat)
#include "tst_numberformat.moc"
