#pragma once

#include <QString>
#include <QVariant>

class QLocale;
struct Session;

// A value printed through a number format as the reports' text boxes carry them:
// "£###,##0.00", "$#,##0.00", "\"£\"#,##0.00", "\"No. \"0". Literal text (quoted, escaped
// with "\", or any other character) before and after the digits is printed as it stands; a
// "," among the digits groups thousands; the digits after "." give the decimals. The
// locale's separators and minus sign are used. The named format "Yes/No" prints a yes/no
// value as a word. A null value prints as nothing; a value that is not a number, or an empty
// format, prints as the value's text.
QString FormatNumber(const QVariant &value, const QString &format);

// The currency symbol the locale's currency format shows: its own symbol, else the currency's
// ISO code; empty where the locale has no currency (the C locale).
QString CurrencySymbol(const QLocale &locale);

// The format of printed prices in the locale: "###,##0.00" with the currency symbol where
// the locale's currency format puts it, with its spacing ("£###,##0.00", "###,##0.00 €",
// "kr ###,##0.00"); no symbol where the locale has none.
QString PriceFormat(const QLocale &locale);

// The session's strCurrencySymbol and strPriceFormat for the locale, as a catalogue opens.
void SetPriceFormat(Session &session, const QLocale &locale);
