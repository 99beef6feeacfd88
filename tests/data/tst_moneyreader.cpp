// Money read back from what the forms show and what a user types, in every locale.
#include "data/fieldformat.h"
#include "data/moneyreader.h"
#include "support/moneylocales.h"

#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

namespace {

// What the reader makes of a text; NaN when it reads no amount, so that a failure shows it.
double amountOf(const MoneyReader &read, const QString &text)
{
    return read(text).value_or(std::numeric_limits<double>::quiet_NaN());
}

} // namespace

class TestMoneyReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom)); }

    void readsBackWhatTheFormsShow_data() { AddMoneyLocaleRows(); }

    void readsBackWhatTheFormsShow()
    {
        QFETCH(int, locale);
        const MoneyLocale &money = UseMoneyLocale(locale);
        const MoneyReader read;
        for (qsizetype i = 0; i < MoneyAmounts.size(); ++i) {
            QCOMPARE(FieldFormats::display(MoneyAmounts.at(i), FieldFormat::Money),
                     money.shown().at(i));
            QCOMPARE(amountOf(read, money.shown().at(i)), MoneyAmounts.at(i));
            QCOMPARE(amountOf(read, money.printed.at(i)), MoneyAmounts.at(i));
        }
        // A loss, as the locale's currency format writes one: "(£1,234.56)", "-1.234,56 €",
        // "−1 234,56 kr".
        const QString loss = FieldFormats::display(-1234.56, FieldFormat::Money);
        QCOMPARE(amountOf(read, loss), -1234.56);
    }

    // Locales of other scripts, digits and groupings, through the form's own money text.
    void readsBackOtherLocales_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : {u"hi_IN"_s, u"fa_IR"_s, u"ar_EG"_s, u"nb_NO"_s, u"da_DK"_s,
                                    u"it_CH"_s, u"pt_PT"_s, u"nl_NL"_s})
            QTest::newRow(qPrintable(name)) << name;
    }

    void readsBackOtherLocales()
    {
        QFETCH(QString, name);
        QLocale::setDefault(QLocale(name));
        const MoneyReader read;
        for (const double amount : {1234567.5, 1234.56, 0.5, -98765.43})
            QCOMPARE(amountOf(read, FieldFormats::display(amount, FieldFormat::Money)), amount);
    }

    void readsTextAsWritten_data()
    {
        QTest::addColumn<QString>("locale");
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("amount"); // NaN: no amount
        const auto row = [](const char *name, const QString &locale, const QString &text,
                            double amount) { QTest::newRow(name) << locale << text << amount; };
        row("pounds", u"en_GB"_s, u"£1,234.50"_s, 1234.5);
        row("loss in brackets", u"en_GB"_s, u"(£1,234.50)"_s, -1234.5);
        row("minus before the symbol", u"en_GB"_s, u"-£3.00"_s, -3);
        row("plain number", u"en_GB"_s, u"1102.5"_s, 1102.5);
        row("spaces around", u"en_GB"_s, u" £ 12.5 "_s, 12.5);
        row("plus sign", u"en_GB"_s, u"+5"_s, 5);
        row("no decimals after the point", u"en_GB"_s, u"12."_s, 12);
        row("no digit before the point", u"en_GB"_s, u".5"_s, 0.5);
        row("euros after the number", u"de_DE"_s, u"1.234,50 €"_s, 1234.5);
        row("plain number with a comma", u"de_DE"_s, u"1102,5"_s, 1102.5);
        row("typed point", u"de_DE"_s, u"12.50"_s, 12.5);
        row("typed negative point", u"de_DE"_s, u"-2.5"_s, -2.5);
        row("thousand grouped", u"de_DE"_s, u"1.000"_s, 1000);
        row("narrow no-break space groups", u"fr_FR"_s, u"1\u202F234,50\u00A0€"_s, 1234.5);
        row("no-break space groups", u"fr_FR"_s, u"1\u00A0234,50 €"_s, 1234.5);
        row("space groups", u"fr_FR"_s, u"1 234,50 €"_s, 1234.5);
        row("minus sign", u"sv_SE"_s, u"\u22121\u00A0234,50\u00A0kr"_s, -1234.5);
        row("apostrophe groups, symbol after", u"de_CH"_s, u"1\u2019234.50\u00A0CHF"_s, 1234.5);
        row("apostrophe groups, symbol before", u"de_CH"_s, u"CHF 1\u2019234.50"_s, 1234.5);
        row("yen", u"ja_JP"_s, u"\uFFE51,234.50"_s, 1234.5);
        row("Indian groups", u"hi_IN"_s, u"\u20B912,34,567.00"_s, 1234567);
        row("first group of four", u"pt_PT"_s, u"1234\u00A0567,50\u00A0€"_s, 1234567.5);
        row("no currency", u"eo"_s, u"1\u00A0234,50"_s, 1234.5);
        row("the C locale", u"C"_s, u"1234.5"_s, 1234.5);

        const double none = std::numeric_limits<double>::quiet_NaN();
        row("empty", u"en_GB"_s, QString(), none);
        row("only the symbol", u"en_GB"_s, u"£"_s, none);
        row("two points", u"en_GB"_s, u"1.2.3"_s, none);
        row("a colon", u"en_GB"_s, u":"_s, none);
        row("letters", u"en_GB"_s, u"12 pounds"_s, none);
        row("comma in a point locale", u"en_GB"_s, u"12,5"_s, none);
        row("group of two at the end", u"en_GB"_s, u"1,23"_s, none);
        row("group of four", u"en_GB"_s, u"1,2345.00"_s, none);
        row("group after the decimals", u"en_GB"_s, u"1.234,5"_s, none);
        row("points as groups of one", u"de_DE"_s, u"1.2.3"_s, none);
        row("two commas", u"de_DE"_s, u"12,5,0"_s, none);
        row("another currency", u"de_DE"_s, u"£12"_s, none);
    }

    void readsTextAsWritten()
    {
        QFETCH(QString, locale);
        QFETCH(QString, text);
        QFETCH(double, amount);
        const MoneyReader read(locale == u"C" ? QLocale::c() : QLocale(locale));
        QCOMPARE(amountOf(read, text), amount);
    }

    // The form's parse reads with the default locale, and says when it cannot.
    void fieldParseUsesTheReader()
    {
        QLocale::setDefault(QLocale(u"de_DE"_s));
        QCOMPARE(FieldFormats::parse(u"1.234,50 €"_s, FieldFormat::Money), QVariant(1234.5));
        QCOMPARE(FieldFormats::parse(u"12.50"_s, FieldFormat::Money), QVariant(12.5));
        QVERIFY(!FieldFormats::parse(u"1.2.3"_s, FieldFormat::Money).isValid());
        const QVariant empty = FieldFormats::parse(QString(), FieldFormat::Money);
        QVERIFY(empty.isValid() && empty.isNull());
    }
};

QTEST_GUILESS_MAIN(TestMoneyReader)
#include "tst_moneyreader.moc"
