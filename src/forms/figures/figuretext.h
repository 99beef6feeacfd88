#pragma once

#include <QString>

// The revaluation keeps its figures only as the text of its boxes and reads them back from
// there, as the locale writes numbers and money.

// The number a box's text stands for, read as money is (MoneyReader): the currency symbol
// and digit grouping are allowed, and a point where the locale writes a decimal comma, as the
// percentage's key filter lets only a point through. Text that is no number, empty text too,
// raises run-time error 13, "Type mismatch".
double NumberOfText(const QString &text);

// A number as plain text: the shortest form that reads back as the same number, with the
// locale's decimal separator, no grouping and no exponent.
QString TextOfNumber(double number);
