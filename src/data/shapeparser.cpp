#include "data/shapeparser.h"

#include "data/providererror.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

struct Token
{
    enum class Kind { Word, BackQuoted, Quoted, Select, Open, Close, Comma, End };

    Kind kind;
    QString text; // the word, the name or column between quotes, the select between braces
    qsizetype position;
    qsizetype length;
};

// Never names: an alias spelt like one must be back-quoted.
const QStringList keywords{u"SHAPE"_s, u"AS"_s, u"APPEND"_s, u"RELATE"_s, u"TO"_s, u"COMPUTE"_s, u"BY"_s};

[[noreturn]] void fail(qsizetype position, const QString &what)
{
    throw ProviderError::general(
        ProviderErrorNumber::Syntax,
        u"Syntax error in shape command at character %1: %2."_s.arg(QString::number(position + 1),
                                                                     what));
}

bool isWordCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

// Finds the brace that closes the one at `open`, passing over braces inside the select's
// own literals and quoted names.
qsizetype closingBrace(const QString &text, qsizetype open)
{
    int depth = 0;
    QChar closingQuote;
    for (qsizetype i = open; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!closingQuote.isNull()) {
            if (c == closingQuote)
                closingQuote = QChar();
        } else if (c == u'\'' || c == u'"' || c == u'`') {
            closingQuote = c;
        } else if (c == u'[') {
            closingQuote = u']';
        } else if (c == u'{') {
            ++depth;
        } else if (c == u'}' && --depth == 0) {
            return i;
        }
    }
    return -1;
}

Token readSelect(const QString &text, qsizetype open)
{
    const qsizetype close = closingBrace(text, open);
    if (close < 0)
        fail(open, u"'{' has no matching '}'"_s);
    const QString select = text.mid(open + 1, close - open - 1).trimmed();
    if (select.isEmpty())
        fail(open, u"there is no command between '{' and '}'"_s);
    return {Token::Kind::Select, select, open, close - open + 1};
}

// A column name between apostrophes or a name between back-quotes.
Token readDelimited(const QString &text, qsizetype open, Token::Kind kind, const QString &what)
{
    const qsizetype close = text.indexOf(text.at(open), open + 1);
    if (close < 0)
        fail(open, u"the %1 is not closed"_s.arg(what));
    const QString content = text.mid(open + 1, close - open - 1);
    if (content.trimmed().isEmpty())
        fail(open, u"the %1 is empty"_s.arg(what));
    return {kind, content, open, close - open + 1};
}

Token readWord(const QString &text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && isWordCharacter(text.at(end)))
        ++end;
    return {Token::Kind::Word, text.mid(start, end - start), start, end - start};
}

Token readToken(const QString &text, qsizetype start)
{
    const QChar c = text.at(start);
    switch (c.unicode()) {
    case u'(':
        return {Token::Kind::Open, {}, start, 1};
    case u')':
        return {Token::Kind::Close, {}, start, 1};
    case u',':
        return {Token::Kind::Comma, {}, start, 1};
    case u'{':
        return readSelect(text, start);
    case u'\'':
        return readDelimited(text, start, Token::Kind::Quoted, u"column name in apostrophes"_s);
    case u'`':
        return readDelimited(text, start, Token::Kind::BackQuoted, u"name in back-quotes"_s);
    default:
        if (isWordCharacter(c))
            return readWord(text, start);
        fail(start, u"unexpected character '%1'"_s.arg(c));
    }
}

QList<Token> tokenize(const QString &text)
{
    QList<Token> tokens;
    qsizetype i = 0;
    for (;;) {
        while (i < text.size() && text.at(i).isSpace())
            ++i;
        if (i == text.size())
            break;
        tokens.append(readToken(text, i));
        i += tokens.last().length;
    }
    tokens.append({Token::Kind::End, {}, text.size(), 0});
    return tokens;
}

class Parser
{
public:
    explicit Parser(const QString &text)
        : m_text(text)
        , m_tokens(tokenize(text))
    {
    }

    ShapeTree command();

private:
    ShapeNode shape();
    ShapeSource source();
    void append(ShapeNode &node);
    void compute(ShapeNode &node);
    ShapeChild child();

    const Token &peek(int ahead = 0) const;
    const Token &take();
    bool takeIf(Token::Kind kind);
    bool atKeyword(QStringView keyword, int ahead = 0) const;
    bool atName(int ahead = 0) const;
    void expectKeyword(QStringView keyword);
    void expect(Token::Kind kind, const QString &what);
    QString name();
    QString column();
    [[noreturn]] void unexpected(const QString &expected) const;

