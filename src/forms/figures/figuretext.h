#pragma once

#include <QString>

// The revaluation keeps its figures only as the text of its boxes and reads them back from
// there, as the locale writes numbers and money.

// The number a box's text stands for, read with the locale's rules: digit grouping and the
// currency symbol are allowed. Text that is no number, empty text too, raises run-time error
// 13, "Type mismatch".
double NumberOfText(const QString &text);

// A number as plain text: the shortest form that reads back as the same number, with the
// locale's decimal separator and no grouping.
QString TextOfNumber(double number);
