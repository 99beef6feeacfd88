#include "transfer/fieldtext.h"

#include <QDate>
#include <QList>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

// The book form's lists, and what other programs call their entries.
const QList<std::pair<QString, QString>> conditionWords{
    {u"mint"_s, u"Mint"_s},      {u"excl"_s, u"Excl"_s},      {u"good"_s, u"Good"_s},
    {u"fair"_s, u"Fair"_s},      {u"poor"_s, u"Poor"_s},      {u"as new"_s, u"Mint"_s},
    {u"like new"_s, u"Mint"_s},  {u"new"_s, u"Mint"_s},       {u"fine"_s, u"Mint"_s},
    {u"very good"_s, u"Excl"_s}, {u"excellent"_s, u"Excl"_s}, {u"acceptable"_s, u"Fair"_s},
};

const QList<std::pair<QString, QString>> coverWords{
    {u"full calf"_s, u"Full Calf"_s},
    {u"half calf"_s, u"Half Calf"_s},
    {u"leather spine with boards"_s, u"Leather Spine with Boards"_s},
    {u"boxed"_s, u"Boxed"_s},
    {u"hard back & dw"_s, u"Hard Back & DW"_s},
    {u"hard back no dw"_s, u"Hard Back no DW"_s},
    {u"soft back"_s, u"Soft Back"_s},
    {u"paper back"_s, u"Paper Back"_s},
    {u"paperback"_s, u"Paper Back"_s},
    {u"mass market paperback"_s, u"Paper Back"_s},
    {u"softcover"_s, u"Soft Back"_s},
    {u"trade paperback"_s, u"Soft Back"_s},
    {u"hardcover"_s, u"Hard Back no DW"_s},
    {u"hardback"_s, u"Hard Back no DW"_s},
};

std::optional<QString> listEntry(const QList<std::pair<QString, QString>> &words, QStringView text)
{
    const QString folded = text.trimmed().toString().toCaseFolded().simplified();
    for (const auto &[word, entry] : words) {
        if (word == folded)
            return entry;
    }
    return std::nullopt;
}

} // namespace

namespace FieldText {

QString money(double amount)
{
    QString text = QString::number(amount, 'f', 4);
    // Four decimals are kept; the last two only when they are not nought.
    while (text.endsWith(u'0') && text.size() - text.indexOf(u'.') > 3)
        text.chop(1);
    return text;
}

QString yesNo(bool value)
{
    return value ? u"Yes"_s : u"No"_s;
}

std::optional<double> readMoney(QStringView text)
{
    static const QRegularExpression amount(
        uR"(^(?:[£$€¥]\s*)?(\d{1,3}(?:,\d{3})+|\d+)(?:\.(\d+))?(?:\s*[£$€¥])?$)"_s);
    const QRegularExpressionMatch found = amount.match(text.trimmed().toString());
    if (!found.hasMatch())
        return std::nullopt;
    QString digits = found.captured(1).remove(u',');
    if (found.hasCaptured(2))
        digits += u'.' + found.captured(2);
    return digits.toDouble();
}

std::optional<int> readYear(QStringView text)
{
    static const QRegularExpression date(uR"(^(\d{4})(?:([-/])(\d{1,2})(?:\2(\d{1,2}))?)?$)"_s);
    const QStringView trimmed = text.trimmed();
    if (const std::optional<int> number = readWholeNumber(trimmed); number && trimmed.size() <= 4)
        return number;
    const QRegularExpressionMatch found = date.match(trimmed.toString());
    if (!found.hasMatch() || !found.hasCaptured(3))
        return std::nullopt;
    const int year = found.captured(1).toInt();
    const int month = found.captured(3).toInt();
    const int day = found.hasCaptured(4) ? found.captured(4).toInt() : 1;
    if (!QDate(year, month, day).isValid())
        return std::nullopt;
    return year;
}

std::optional<int> readWholeNumber(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > 9)
        return std::nullopt;
    for (const QChar c : trimmed) {
        if (c < u'0' || c > u'9')
            return std::nullopt;
    }
    return trimmed.toInt();
}

std::optional<bool> readYesNo(QStringView text)
{
    const QString folded = text.trimmed().toString().toCaseFolded();
    for (const QString &yes : {u"yes"_s, u"y"_s, u"true"_s, u"1"_s, u"x"_s}) {
        if (folded == yes)
            return true;
    }
    for (const QString &no : {u"no"_s, u"n"_s, u"false"_s, u"0"_s}) {
        if (folded == no)
            return false;
    }
    return std::nullopt;
}

std::optional<QString> readCondition(QStringView text)
{
    return listEntry(conditionWords, text);
}

std::optional<QString> readCover(QStringView text)
{
    return listEntry(coverWords, text);
}

} // namespace FieldText
