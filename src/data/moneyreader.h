#pragma once

#include <QLocale>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>

// Reads an amount of money back from the text a form shows or a user typed, in a locale:
// "£1,234.50", "(£1,234.50)", "-£3.00", "1.234,50 €", "−1 234,50 kr", "1’234.50 CHF", "1050,5".
// The currency symbol (or its ISO code) may stand before or after the number, with or without
// a space; the group mark is the locale's own or a space (a no-break space and a narrow
// no-break space too), between groups of three digits; the decimal mark is the locale's. The
// key filters of the price and percentage boxes let only a point through, so where the locale
// writes a comma, text that does not read in the locale's form is read with a point as the
// decimal mark and no groups ("12.50", "-2.5").
// The locale's marks are looked up once, so that one reader serves a list of thousands.
class MoneyReader
{
public:
    explicit MoneyReader(const QLocale &locale = QLocale());

    // The amount the text stands for; none when it stands for no amount (empty text too).
    std::optional<double> operator()(QStringView text) const;

private:
    struct Marks
    {
        QString groups; // each character is a group mark
        QChar decimal;
    };

    std::optional<double> read(QStringView text, const Marks &marks) const;
    QString cleaned(QStringView text) const;
    // The digit a character stands for; -1 when it is none.
    int digitOf(QChar c) const;

    QStringList m_symbols; // longest first
    QString m_negative;
    QString m_positive;
    QChar m_zero;
    Marks m_localeMarks;
    std::optional<Marks> m_typedMarks;
};
