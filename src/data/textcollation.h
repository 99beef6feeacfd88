#pragma once

#include <QList>
#include <QString>
#include <QStringView>

class QCollator;
class QSqlDatabase;

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
// dictionary order taking the default locale of the moment. False when the handle is not
// SQLite's.
bool registerOn(const QSqlDatabase &database);

// A collator for the default locale, the one the registered order uses. Under the C locale
// the order is SQLite's NOCASE one.
QCollator dictionaryCollator();
// Negative, zero or positive as a sorts before, with or after b: the collator's order, and
// for texts it holds the same the order of their code units, so that no two differing texts
// tie and every sort is stable.
int dictionaryCompare(const QCollator &collator, QStringView a, QStringView b);

// SQL's LIKE pattern (% any run, _ any one character, an optional escape character before
// either to mean itself), read once and matched against many texts, case ignored for every
// letter.
class LikePattern
{
public:
    LikePattern() = default; // matches only an empty text
    explicit LikePattern(QStringView pattern, QChar escape = QChar());
    bool matches(QStringView text) const;
    QChar escape() const { return m_escape; }

private:
    enum class Kind { Literal, One, Any };
    struct Element
    {
        Kind kind;
        char32_t folded;
    };
    QList<Element> m_elements;
    QChar m_escape;
    bool m_valid = true; // an escape at the very end matches nothing
};

} // namespace TextCollation
