#include "transfer/csvreader.h"

#include <array>

namespace {

bool isLineEnd(QChar c)
{
    return c == u'\n' || c == u'\r';
}

} // namespace

CsvReader::CsvReader(QStringView text, QChar delimiter)
    : m_text(text)
    , m_delimiter(delimiter)
{
    skipEmptyLines();
}

bool CsvReader::atEnd() const
{
    return m_pos >= m_text.size();
}

double CsvReader::fractionRead() const
{
    return m_text.isEmpty() ? 1.0 : double(m_pos) / double(m_text.size());
}

CsvRecord CsvReader::next()
{
    CsvRecord record;
    record.line = m_line;
    bool endsRecord = false;
    while (!endsRecord)
        record.fields << readField(endsRecord, record.unterminated);
    skipEmptyLines();
    return record;
}

QString CsvReader::readField(bool &endsRecord, bool &unterminated)
{
    QString field;
    bool quoted = m_pos < m_text.size() && m_text[m_pos] == u'"';
    if (quoted)
        ++m_pos;
    while (m_pos < m_text.size()) {
        const QChar c = m_text[m_pos];
        if (quoted) {
            if (c == u'"') {
                if (m_pos + 1 < m_text.size() && m_text[m_pos + 1] == u'"') {
                    field += u'"';
                    m_pos += 2;
                } else {
                    quoted = false; // what follows up to the delimiter is kept, as spreadsheets do
                    ++m_pos;
                }
                continue;
            }
            // A line break inside a field is kept as written; CR LF counts as one line.
            const bool crBeforeLf = c == u'\r' && m_pos + 1 < m_text.size() && m_text[m_pos + 1] == u'\n';
            if (isLineEnd(c) && !crBeforeLf)
                ++m_line;
            field += c;
            ++m_pos;
            continue;
        }
        if (c == m_delimiter) {
            ++m_pos;
            return field;
        }
        if (isLineEnd(c)) {
            skipLineEnd();
            endsRecord = true;
            return field;
        }
        field += c;
        ++m_pos;
    }
    unterminated = unterminated || quoted;
    endsRecord = true;
    return field;
}

void CsvReader::skipLineEnd()
{
    if (m_text[m_pos] == u'\r' && m_pos + 1 < m_text.size() && m_text[m_pos + 1] == u'\n')
        ++m_pos;
    ++m_pos;
    ++m_line;
}

void CsvReader::skipEmptyLines()
{
    while (m_pos < m_text.size() && isLineEnd(m_text[m_pos]))
        skipLineEnd();
}

QChar CsvReader::detectDelimiter(QStringView text)
{
    constexpr std::array<char16_t, 3> candidates{u',', u';', u'\t'};
    std::array<int, 3> counts{};
    bool quoted = false;
    for (const QChar c : text) {
        if (c == u'"')
            quoted = !quoted;
        else if (!quoted && isLineEnd(c))
            break;
        else if (!quoted) {
            for (size_t i = 0; i < candidates.size(); ++i)
                counts[i] += c == candidates[i];
        }
    }
    size_t best = 0;
    for (size_t i = 1; i < candidates.size(); ++i) {
        if (counts[i] > counts[best])
            best = i;
    }
    return QChar(candidates[best]);
}
