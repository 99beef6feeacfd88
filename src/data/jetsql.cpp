#include "data/jetsql.h"

#include "data/jetsqltokens.h"
#include "data/textcollation.h"

#include <QList>
#include <QStringView>

#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

using namespace JetSqlTokens;

// Words that are never an operand or a function's name, so that an operand of & ends
// before them.
bool isKeyword(QStringView word)
{
    static constexpr std::array keywords = {
        "all"_L1,    "and"_L1,    "as"_L1,     "asc"_L1,    "between"_L1, "by"_L1,
        "case"_L1,   "delete"_L1, "desc"_L1,   "distinct"_L1, "distinctrow"_L1,
        "else"_L1,   "end"_L1,    "eqv"_L1,    "escape"_L1, "exists"_L1, "from"_L1,
        "group"_L1,  "having"_L1, "imp"_L1,    "in"_L1,     "inner"_L1,  "insert"_L1,
        "into"_L1,   "is"_L1,     "join"_L1,   "like"_L1,   "mod"_L1,    "not"_L1,
        "on"_L1,     "or"_L1,     "order"_L1,  "outer"_L1,  "select"_L1, "set"_L1,
        "then"_L1,   "top"_L1,    "union"_L1,  "update"_L1, "values"_L1, "when"_L1,
        "where"_L1,  "xor"_L1,
    };
    for (QLatin1StringView keyword : keywords)
        if (word.compare(keyword, Qt::CaseInsensitive) == 0)
            return true;
    return false;
}

// The tokens that matter to the grammar (no blanks), with their matching parentheses.
class Significant
{
public:
    Significant(QStringView text, const QList<Token> &tokens) : m_text(text), m_tokens(tokens)
    {
        for (qsizetype i = 0; i < tokens.size(); ++i)
            if (tokens[i].kind != Kind::Space)
                m_index.append(i);
        matchParentheses();
    }

    qsizetype size() const { return m_index.size(); }
    qsizetype tokenIndex(qsizetype p) const { return m_index[p]; }
    qsizetype match(qsizetype p) const { return m_match[p]; }

    bool isChar(qsizetype p, QChar c) const
    {
        const Token &t = token(p);
        return t.kind == Kind::Punct && m_text[t.begin] == c;
    }
    bool isSign(qsizetype p) const { return isChar(p, u'+') || isChar(p, u'-'); }
    bool isArithmetic(qsizetype p) const { return isSign(p) || isChar(p, u'*') || isChar(p, u'/'); }
    bool isOpen(qsizetype p) const { return isChar(p, u'(') && m_match[p] >= 0; }
    bool isClose(qsizetype p) const { return isChar(p, u')') && m_match[p] >= 0; }

    bool isWord(qsizetype p) const
    {
        const Token &t = token(p);
        return t.kind == Kind::Word && !isKeyword(m_text.mid(t.begin, t.end - t.begin));
    }
    bool isName(qsizetype p) const { return isWord(p) || token(p).kind == Kind::QuotedName; }
    // An unquoted word spelt as given, case ignored; keywords included.
    bool isWordSpelt(qsizetype p, QLatin1StringView word) const
    {
        const Token &t = token(p);
        return t.kind == Kind::Word
            && m_text.mid(t.begin, t.end - t.begin).compare(word, Qt::CaseInsensitive) == 0;
    }
    bool isText(qsizetype p) const
    {
        const Kind kind = token(p).kind;
        return kind == Kind::String || kind == Kind::DqString;
    }
    // A name, a literal or a number: something that is an operand on its own.
    bool isAtom(qsizetype p) const
    {
        const Kind kind = token(p).kind;
        return isName(p) || kind == Kind::String || kind == Kind::DqString
            || kind == Kind::Number || kind == Kind::Date;
    }
    // The "*" of "tbl.*".
    bool isAllColumns(qsizetype p) const { return isChar(p, u'*') && isChar(p - 1, u'.'); }
    bool endsOperand(qsizetype p) const { return isAtom(p) || isClose(p) || isAllColumns(p); }

private:
    // Positions off either end read as a blank, so the walks need no bounds checks.
    const Token &token(qsizetype p) const
    {
        static const Token none{Kind::Space, 0, 0};
        return p >= 0 && p < size() ? m_tokens[m_index[p]] : none;
    }

