#pragma once

#include <QString>
#include <QVariant>

// A value printed through a number format as the reports' text boxes carry them:
// "£###,##0.00", "$#,##0.00", "\"£\"#,##0.00", "\"No. \"0". Literal text (quoted, escaped
// with "\", or any other character) before and after the digits is printed as it stands; a
// "," among the digits groups thousands; the digits after "." give the decimals. The
// locale's separators are used. The named format "Yes/No" prints a yes/no value as a word. A null value prints as nothing; a value that is not a number,
// or an empty format, prints as the value's text.
QString FormatNumber(const QVariant &value, const QString &format);
