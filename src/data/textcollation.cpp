#include "data/textcollation.h"

#include <QCollator>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>

#include <sqlite3.h>

#include <memory>

namespace {

QStringView utf16(const void *text, int bytes)
{
    return QStringView(static_cast<const QChar *>(text), bytes / qsizetype(sizeof(QChar)));
}

int compareInDictionaryOrder(void *collator, int aBytes, const void *a, int bBytes, const void *b)
{
    return TextCollation::dictionaryCompare(*static_cast<const QCollator *>(collator),
                                            utf16(a, aBytes), utf16(b, bBytes));
}

int compareIgnoringCase(void *, int aBytes, const void *a, int bBytes, const void *b)
{
    return utf16(a, aBytes).compare(utf16(b, bBytes), Qt::CaseInsensitive);
}

void destroyCollator(void *collator)
{
    delete static_cast<QCollator *>(collator);
}

QStringView textOf(sqlite3_value *value)
{
    const void *text = sqlite3_value_text16(value); // converts first, so the size is the UTF-16 one
    return utf16(text, sqlite3_value_bytes16(value));
}

void destroyPattern(void *pattern)
{
    delete static_cast<TextCollation::LikePattern *>(pattern);
}

// like(pattern, text[, escape]), as SQLite calls it for "text LIKE pattern [ESCAPE e]". The
// read pattern is kept with the statement while the pattern is a constant.
void like(sqlite3_context *context, int argc, sqlite3_value **argv)
{
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL)
            return; // a null result, as SQLite's own LIKE gives
    QChar escape;
    if (argc == 3) {
        const QStringView written = textOf(argv[2]);
        if (written.size() != 1) {
            sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
            return;
        }
        escape = written.front();
    }
    const auto *kept = static_cast<const TextCollation::LikePattern *>(sqlite3_get_auxdata(context, 0));
    if (kept && kept->escape() == escape) {
        sqlite3_result_int(context, kept->matches(textOf(argv[1])));
        return;
    }
    auto pattern = std::make_unique<TextCollation::LikePattern>(textOf(argv[0]), escape);
    sqlite3_result_int(context, pattern->matches(textOf(argv[1])));
    // Last, as SQLite may destroy it at once.
    sqlite3_set_auxdata(context, 0, pattern.release(), destroyPattern);
}

sqlite3 *handleOf(const QSqlDatabase &database)
{
    const QVariant handle = database.driver() ? database.driver()->handle() : QVariant();
    if (!handle.isValid() || qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(handle.constData());
}

} // namespace

namespace TextCollation {

bool registerOn(const QSqlDatabase &database)
{
    sqlite3 *handle = handleOf(database);
    if (!handle)
        return false;
    constexpr int encoding = SQLITE_UTF16_ALIGNED;
    auto collator = std::make_unique<QCollator>(dictionaryCollator());
    // SQLite destroys the collator itself when registering fails too.
    if (sqlite3_create_collation_v2(handle, orderName, encoding, collator.release(),
                                    compareInDictionaryOrder, destroyCollator)
            != SQLITE_OK
        || sqlite3_create_collation_v2(handle, foldedName, encoding, nullptr,
                                       compareIgnoringCase, nullptr)
            != SQLITE_OK)
        return false;
    constexpr int flags = SQLITE_UTF16 | SQLITE_DETERMINISTIC;
    return sqlite3_create_function_v2(handle, "like", 2, flags, nullptr, like, nullptr, nullptr,
                                      nullptr)
            == SQLITE_OK
        && sqlite3_create_function_v2(handle, "like", 3, flags, nullptr, like, nullptr, nullptr,
                                      nullptr)
            == SQLITE_OK;
}

QCollator dictionaryCollator()
{
    const QLocale locale;
    QCollator collator{locale};
    // The C locale names no language: its order is the characters', with case ignored as
    // SQLite's NOCASE ignores it.
    collator.setCaseSensitivity(locale.language() == QLocale::C ? Qt::CaseInsensitive
                                                                 : Qt::CaseSensitive);
    collator.setNumericMode(false);
    collator.setIgnorePunctuation(false);
    return collator;
}

int dictionaryCompare(const QCollator &collator, QStringView a, QStringView b)
{
    const int order = collator.compare(a, b);
    return order != 0 ? order : a.compare(b);
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

bool LikePattern::matches(QStringView text) const
{
    if (!m_valid)
        return false;
    const QList<uint> folded = text.toString().toCaseFolded().toUcs4();
    // Greedy, going back to just after the last % when the rest fails to match.
    const qsizetype n = m_elements.size();
    qsizetype p = 0;
    qsizetype t = 0;
    qsizetype lastAny = -1;
    qsizetype resumeAt = 0;
    while (t < folded.size()) {
        if (p < n && (m_elements[p].kind == Kind::One
                      || (m_elements[p].kind == Kind::Literal && m_elements[p].folded == folded[t]))) {
            ++p;
            ++t;
        } else if (p < n && m_elements[p].kind == Kind::Any) {
            lastAny = p++;
            resumeAt = t;
        } else if (lastAny >= 0) {
            p = lastAny + 1;
            t = ++resumeAt;
        } else {
            return false;
        }
    }
    while (p < n && m_elements[p].kind == Kind::Any)
        ++p;
    return p == n;
}

} // namespace TextCollation
