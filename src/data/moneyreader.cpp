#include "data/moneyreader.h"

#include <algorithm>
#include <charconv>
#include <string>

using namespace Qt::StringLiterals;

namespace {

// The space, the no-break space and the narrow no-break space: any of them may group digits.
const QString SpaceMarks = u" \u00A0\u202F"_s;
const QString MinusSign = u"\u2212"_s;

// Marks that set the direction of right-to-left text around a number say nothing about it.
QString withoutDirectionMarks(QString text)
{
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Format; });
    return text;
}

// Takes a sign off the front of the text, and the space after it.
bool takeSign(QStringView &text, QStringView sign)
{
    if (sign.isEmpty() || !text.startsWith(sign))
        return false;
    text = text.sliced(sign.size()).trimmed();
    return true;
}

} // namespace

MoneyReader::MoneyReader(const QLocale &locale)
    : m_negative(withoutDirectionMarks(locale.negativeSign()))
    , m_positive(withoutDirectionMarks(locale.positiveSign()))
{
    // Where the locale has no symbol of its own, its currency format shows the ISO code.
    for (const QString &shown : {locale.currencySymbol(QLocale::CurrencySymbol),
                                 locale.currencySymbol(QLocale::CurrencyIsoCode)}) {
        const QString symbol = withoutDirectionMarks(shown);
        if (!symbol.isEmpty() && !m_symbols.contains(symbol))
            m_symbols.append(symbol);
    }
    std::sort(m_symbols.begin(), m_symbols.end(),
              [](const QString &a, const QString &b) { return a.size() > b.size(); });

    const QString zero = locale.zeroDigit();
    m_zero = zero.size() == 1 ? zero.front() : u'0';
    const QString group = locale.groupSeparator();
    const QString decimal = locale.decimalPoint();
    m_localeMarks.groups = SpaceMarks;
    if (group.size() == 1 && !SpaceMarks.contains(group))
        m_localeMarks.groups += group;
    m_localeMarks.decimal = decimal.size() == 1 ? decimal.front() : u'.';
    if (m_localeMarks.decimal != u'.')
        m_typedMarks = Marks{QString(), u'.'};
}

std::optional<double> MoneyReader::operator()(QStringView text) const
{
    const QString number = cleaned(text);
    std::optional<double> amount = read(number, m_localeMarks);
    if (!amount && m_typedMarks)
        amount = read(number, *m_typedMarks);
    return amount;
}

QString MoneyReader::cleaned(QStringView text) const
{
    QString number = withoutDirectionMarks(text.toString());
    for (const QString &symbol : m_symbols)
        number.remove(symbol);
    return number;
}

// The locale's own digits (Arabic-Indic, Persian, ...) as well as 0 to 9.
int MoneyReader::digitOf(QChar c) const
{
    if (c >= u'0' && c <= u'9')
        return c.unicode() - u'0';
    const int offset = c.unicode() - m_zero.unicode();
    return offset >= 0 && offset < 10 ? offset : -1;
}

// Groups stand only before the decimal mark: the first of any length (Qt leaves four digits
// there where a locale groups only from five), the others of two (as the Indian locales group)
// or three, the last of three.
std::optional<double> MoneyReader::read(QStringView text, const Marks &marks) const
{
    QStringView rest = text.trimmed();
    bool negative = false;
    if (rest.startsWith(u'(') && rest.endsWith(u')')) {
        negative = true;
        rest = rest.sliced(1, rest.size() - 2).trimmed();
    }
    if (takeSign(rest, m_negative) || takeSign(rest, u"-") || takeSign(rest, MinusSign))
        negative = true;
    else if (!takeSign(rest, m_positive))
        takeSign(rest, u"+");

    std::string number;
    number.reserve(rest.size());
    qsizetype run = 0; // digits since the last mark
    bool grouped = false;
    bool decimals = false;
    for (const QChar c : rest) {
        if (const int digit = digitOf(c); digit >= 0) {
            number += char('0' + digit);
            ++run;
        } else if (!decimals && marks.groups.contains(c)) {
            if (run < (grouped ? 2 : 1) || (grouped && run > 3))
                return std::nullopt;
            grouped = true;
            run = 0;
        } else if (!decimals && c == marks.decimal) {
            if (grouped && run != 3)
                return std::nullopt;
            number += '.';
            decimals = true;
            run = 0;
        } else {
            return std::nullopt;
        }
    }
    if ((grouped && !decimals && run != 3) || number.find_first_of("0123456789") == std::string::npos)
        return std::nullopt;

    double amount = 0;
    const char *end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, amount);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return negative ? -amount : amount;
}
