#include "transfer/csvwriter.h"

using namespace Qt::StringLiterals;

namespace CsvWriter {

QString field(const QString &value)
{
    const bool needsQuotes = value.contains(u',') || value.contains(u'"') || value.contains(u'\n')
        || value.contains(u'\r')
        || (!value.isEmpty() && (value.front().isSpace() || value.back().isSpace()));
    if (!needsQuotes)
        return value;
    return u'"' + QString(value).replace(u'"', u"\"\""_s) + u'"';
}

QString record(const QStringList &fields)
{
    QString line;
    for (qsizetype i = 0; i < fields.size(); ++i) {
        if (i > 0)
            line += u',';
        line += field(fields[i]);
    }
    return line + u"\r\n"_s;
}

} // namespace CsvWriter
