#include "transfer/textencoding.h"

#include <QStringDecoder>

#include <array>

using namespace Qt::StringLiterals;

namespace {

// Windows-1252 is Latin-1 but for these 32 places; the five it leaves unassigned are read as
// their Latin-1 control characters, so no byte is ever lost.
constexpr std::array<char16_t, 32> windows1252From0x80{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString fromWindows1252(const QByteArray &bytes)
{
    QString text(bytes.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto byte = uchar(bytes[i]);
        text[i] = byte >= 0x80 && byte < 0xA0 ? QChar(windows1252From0x80[byte - 0x80]) : QChar(char16_t(byte));
    }
    return text;
}

} // namespace

namespace TextEncoding {

Decoded decode(const QByteArray &bytes)
{
    Decoded decoded;
    QByteArrayView content(bytes);
    if (content.startsWith("\xEF\xBB\xBF")) {
        content = content.sliced(3);
        decoded.encoding = Encoding::Utf8WithBom;
    }
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    decoded.text = utf8(content);
    if (utf8.hasError()) {
        decoded.text = fromWindows1252(content.toByteArray());
        decoded.encoding = Encoding::Windows1252;
    }
    // A decomposed accent (as some systems write é) must meet the composed one stored.
    decoded.text = decoded.text.normalized(QString::NormalizationForm_C);
    return decoded;
}

QString nameOf(Encoding encoding)
{
    switch (encoding) {
    case Encoding::Utf8:
        return u"UTF-8"_s;
    case Encoding::Utf8WithBom:
        return u"UTF-8 with BOM"_s;
    case Encoding::Windows1252:
        return u"Windows-1252"_s;
    }
    return {};
}

} // namespace TextEncoding
