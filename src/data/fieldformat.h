#pragma once

#include <QVariant>

// How a bound field is shown and read back.
enum class FieldFormat {
    Plain,
    WholeNumber, // "####": digits only, no separators; empty for null
    Money,       // "£#,##0.00": the locale's currency format with two decimals
};

namespace FieldFormats {
QString display(const QVariant &value, FieldFormat format);
// The value a user's text stands for; an invalid QVariant when the text cannot be read.
// Empty text is a null value.
QVariant parse(const QString &text, FieldFormat format);
} // namespace FieldFormats
