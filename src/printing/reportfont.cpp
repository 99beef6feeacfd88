#include "printing/reportfont.h"

QFont ReportFont(const QString &family, const TextStyle &style)
{
    QFont font(family);
    font.setPixelSize(qRound(style.size));
    font.setBold(style.bold);
    font.setItalic(style.italic);
    // Hinting would fit glyphs to one device's pixels and move line breaks between the
    // preview and the printed page.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(true);
    return font;
}