    const QString &m_text;
    const QList<Token> m_tokens;
    qsizetype m_next = 0;
    int m_depth = 0;
};

ShapeTree Parser::command()
{
    ShapeTree tree;
    if (atName() && atKeyword(u"SHAPE", 1))
        tree.commandName = take().text;
    tree.root = shape();
    if (peek().kind != Token::Kind::End)
        unexpected(u"the end of the text"_s);
    return tree;
}

ShapeNode Parser::shape()
{
    const qsizetype position = peek().position;
    expectKeyword(u"SHAPE");
    if (++m_depth > ShapeParser::MaxDepth)
        fail(position, u"shapes are nested more than %1 deep"_s.arg(ShapeParser::MaxDepth));
    ShapeNode node;
    node.source = source();
    if (node.source.nested && atKeyword(u"COMPUTE"))
        compute(node);
    else
        append(node);
    --m_depth;
    return node;
}

ShapeSource Parser::source()
{
    ShapeSource source;
    if (peek().kind == Token::Kind::Select) {
        source.selectText = take().text;
    } else if (takeIf(Token::Kind::Open)) {
        source.nested = std::make_unique<ShapeNode>(shape());
        expect(Token::Kind::Close, u"')'"_s);
    } else {
        unexpected(u"'{' or '('"_s);
    }
    return source;
}

void Parser::append(ShapeNode &node)
{
    node.kind = ShapeNode::Kind::Append;
    expectKeyword(u"AS");
    node.alias = name();
    if (!atKeyword(u"APPEND"))
        return;
    take();
    do
        node.children.push_back(child());
    while (takeIf(Token::Kind::Comma));
}

void Parser::compute(ShapeNode &node)
{
    take();
    node.kind = ShapeNode::Kind::Compute;
    node.alias = name();
    expectKeyword(u"BY");
    do
        node.byColumns.append(column());
    while (takeIf(Token::Kind::Comma));
}

ShapeChild Parser::child()
{
    ShapeChild child;
    expect(Token::Kind::Open, u"'('"_s);
    child.source = source();
    expectKeyword(u"AS");
    child.alias = name();
    expectKeyword(u"RELATE");
    child.relateColumn = column();
    expectKeyword(u"TO");
    child.toColumn = column();
    expect(Token::Kind::Close, u"')'"_s);
    expectKeyword(u"AS");
    child.chapterName = name();
    return child;
}

const Token &Parser::peek(int ahead) const
{
    return m_tokens.at(qMin(m_next + ahead, m_tokens.size() - 1));
}

const Token &Parser::take()
{
    const Token &token = peek();
    if (token.kind != Token::Kind::End)
        ++m_next;
    return token;
}

bool Parser::takeIf(Token::Kind kind)
{
    if (peek().kind != kind)
        return false;
    take();
    return true;
}

bool Parser::atKeyword(QStringView keyword, int ahead) const
{
    const Token &token = peek(ahead);
    return token.kind == Token::Kind::Word && token.text.compare(keyword, Qt::CaseInsensitive) == 0;
}

bool Parser::atName(int ahead) const
{
    const Token &token = peek(ahead);
    if (token.kind == Token::Kind::BackQuoted)
        return true;
    return token.kind == Token::Kind::Word && !keywords.contains(token.text, Qt::CaseInsensitive);
}

void Parser::expectKeyword(QStringView keyword)
{
    if (!atKeyword(keyword))
        unexpected(u"'"_s + keyword.toString() + u"'"_s);
    take();
}

void Parser::expect(Token::Kind kind, const QString &what)
{
    if (!takeIf(kind))
        unexpected(what);
}

QString Parser::name()
{
    if (!atName())
        unexpected(u"a name"_s);
    return take().text;
}

QString Parser::column()
{
    if (peek().kind != Token::Kind::Quoted)
        unexpected(u"a column name in apostrophes"_s);
    return take().text;
}

void Parser::unexpected(const QString &expected) const
{
    constexpr qsizetype shown = 20;
    const Token &token = peek();
    QString found = u"the end of the text"_s;
    if (token.kind != Token::Kind::End) {
        found = u"'"_s + m_text.mid(token.position, qMin(token.length, shown))
            + (token.length > shown ? u"...'"_s : u"'"_s);
    }
    fail(token.position, u"expected %1, found %2"_s.arg(expected, found));
}

} // namespace

namespace ShapeParser {

ShapeTree parse(const QString &text)
{
    return Parser(text).command();
}

} // namespace ShapeParser
