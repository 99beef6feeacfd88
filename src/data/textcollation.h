#pragma once

#include <QList>
#include <QString>
#include <QStringView>

#include <memory>

class QSqlDatabase;
struct UCollator;

// How the program orders and matches text: a dictionary's order in the current locale (case
// and accents count only between names that are otherwise the same) and equality and LIKE
// that ignore the case of every letter, not only A-Z. The catalogue's columns keep SQLite's
// own NOCASE, so any SQLite tool still reads and checks the file; the program's connections
// register these under their own names and its statements ask for them.
namespace TextCollation {

// The collation ORDER BY terms are given.
inline constexpr auto orderName = "LOCALE";
// The collation text equality is given: equal when the same but for case.
inline constexpr auto foldedName = "UNICODE_NOCASE";

// Registers both collations and a case-folding like() on the database's SQLite handle, the
// dictionary order taking the default locale of the moment (see DictionaryOrder). False when
// the handle is not SQLite's.
bool registerOn(const QSqlDatabase &database);

// Whether two texts are equal as the program's "=" finds them: the same but for the case of
// any letter, accents counting.
bool equalIgnoringCase(QStringView a, QStringView b);

// A key two texts share exactly when equalIgnoringCase() finds them equal, for finding one
// text among many without comparing it with each.
QString equalityKey(QStringView text);

// The order of the default locale of the moment, as a dictionary of it orders words: ICU's
// collation, and for texts it holds the same the order of their characters, so that no two
// differing texts tie and every sort is stable. Under the C locale, which names no language,
// it is SQLite's NOCASE order (A-Z folded, then the characters' order). Copies share one
// collator, which is safe to use from several threads at once.
class DictionaryOrder
{
public:
    DictionaryOrder();
    // Negative, zero or positive as a sorts before, with or after b.
    int compare(QStringView a, QStringView b) const;
    int compareUtf8(const char *a, int aBytes, const char *b, int bBytes) const;
    // Bytes whose order (as unsigned bytes, a shorter run of the same bytes first; see
    // keyLess) is the order compare() gives, for sorting many texts: each text is read once,
    // and sorting compares bytes. Under the C locale a text holding a Null character may
    // sort apart from where compare() puts it.
    QByteArray sortKey(QStringView text) const;
    static bool keyLess(const QByteArray &a, const QByteArray &b);

private:
    std::shared_ptr<UCollator> m_collator; // none under the C locale
};

// SQL's LIKE pattern (% any run, _ any one character, an optional escape character before
// either to mean itself), read once and matched against many texts, case ignored for every
// letter.
class LikePattern
{
public:
    LikePattern() = default; // matches only an empty text
    explicit LikePattern(QStringView pattern, QChar escape = QChar());
    bool matches(QStringView text) const;
    bool matchesUtf8(const char *text, qsizetype bytes) const;
    QChar escape() const { return m_escape; }

private:
    enum class Kind { Literal, One, Any };
    struct Element
    {
        Kind kind;
        char32_t folded;
    };
    // Reads the folded character at a place of the text and the units it takes.
    template<typename FoldedAt>
    bool matchesText(qsizetype size, FoldedAt foldedAt) const;

    QList<Element> m_elements;
    QChar m_escape;
    bool m_valid = true; // an escape at the very end matches nothing
};

} // namespace TextCollation
