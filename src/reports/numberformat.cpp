#include "reports/numberformat.h"

#include "catalogue/session.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

bool isDigitPlaceholder(QChar c)
{
    return c == u'#' || c == u'0' || c == u',' || c == u'.';
}

struct NumberPattern
{
    QString prefix;
    QString suffix;
    int decimals = 0;
    bool grouped = false;
};

// Reads literal text up to the digits (or to the end), past quotes and escapes.
QString literalFrom(const QString &format, qsizetype &i)
{
    QString text;
    while (i < format.size() && !isDigitPlaceholder(format[i])) {
        if (format[i] == u'"') {
            const qsizetype close = format.indexOf(u'"', i + 1);
            const qsizetype end = close < 0 ? format.size() : close;
            text += format.mid(i + 1, end - i - 1);
            i = end + 1;
        } else if (format[i] == u'\\' && i + 1 < format.size()) {
            text += format[i + 1];
            i += 2;
        } else {
            text += format[i++];
        }
    }
    return text;
}

// Text that prints as it stands: a character the format would read as a digit, a quote or an
// escape (the point of the Danish "kr.") is escaped.
QString literal(const QString &text)
{
    QString escaped;
    for (const QChar c : text) {
        if (isDigitPlaceholder(c) || c == u'"' || c == u'\\')
            escaped += u'\\';
        escaped += c;
    }
    return escaped;
}

NumberPattern patternOf(const QString &format)
{
    NumberPattern pattern;
    qsizetype i = 0;
    pattern.prefix = literalFrom(format, i);
    bool afterPoint = false;
    for (; i < format.size() && isDigitPlaceholder(format[i]); ++i) {
        if (format[i] == u'.')
            afterPoint = true;
        else if (format[i] == u',')
            pattern.grouped = true;
        else if (afterPoint)
            ++pattern.decimals;
    }
    pattern.suffix = literalFrom(format, i);
    return pattern;
}

// Money is held to four decimal places: 2.675 is two pounds sixty-seven and a half pence,
// and rounds up to 2.68, although the nearest double lies just below it.
double rounded(double number, int decimals)
{
    constexpr int heldDecimals = 4;
    if (decimals > heldDecimals)
        return number;
    const double held = std::round(number * std::pow(10.0, heldDecimals));
    const double scale = std::pow(10.0, heldDecimals - decimals);
    return std::round(held / scale) / std::pow(10.0, decimals);
}

} // namespace

QString FormatNumber(const QVariant &value, const QString &format)
{
    if (value.isNull())
        return {};
    // Without a format every value prints as it is, and a text is never read as a number.
    if (format.isEmpty())
        return value.toString();
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    if (!isNumber)
        return value.toString();
    if (format == u"Yes/No")
        return number != 0 ? u"Yes"_s : u"No"_s;

    const NumberPattern pattern = patternOf(format);
    QLocale locale;
    locale.setNumberOptions(pattern.grouped ? QLocale::DefaultNumberOptions
                                            : QLocale::OmitGroupSeparator);
    const QString digits = locale.toString(rounded(std::abs(number), pattern.decimals), 'f',
                                           pattern.decimals);
    const bool negative = number < 0 && digits != locale.toString(0.0, 'f', pattern.decimals);
    const QString sign = negative ? locale.negativeSign() : QString();
    return sign + pattern.prefix + digits + pattern.suffix;
}

QString CurrencySymbol(const QLocale &locale)
{
    const QString symbol = locale.currencySymbol();
    return symbol.isEmpty() ? locale.currencySymbol(QLocale::CurrencyIsoCode) : symbol;
}

QString PriceFormat(const QLocale &locale)
{
    const QString digits = u"###,##0.00"_s;
    const QString symbol = CurrencySymbol(locale);
    const QString one = locale.toString(1.0, 'f', 2);
    const QString shown = locale.toCurrencyString(1.0, symbol, 2);
    const qsizetype at = shown.indexOf(one);
    if (symbol.isEmpty() || at < 0)
        return digits;
    return literal(shown.left(at)) + digits + literal(shown.sliced(at + one.size()));
}

void SetPriceFormat(Session &session, const QLocale &locale)
{
    session.strCurrencySymbol = CurrencySymbol(locale);
    session.strPriceFormat = PriceFormat(locale);
}
