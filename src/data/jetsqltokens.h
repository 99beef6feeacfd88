#pragma once

#include <QList>
#include <QStringView>

// The tokens of a Jet statement as the translator reads them: names, literals, numbers,
// dates and punctuation, each with its place in the text.
namespace JetSqlTokens {

enum class Kind {
    Space,
    Word,       // an unquoted name or keyword
    QuotedName, // [name] or `name`
    String,     // 'text'
    DqString,   // "text", a string literal in Jet
    Number,
    Date,       // #1/2/2003#
    Unclosed,   // a quote or bracket never closed: the rest of the text, kept as written
    Punct,      // any other single character
};

struct Token
{
    Kind kind;
    qsizetype begin;
    qsizetype end;
};

// The statement cut into tokens that cover it whole, blanks included.
QList<Token> tokenise(QStringView text);

} // namespace JetSqlTokens
