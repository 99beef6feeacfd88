#include "reports/reportfont.h"

QFont ReportFont(const QString &family, const TextStyle &style)
{
    QFont font(family);
    font.setPixelSize(qRound(style.size));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    // Hinting would fit glyphs to one device's pixels and move line breaks between the
    // preview and the printed page.
    font.setHintingPreference(QFont::PreferNoHinting);
    // Body text, printed thousands of times, skips kerning and ligatures, which halves the
    // time of laying it out and painting it; titles and headings keep them.
    if (style.size < 12 * Decipoints::PerPoint)
        font.setStyleStrategy(QFont::PreferNoShaping);
    return font;
}