    void matchParentheses()
    {
        m_match.fill(-1, size());
        QList<qsizetype> open;
        for (qsizetype p = 0; p < size(); ++p) {
            if (isChar(p, u'(')) {
                open.append(p);
            } else if (isChar(p, u')') && !open.isEmpty()) {
                m_match[p] = open.takeLast();
                m_match[m_match[p]] = p;
            }
        }
    }

    QStringView m_text;
    const QList<Token> &m_tokens;
    QList<qsizetype> m_index;
    QList<qsizetype> m_match;
};

// Operand extents of &: Jet binds arithmetic tighter than & and comparisons looser, so an
// operand is an arithmetic expression of names, literals, calls and parenthesised groups.
class OperandFinder
{
public:
    explicit OperandFinder(const Significant &s) : m_s(s) {}

    // Last position of the operand starting at p, or -1 when none starts there.
    qsizetype forward(qsizetype p) const
    {
        qsizetype end = term(p);
        while (end >= 0 && m_s.isArithmetic(end + 1)) {
            const qsizetype next = term(end + 2);
            if (next < 0)
                break;
            end = next;
        }
        return end;
    }

    // First position of the operand ending at p, or -1 when none ends there.
    qsizetype backward(qsizetype p) const
    {
        qsizetype start = primaryBackward(p);
        while (start >= 0) {
            qsizetype q = start - 1;
            for (; m_s.isSign(q) && !m_s.endsOperand(q - 1); --q)
                start = q; // unary signs belong to the operand
            if (!m_s.isArithmetic(q))
                break;
            const qsizetype previous = primaryBackward(q - 1);
            if (previous < 0)
                break;
            start = previous;
        }
        return start;
    }

private:
    qsizetype term(qsizetype p) const
    {
        while (m_s.isSign(p))
            ++p;
        if (m_s.isOpen(p))
            return m_s.match(p);
        if (!m_s.isAtom(p))
            return -1;
        if (m_s.isWord(p) && m_s.isOpen(p + 1))
            return m_s.match(p + 1); // a function call
        qsizetype end = p;
        while (m_s.isChar(end + 1, u'.') && (m_s.isName(end + 2) || m_s.isChar(end + 2, u'*')))
            end += 2;
        return end;
    }

    qsizetype primaryBackward(qsizetype p) const
    {
        if (m_s.isClose(p)) {
            const qsizetype open = m_s.match(p);
            const bool call = m_s.isWord(open - 1) && !m_s.isChar(open - 2, u'.');
            return call ? open - 1 : open;
        }
        if (!m_s.isAtom(p) && !m_s.isAllColumns(p))
            return -1;
        qsizetype start = p;
        while (m_s.isChar(start - 1, u'.') && m_s.isName(start - 2))
            start -= 2;
        return m_s.isAllColumns(start) ? -1 : start;
    }

    const Significant &m_s;
};

// What the output puts before, instead of and after each token.
struct Edits
{
    explicit Edits(qsizetype count) : before(count), after(count), replaced(count), dropped(count) {}

    QList<QString> before;
    QList<QString> after;
    QList<QString> replaced;
    QList<bool> dropped;
};

