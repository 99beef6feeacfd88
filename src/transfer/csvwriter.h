#pragma once

#include <QString>
#include <QStringList>

// Writes CSV as RFC 4180 has it: commas between fields, CR LF after each record, and a field
// in double quotes (its own quotes doubled) when it holds a comma, a quote, a line break, or
// space at either end that a spreadsheet would otherwise drop.
namespace CsvWriter {

QString field(const QString &value);
QString record(const QStringList &fields);

} // namespace CsvWriter
