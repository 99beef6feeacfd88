#include "data/textcollation.h"

#include "data/sqlitehandle.h"

#include <QLocale>
#include <QSqlDatabase>

#include <sqlite3.h>
#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace {

QStringView utf16(const void *text, int bytes)
{
    return QStringView(static_cast<const QChar *>(text), bytes / qsizetype(sizeof(QChar)));
}

// UTF-8, the catalogue's encoding, so that SQLite converts nothing for a comparison.
int compareInDictionaryOrder(void *order, int aBytes, const void *a, int bBytes, const void *b)
{
    return static_cast<const TextCollation::DictionaryOrder *>(order)->compareUtf8(
        static_cast<const char *>(a), aBytes, static_cast<const char *>(b), bBytes);
}

int compareIgnoringCase(void *, int aBytes, const void *a, int bBytes, const void *b)
{
    return utf16(a, aBytes).compare(utf16(b, bBytes), Qt::CaseInsensitive);
}

void destroyOrder(void *order)
{
    delete static_cast<TextCollation::DictionaryOrder *>(order);
}

int byteOrder(const char *a, int aBytes, const char *b, int bBytes)
{
    const int order = std::memcmp(a, b, size_t(std::min(aBytes, bBytes)));
    return order != 0 ? order : aBytes - bBytes;
}

// SQLite's NOCASE: A-Z folded, every other byte as it is.
int nocaseOrder(const char *a, int aBytes, const char *b, int bBytes)
{
    const int order = sqlite3_strnicmp(a, b, std::min(aBytes, bBytes));
    return order != 0 ? order : aBytes - bBytes;
}

