#include "data/jetsqltokens.h"

namespace JetSqlTokens {
namespace {

bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// End of a literal opened at `begin` by `quote`, where a doubled quote stands for one;
// -1 when it is never closed.
qsizetype quotedEnd(QStringView text, qsizetype begin, QChar quote)
{
    for (qsizetype i = begin + 1; i < text.size(); ++i) {
        if (text[i] != quote)
            continue;
        if (i + 1 < text.size() && text[i + 1] == quote)
            ++i;
        else
            return i + 1;
    }
    return -1;
}

// End of a name or date opened at `begin` and closed by `close`; -1 when never closed.
qsizetype delimitedEnd(QStringView text, qsizetype begin, QChar close)
{
    const qsizetype found = text.indexOf(close, begin + 1);
    return found < 0 ? -1 : found + 1;
}

// A date literal holds only digits, separators, letters and blanks; anything else means
// the '#' is not the start of one.
qsizetype dateEnd(QStringView text, qsizetype begin)
{
    for (qsizetype i = begin + 1; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'#')
            return i > begin + 1 ? i + 1 : -1;
        if (!(isWordChar(c) || c == u'/' || c == u'-' || c == u':' || c == u' ' || c == u'.'))
            return -1;
    }
    return -1;
}

qsizetype digitsEnd(QStringView text, qsizetype i)
{
    while (i < text.size() && isDigit(text[i]))
        ++i;
    return i;
}

// 12, 1.05, .5, 2e-3
qsizetype numberEnd(QStringView text, qsizetype i)
{
    i = digitsEnd(text, i);
    if (i + 1 < text.size() && text[i] == u'.' && isDigit(text[i + 1]))
        i = digitsEnd(text, i + 1);
    if (i < text.size() && (text[i] == u'e' || text[i] == u'E')) {
        qsizetype j = i + 1;
        if (j < text.size() && (text[j] == u'+' || text[j] == u'-'))
            ++j;
        if (j < text.size() && isDigit(text[j]))
            i = digitsEnd(text, j);
    }
    return i;
}

// The kind and end of the token starting at `i`.
Token tokenAt(QStringView text, qsizetype i)
{
    const QChar c = text[i];
    auto closedOrRest = [&](Kind kind, qsizetype end) {
        return end < 0 ? Token{Kind::Unclosed, i, text.size()} : Token{kind, i, end};
    };
    if (c.isSpace()) {
        qsizetype end = i + 1;
        while (end < text.size() && text[end].isSpace())
            ++end;
        return {Kind::Space, i, end};
    }
    if (c == u'\'')
        return closedOrRest(Kind::String, quotedEnd(text, i, c));
    if (c == u'"')
        return closedOrRest(Kind::DqString, quotedEnd(text, i, c));
    if (c == u'[')
        return closedOrRest(Kind::QuotedName, delimitedEnd(text, i, u']'));
    if (c == u'`')
        return closedOrRest(Kind::QuotedName, delimitedEnd(text, i, u'`'));
    if (c == u'#') {
        const qsizetype end = dateEnd(text, i);
        return end < 0 ? Token{Kind::Punct, i, i + 1} : Token{Kind::Date, i, end};
    }
    if (isDigit(c) || (c == u'.' && i + 1 < text.size() && isDigit(text[i + 1])))
        return {Kind::Number, i, numberEnd(text, i)};
    if (isWordChar(c)) {
        qsizetype end = i + 1;
        while (end < text.size() && isWordChar(text[end]))
            ++end;
        return {Kind::Word, i, end};
    }
    return {Kind::Punct, i, i + 1};
}

} // namespace

QList<Token> tokenise(QStringView text)
{
    QList<Token> tokens;
    for (qsizetype i = 0; i < text.size(); i = tokens.constLast().end)
        tokens.append(tokenAt(text, i));
    return tokens;
}

} // namespace JetSqlTokens
