#pragma once

#include <QString>
#include <QStringView>

#include <optional>

// A book's values as a spreadsheet reads and writes them: money with a point for decimals,
// years and counts as plain numbers, yes/no as "Yes" and "No", whatever the locale.
namespace FieldText {

// "12.50", "0.00", "3.1416": at least two decimals and as many as the catalogue keeps (four).
QString money(double amount);
QString yesNo(bool value);

// Each reader answers nothing when the text is not such a value. Blank text is handled by
// the caller, as each field treats it in its own way.
// "12.50", "£12.50", "1,234.56", "12"; never below zero.
std::optional<double> readMoney(QStringView text);
// "1894", "0" (not known), or a date "1894-05-01", "1894-05", "1894/05/01": its year.
std::optional<int> readYear(QStringView text);
// Digits only, as the book form's number boxes take them.
std::optional<int> readWholeNumber(QStringView text);
// Yes, No, Y, N, True, False, 1, 0, X (ticked), in any letter case.
std::optional<bool> readYesNo(QStringView text);
// The entry of the book form's condition or cover list the text names, in the list's own
// spelling, and the usual words of other programs for a condition ("Very Good" is "Excl").
std::optional<QString> readCondition(QStringView text);
std::optional<QString> readCover(QStringView text);

} // namespace FieldText