// Jet's & treats null as an empty string, SQLite's || does not: every operand is wrapped.
// Chains at different depths interleave in the token order, so an open chain is known by
// the position of its last operand.
void rewriteConcatenation(const Significant &s, Edits &edits)
{
    const OperandFinder operands(s);
    QList<bool> chainOpenAt(s.size(), false);
    for (qsizetype amp = 0; amp < s.size(); ++amp) {
        if (!s.isChar(amp, u'&'))
            continue;
        const bool continues = amp > 0 && chainOpenAt[amp - 1];
        const qsizetype start = continues ? amp - 1 : operands.backward(amp - 1);
        const qsizetype end = operands.forward(amp + 1);
        if (start < 0 || end < 0) {
            if (continues)
                edits.after[s.tokenIndex(amp - 1)] += u",'')"_s;
            continue;
        }
        if (!continues)
            edits.before[s.tokenIndex(start)] += u"ifnull("_s;
        for (qsizetype t = s.tokenIndex(amp - 1) + 1; t < s.tokenIndex(amp + 1); ++t)
            edits.dropped[t] = t != s.tokenIndex(amp);
        edits.replaced[s.tokenIndex(amp)] = u",'') || ifnull("_s;
        if (s.isChar(end + 1, u'&'))
            chainOpenAt[end] = true;
        else
            edits.after[s.tokenIndex(end)] += u",'')"_s;
    }
}

QString collateClause(const char *collation)
{
    return u" COLLATE "_s + QLatin1StringView(collation);
}

// What ends the terms of an ORDER BY: the end of the group it is in, of the statement, or a
// clause SQLite allows after it.
bool endsOrderTerms(const Significant &s, qsizetype p)
{
    return s.isChar(p, u')') || s.isChar(p, u';') || s.isWordSpelt(p, "limit"_L1)
        || s.isWordSpelt(p, "offset"_L1) || s.isWordSpelt(p, "union"_L1)
        || s.isWordSpelt(p, "except"_L1) || s.isWordSpelt(p, "intersect"_L1);
}

// A plain column name, qualified or not, needs no parentheses before a COLLATE.
bool isColumnName(const Significant &s, qsizetype first, qsizetype last)
{
    for (qsizetype p = first; p <= last; ++p)
        if (!(s.isName(p) || s.isChar(p, u'.')))
            return false;
    return true;
}

// One ORDER BY term from `first`: gives it the locale's collation unless it names one, and
// answers the position after it.
qsizetype collateOrderTerm(const Significant &s, qsizetype first, Edits &edits)
{
    qsizetype p = first;
    qsizetype last = -1;
    bool named = false;
    while (p < s.size() && !endsOrderTerms(s, p) && !s.isChar(p, u',')) {
        named = named || s.isWordSpelt(p, "collate"_L1);
        if (s.isOpen(p))
            p = s.match(p);
        last = p++;
    }
    if (last >= first && (s.isWordSpelt(last, "asc"_L1) || s.isWordSpelt(last, "desc"_L1)))
        --last;
    if (last < first || named)
        return p;
    QString &after = edits.after[s.tokenIndex(last)];
    if (isColumnName(s, first, last)) {
        after += collateClause(TextCollation::orderName);
    } else {
        QString &before = edits.before[s.tokenIndex(first)];
        before.prepend(u'(');
        after += u')' + collateClause(TextCollation::orderName);
    }
    return p;
}

// Every list is ordered as a dictionary of the locale orders it. Numbers ignore a collation,
// so every term gets one.
void collateOrdering(const Significant &s, Edits &edits)
{
    for (qsizetype p = 0; p + 1 < s.size(); ++p) {
        if (!s.isWordSpelt(p, "order"_L1) || !s.isWordSpelt(p + 1, "by"_L1))
            continue;
        qsizetype next = collateOrderTerm(s, p + 2, edits);
        while (s.isChar(next, u','))
            next = collateOrderTerm(s, next + 1, edits);
    }
}

// A literal that is the whole of one side of a comparison, not part of a longer expression.
// One beside a name or another literal is a text an apostrophe broke: left as written, so
// that SQLite names the same place in its message.
bool isWholeOperand(const Significant &s, qsizetype p)
{
    auto joins = [&](qsizetype q) {
        return s.isArithmetic(q) || s.isChar(q, u'&') || s.isChar(q, u'|') || s.isAtom(q)
            || s.isWordSpelt(q, "collate"_L1);
    };
    return s.isText(p) && !joins(p - 1) && !joins(p + 1);
}

