#include "support/moneylocales.h"

#include <QTest>

using namespace Qt::StringLiterals;

const QList<double> MoneyAmounts{8400, 1120, 11.25, 0.5, 0, 12.5, 1234.56, 9531.75, 1906.35};

// U+00A0 no-break space, U+202F narrow no-break space, U+2019 apostrophe, U+FFE5 yen sign.
const QList<MoneyLocale> &MoneyLocales()
{
    static const QList<MoneyLocale> locales{
        // The C locale groups digits only where a format asks for it.
        {u"C"_s, QLocale::c(), QString(), u"###,##0.00"_s,
         {u"8,400.00"_s, u"1,120.00"_s, u"11.25"_s, u"0.50"_s, u"0.00"_s, u"12.50"_s,
          u"1,234.56"_s, u"9,531.75"_s, u"1,906.35"_s},
         {u"8400.00"_s, u"1120.00"_s, u"11.25"_s, u"0.50"_s, u"0.00"_s, u"12.50"_s, u"1234.56"_s,
          u"9531.75"_s, u"1906.35"_s}},
        {u"en_GB"_s, QLocale(u"en_GB"_s), u"£"_s, u"£###,##0.00"_s,
         {u"£8,400.00"_s, u"£1,120.00"_s, u"£11.25"_s, u"£0.50"_s, u"£0.00"_s, u"£12.50"_s,
          u"£1,234.56"_s, u"£9,531.75"_s, u"£1,906.35"_s}},
        {u"en_US"_s, QLocale(u"en_US"_s), u"$"_s, u"$###,##0.00"_s,
         {u"$8,400.00"_s, u"$1,120.00"_s, u"$11.25"_s, u"$0.50"_s, u"$0.00"_s, u"$12.50"_s,
          u"$1,234.56"_s, u"$9,531.75"_s, u"$1,906.35"_s}},
        {u"de_DE"_s, QLocale(u"de_DE"_s), u"€"_s, u"###,##0.00\u00A0€"_s,
         {u"8.400,00\u00A0€"_s, u"1.120,00\u00A0€"_s, u"11,25\u00A0€"_s, u"0,50\u00A0€"_s,
          u"0,00\u00A0€"_s, u"12,50\u00A0€"_s, u"1.234,56\u00A0€"_s, u"9.531,75\u00A0€"_s,
          u"1.906,35\u00A0€"_s}},
        {u"fr_FR"_s, QLocale(u"fr_FR"_s), u"€"_s, u"###,##0.00\u00A0€"_s,
         {u"8\u202F400,00\u00A0€"_s, u"1\u202F120,00\u00A0€"_s, u"11,25\u00A0€"_s,
          u"0,50\u00A0€"_s, u"0,00\u00A0€"_s, u"12,50\u00A0€"_s, u"1\u202F234,56\u00A0€"_s,
          u"9\u202F531,75\u00A0€"_s, u"1\u202F906,35\u00A0€"_s}},
        {u"sv_SE"_s, QLocale(u"sv_SE"_s), u"kr"_s, u"###,##0.00\u00A0kr"_s,
         {u"8\u00A0400,00\u00A0kr"_s, u"1\u00A0120,00\u00A0kr"_s, u"11,25\u00A0kr"_s,
          u"0,50\u00A0kr"_s, u"0,00\u00A0kr"_s, u"12,50\u00A0kr"_s, u"1\u00A0234,56\u00A0kr"_s,
          u"9\u00A0531,75\u00A0kr"_s, u"1\u00A0906,35\u00A0kr"_s}},
        {u"de_CH"_s, QLocale(u"de_CH"_s), u"CHF"_s, u"###,##0.00\u00A0CHF"_s,
         {u"8\u2019400.00\u00A0CHF"_s, u"1\u2019120.00\u00A0CHF"_s, u"11.25\u00A0CHF"_s,
          u"0.50\u00A0CHF"_s, u"0.00\u00A0CHF"_s, u"12.50\u00A0CHF"_s, u"1\u2019234.56\u00A0CHF"_s,
          u"9\u2019531.75\u00A0CHF"_s, u"1\u2019906.35\u00A0CHF"_s}},
        {u"ja_JP"_s, QLocale(u"ja_JP"_s), u"\uFFE5"_s, u"\uFFE5###,##0.00"_s,
         {u"\uFFE58,400.00"_s, u"\uFFE51,120.00"_s, u"\uFFE511.25"_s, u"\uFFE50.50"_s,
          u"\uFFE50.00"_s, u"\uFFE512.50"_s, u"\uFFE51,234.56"_s, u"\uFFE59,531.75"_s,
          u"\uFFE51,906.35"_s}},
        // Esperanto: Qt knows no currency for it.
        {u"eo"_s, QLocale(u"eo"_s), QString(), u"###,##0.00"_s,
         {u"8\u00A0400,00"_s, u"1\u00A0120,00"_s, u"11,25"_s, u"0,50"_s, u"0,00"_s, u"12,50"_s,
          u"1\u00A0234,56"_s, u"9\u00A0531,75"_s, u"1\u00A0906,35"_s}},
    };
    return locales;
}

void AddMoneyLocaleRows()
{
    QTest::addColumn<int>("locale");
    for (int i = 0; i < MoneyLocales().size(); ++i)
        QTest::newRow(qPrintable(MoneyLocales().at(i).name)) << i;
}

const MoneyLocale &UseMoneyLocale(int index)
{
    const MoneyLocale &money = MoneyLocales().at(index);
    QLocale::setDefault(money.locale);
    return money;
}

QString PlainSpaces(QString text)
{
    return text.replace(u'\u00A0', u' ').replace(u'\u202F', u' ');
}