// The character a UTF-8 sequence starting at i stands for, and its length; a broken
// sequence reads as U+FFFD, one byte long.
char32_t utf8CharacterAt(const uchar *text, qsizetype bytes, qsizetype i, qsizetype &length)
{
    const uchar lead = text[i];
    length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
    if (length == 0 || i + length > bytes) {
        length = 1;
        return U'\uFFFD';
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    for (qsizetype k = 1; k < length; ++k) {
        if ((text[i + k] & 0xC0) != 0x80) {
            length = 1;
            return U'\uFFFD';
        }
        c = (c << 6) | (text[i + k] & 0x3F);
    }
    return c;
}

UCollator *collatorOf(const QLocale &locale)
{
    if (locale.language() == QLocale::C)
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    UCollator *collator = ucol_open(locale.name().toLatin1().constData(), &status);
    if (U_FAILURE(status)) {
        ucol_close(collator);
        return nullptr;
    }
    return collator;
}

QString textOf(sqlite3_value *value)
{
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QString::fromUtf8(text, sqlite3_value_bytes(value));
}

void destroyPattern(void *pattern)
{
    delete static_cast<TextCollation::LikePattern *>(pattern);
}

// like(pattern, text[, escape]), as SQLite calls it for "text LIKE pattern [ESCAPE e]". The
// read pattern is kept with the statement while the pattern is a constant; the text is read
// as stored, in UTF-8.
void like(sqlite3_context *context, int argc, sqlite3_value **argv)
{
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            return; // a null result, as SQLite's own LIKE gives
    QChar escape;
    if (argc == 3) {
        const QString written = textOf(argv[2]);
        if (written.size() != 1) {
            sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = written.front();
    }
    const auto *text = reinterpret_cast<const char *>(sqlite3_value_text(argv[1]));
    const qsizetype bytes = sqlite3_value_bytes(argv[1]);
    const auto *kept = static_cast<const TextCollation::LikePattern *>(sqlite3_get_auxdata(context, 0));
    if (kept && kept->escape() == escape) {
        sqlite3_result_int(context, kept->matchesUtf8(text, bytes));
        return;
    }
    auto pattern = std::make_unique<TextCollation::LikePattern>(textOf(argv[0]), escape);
    sqlite3_result_int(context, pattern->matchesUtf8(text, bytes));
    // Last, as SQLite may destroy it at once.
    sqlite3_set_auxdata(context, 0, pattern.release(), destroyPattern);
}

} // namespace

namespace TextCollation {

bool registerOn(const QSqlDatabase &database)
{
    sqlite3 *handle = SqliteHandleOf(database);
    if (!handle)
        return false;
    auto order = std::make_unique<DictionaryOrder>();
    if (sqlite3_create_collation_v2(handle, orderName, SQLITE_UTF8, order.get(),
                                    compareInDictionaryOrder, destroyOrder)
        != SQLITE_OK)
        return false; // SQLite destroys the order only once it has taken it
    order.release();
    if (sqlite3_create_collation_v2(handle, foldedName, SQLITE_UTF16_ALIGNED, nullptr,
                                    compareIgnoringCase, nullptr)
        != SQLITE_OK)
        return false;
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    return sqlite3_create_function_v2(handle, "like", 2, flags, nullptr, like, nullptr, nullptr,
                                      nullptr)
            == SQLITE_OK
        && sqlite3_create_function_v2(handle, "like", 3, flags, nullptr, like, nullptr, nullptr,
                                      nullptr)
            == SQLITE_OK;
}

// The same comparison as the UNICODE_NOCASE collation's.
bool equalIgnoringCase(QStringView a, QStringView b)
{
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

// Qt's case-insensitive comparison folds each character alone, as toCaseFolded() does.
QString equalityKey(QStringView text)
{
    return text.toString().toCaseFolded();
}

DictionaryOrder::DictionaryOrder()
    : m_collator(collatorOf(QLocale()), ucol_close)
{
}

int DictionaryOrder::compare(QStringView a, QStringView b) const
{
    if (!m_collator) {
        const QByteArray aUtf8 = a.toUtf8();
        const QByteArray bUtf8 = b.toUtf8();
        return compareUtf8(aUtf8.constData(), int(aUtf8.size()), bUtf8.constData(),
                           int(bUtf8.size()));
    }
    const UCollationResult order =
        ucol_strcoll(m_collator.get(), reinterpret_cast<const UChar *>(a.utf16()),
                     int32_t(a.size()), reinterpret_cast<const UChar *>(b.utf16()),
                     int32_t(b.size()));
    return order != UCOL_EQUAL ? int(order) : a.compare(b);
}

int DictionaryOrder::compareUtf8(const char *a, int aBytes, const char *b, int bBytes) const
{
    int order = 0;
    if (m_collator) {
        UErrorCode status = U_ZERO_ERROR;
        order = ucol_strcollUTF8(m_collator.get(), a, aBytes, b, bBytes, &status);
    } else {
        order = nocaseOrder(a, aBytes, b, bBytes);
    }
    return order != 0 ? order : byteOrder(a, aBytes, b, bBytes);
}

// ICU's key (it ends in its only zero byte), then the text's UTF-16 units big-end first for
// the texts ICU finds equal; under the C locale, the UTF-8 bytes with A-Z folded as SQLite's
// NOCASE folds them, a zero byte, then the bytes as they are.
QByteArray DictionaryOrder::sortKey(QStringView text) const
{
    QByteArray key;
    if (!m_collator) {
        const QByteArray utf8 = text.toUtf8();
        key.reserve(2 * utf8.size() + 1);
        for (const char byte : utf8)
            key.append(byte >= 'A' && byte <= 'Z' ? char(byte + ('a' - 'A')) : byte);
        key.append('\0');
        key.append(utf8);
        return key;
    }
    const auto *units = reinterpret_cast<const UChar *>(text.utf16());
    key.resize(4 * text.size() + 16);
    int length = ucol_getSortKey(m_collator.get(), units, int32_t(text.size()),
                                 reinterpret_cast<uint8_t *>(key.data()), int32_t(key.size()));
    if (length > key.size()) {
        key.resize(length);
        length = ucol_getSortKey(m_collator.get(), units, int32_t(text.size()),
                                 reinterpret_cast<uint8_t *>(key.data()), int32_t(key.size()));
    }
    key.resize(length);
    key.reserve(length + 2 * text.size());
    for (const QChar unit : text) {
        key.append(char(unit.unicode() >> 8));
        key.append(char(unit.unicode() & 0xFF));
    }
    return key;
}

bool DictionaryOrder::keyLess(const QByteArray &a, const QByteArray &b)
{
    const int order = std::memcmp(a.constData(), b.constData(), size_t(std::min(a.size(), b.size())));
    return order != 0 ? order < 0 : a.size() < b.size();
}

LikePattern::LikePattern(QStringView pattern, QChar escape)
    : m_escape(escape)
{
    const QList<uint> folded = pattern.toString().toCaseFolded().toUcs4();
    const char32_t escapeFolded = escape.isNull() ? 0 : QChar::toCaseFolded(escape.unicode());
    for (qsizetype i = 0; i < folded.size(); ++i) {
        const char32_t c = folded[i];
        if (escapeFolded != 0 && c == escapeFolded) {
            if (++i == folded.size()) {
                m_valid = false;
                return;
            }
            m_elements.append({Kind::Literal, folded[i]});
        } else if (c == U'%') {
            m_elements.append({Kind::Any, 0});
        } else if (c == U'_') {
            m_elements.append({Kind::One, 0});
        } else {
            m_elements.append({Kind::Literal, c});
        }
    }
}

template<typename FoldedAt>
bool LikePattern::matchesText(qsizetype size, FoldedAt foldedAt) const
{
    if (!m_valid)
        return false;
    // Greedy, going back to just after the last % when the rest fails to match.
    const qsizetype n = m_elements.size();
    qsizetype p = 0;
    qsizetype t = 0;
    qsizetype lastAny = -1;
    qsizetype resumeAt = 0;
    qsizetype length = 0;
    while (t < size) {
        const char32_t c = foldedAt(t, length);
        if (p < n && (m_elements[p].kind == Kind::One
                      || (m_elements[p].kind == Kind::Literal && m_elements[p].folded == c))) {
            ++p;
            t += length;
        } else if (p < n && m_elements[p].kind == Kind::Any) {
            lastAny = p++;
            resumeAt = t;
        } else if (lastAny >= 0) {
            p = lastAny + 1;
            foldedAt(resumeAt, length);
            resumeAt += length;
            t = resumeAt;
        } else {
            return false;
        }
    }
    while (p < n && m_elements[p].kind == Kind::Any)
        ++p;
    return p == n;
}

// The texts are read in place, one folded character at a time, as there are many of them.
bool LikePattern::matches(QStringView text) const
{
    return matchesText(text.size(), [text](qsizetype i, qsizetype &length) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate()) {
            length = 2;
            return char32_t(QChar::toCaseFolded(QChar::surrogateToUcs4(c, text[i + 1])));
        }
        length = 1;
        return char32_t(QChar::toCaseFolded(c.unicode()));
    });
}

bool LikePattern::matchesUtf8(const char *text, qsizetype bytes) const
{
    const auto *units = reinterpret_cast<const uchar *>(text);
    return matchesText(bytes, [units, bytes](qsizetype i, qsizetype &length) {
        return char32_t(QChar::toCaseFolded(utf8CharacterAt(units, bytes, i, length)));
    });
}

} // namespace TextCollation
