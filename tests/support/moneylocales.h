#pragma once

#include <QList>
#include <QLocale>
#include <QString>
#include <QStringList>

// The locales the money tests run through, each with what Qt's locale data has it show:
// the symbol after the number, a comma for the decimal mark, a no-break or narrow no-break
// space or an apostrophe for the group mark, and a locale with no currency at all.
struct MoneyLocale
{
    QString name;         // the row's name; with ".UTF-8", the LANG the catalogue tool runs in
    QLocale locale;
    QString symbol;       // strCurrencySymbol
    QString priceFormat;  // strPriceFormat
    QStringList printed;  // MoneyAmounts as the reports print them
    QStringList shownDifferently = {}; // as the forms show them, where that is not as printed

    QStringList shown() const { return shownDifferently.isEmpty() ? printed : shownDifferently; }
    QString lang() const { return name == u"C" ? name : name + QStringLiteral(".UTF-8"); }
};

// 8,400, 1,120, 11.25, 0.5 and 0; 12.50 and 1,234.56; 9,531.75 and 1,906.35, their sum
// and average.
extern const QList<double> MoneyAmounts;

const QList<MoneyLocale> &MoneyLocales();

// One data row per locale, named after it, with the column "locale": its index.
void AddMoneyLocaleRows();
// The locale of the row, made the program's default.
const MoneyLocale &UseMoneyLocale(int index);

// The text with its no-break and narrow no-break spaces made plain spaces, as pdftotext
// gives them.
QString PlainSpaces(QString text);
