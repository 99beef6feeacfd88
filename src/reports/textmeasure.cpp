#include "reports/textmeasure.h"

#include "reports/reportfont.h"

namespace {

// Texts longer than this (descriptions, notes) seldom come again; they are measured each time.
constexpr qsizetype RememberedLength = 48;
// Enough for every name and caption of a large catalogue; past it the memory starts afresh.
constexpr qsizetype RememberedTexts = 50000;

quint64 keyOf(const TextStyle &style)
{
    return (quint64(qRound(style.size * 16)) << 2) | (style.bold ? 2 : 0) | (style.italic ? 1 : 0);
}

} // namespace

TextMeasure::TextMeasure(const QString &family)
    : m_family(family)
{
}

const QFontMetricsF &TextMeasure::metrics(const TextStyle &style)
{
    return look(style).metrics;
}

qreal TextMeasure::advance(const TextStyle &style, const QString &text)
{
    Look &measured = look(style);
    if (text.size() > RememberedLength)
        return measured.metrics.horizontalAdvance(text);
    const auto found = measured.advances.constFind(text);
    if (found != measured.advances.cend())
        return *found;
    if (measured.advances.size() >= RememberedTexts)
        measured.advances.clear();
    const qreal width = measured.metrics.horizontalAdvance(text);
    measured.advances.insert(text, width);
    return width;
}

TextMeasure::Look &TextMeasure::look(const TextStyle &style)
{
    const quint64 key = keyOf(style);
    auto found = m_looks.find(key);
    if (found == m_looks.end())
        found = m_looks.emplace(key, Look{QFontMetricsF(ReportFont(m_family, style)), {}}).first;
    return found->second;
}