// The comparison operator starting at p: its last position and the collation a text it is
// given takes, or -1 when there is none. "=" and "<>" ignore the case of every letter, as
// NOCASE does for A-Z only; the others follow the lists' order.
std::pair<qsizetype, const char *> comparisonAt(const Significant &s, qsizetype p)
{
    if (s.isChar(p, u'='))
        return {p, TextCollation::foldedName};
    if (s.isChar(p, u'<') && s.isChar(p + 1, u'>'))
        return {p + 1, TextCollation::foldedName};
    if (s.isChar(p, u'<') || s.isChar(p, u'>'))
        return {s.isChar(p + 1, u'=') ? p + 1 : p, TextCollation::orderName};
    return {-1, nullptr};
}

void collateTextComparisons(const Significant &s, Edits &edits)
{
    for (qsizetype p = 0; p < s.size(); ++p) {
        const auto [last, collation] = comparisonAt(s, p);
        if (last < 0)
            continue;
        const qsizetype literal = isWholeOperand(s, last + 1) ? last + 1
            : isWholeOperand(s, p - 1)                        ? p - 1
                                                              : -1;
        if (literal >= 0)
            edits.after[s.tokenIndex(literal)] += collateClause(collation);
        p = last;
    }
}

QString quotedName(QStringView name)
{
    return u'"' + name.toString().replace(u'"', u"\"\""_s) + u'"';
}

// "it's" in Jet is 'it''s' in SQLite.
QString singleQuoted(QStringView literal)
{
    QString text = literal.mid(1, literal.size() - 2).toString();
    text.replace(u"\"\""_s, u"\""_s).replace(u'\'', u"''"_s);
    return u'\'' + text + u'\'';
}

QString translated(QStringView text, const Token &token)
{
    const QStringView written = text.mid(token.begin, token.end - token.begin);
    switch (token.kind) {
    case Kind::QuotedName:
        return quotedName(written.mid(1, written.size() - 2));
    case Kind::DqString:
        return singleQuoted(written);
    default:
        return written.toString();
    }
}

// The statement with the edits made; tokens are translated to SQLite's spelling or kept.
QString applied(QStringView text, const QList<Token> &tokens, const Edits &edits, bool translate)
{
    QString sqlite;
    sqlite.reserve(text.size() + 32);
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        sqlite += edits.before[i];
        if (!edits.dropped[i]) {
            if (!edits.replaced[i].isEmpty())
                sqlite += edits.replaced[i];
            else if (translate)
                sqlite += translated(text, tokens[i]);
            else
                sqlite += text.mid(tokens[i].begin, tokens[i].end - tokens[i].begin);
        }
        sqlite += edits.after[i];
    }
    return sqlite;
}

enum class Collations { Kept, Program };

QString translatedStatement(const QString &jetStatement, Collations collations)
{
    const QList<Token> tokens = tokenise(jetStatement);
    const Significant significant(jetStatement, tokens);
    Edits edits(tokens.size());
    rewriteConcatenation(significant, edits);
    if (collations == Collations::Program) {
        collateOrdering(significant, edits);
        collateTextComparisons(significant, edits);
    }
    return applied(jetStatement, tokens, edits, true);
}

} // namespace

namespace JetSql {

QString toSqlite(const QString &jetStatement)
{
    return translatedStatement(jetStatement, Collations::Kept);
}

QString toCollatedSqlite(const QString &jetStatement)
{
    return translatedStatement(jetStatement, Collations::Program);
}

QString withOrderCollation(const QString &sqliteStatement)
{
    const QList<Token> tokens = tokenise(sqliteStatement);
    const Significant significant(sqliteStatement, tokens);
    Edits edits(tokens.size());
    collateOrdering(significant, edits);
    return applied(sqliteStatement, tokens, edits, false);
}

} // namespace JetSql
