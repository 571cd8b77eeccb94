#include "script/script_lexer.h"

#include <cstring>

namespace tarvo::script {

namespace {

bool nameStart(QChar c)
{
    return c.isLetter() || c == u'_';
}

bool namePart(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

// Two-character operators first, so that "<=" is not read as "<" and "=".
bool twoCharSymbol(QChar a, QChar b)
{
    const char pair[3]
        = {char(a.unicode() < 128 ? a.unicode() : 0), char(b.unicode() < 128 ? b.unicode() : 0), 0};
    static const char* const symbols[] = {"==", "!=", "<=", ">=", "&&", "||"};
    for (const char* symbol : symbols)
        if (qstrcmp(pair, symbol) == 0)
            return true;
    return false;
}

bool oneCharSymbol(QChar c)
{
    return c.unicode() < 128 && std::strchr("(){}[],;=<>+-*/%.!", char(c.unicode())) != nullptr;
}

} // namespace

std::vector<Token> tokenize(QStringView text)
{
    std::vector<Token> tokens;
    tokens.reserve(size_t(text.size() / 4));
    int line = 1;
    qsizetype lineStart = 0;
    bool atLineStart = true;
    qsizetype i = 0;
    const qsizetype n = text.size();
    const auto here = [&](qsizetype at) { return TextPosition {line, int(at - lineStart) + 1}; };
    const auto newLine = [&](qsizetype at) {
        ++line;
        lineStart = at + 1;
        atLineStart = true;
    };
    while (i < n) {
        const QChar c = text[i];
        if (c == u'\n') {
            newLine(i);
            ++i;
            continue;
        }
        if (c.isSpace()) {
            ++i;
            continue;
        }
        if (c == u'/' && i + 1 < n && text[i + 1] == u'/') {
            while (i < n && text[i] != u'\n')
                ++i;
            continue;
        }
        if (c == u'/' && i + 1 < n && text[i + 1] == u'*') {
            const TextPosition start = here(i);
            i += 2;
            while (i + 1 < n && !(text[i] == u'*' && text[i + 1] == u'/')) {
                if (text[i] == u'\n')
                    newLine(i);
                ++i;
            }
            // An open comment runs to the end, as the game's reader takes it.
            i = qMin(i + 2, n);
            Q_UNUSED(start);
            continue;
        }
        Token token;
        token.position = here(i);
        token.startsLine = atLineStart;
        atLineStart = false;
        const qsizetype start = i;
        if (nameStart(c)) {
            while (i < n && namePart(text[i]))
                ++i;
            token.kind = Token::Kind::Name;
        } else if (c.isDigit()) {
            while (i < n && (text[i].isDigit() || text[i] == u'.'))
                ++i;
            token.kind = Token::Kind::Number;
        } else if (c == u'"') {
            ++i;
            while (i < n && text[i] != u'"' && text[i] != u'\n')
                ++i;
            if (i >= n || text[i] != u'"') {
                // A lone quote: the reader stops at it with its place.
                i = start + 1;
                token.kind = Token::Kind::Symbol;
                token.text = QStringLiteral("\"");
                tokens.push_back(std::move(token));
                continue;
            }
            ++i;
            token.kind = Token::Kind::Text;
            token.text = text.mid(start + 1, i - start - 2).toString();
            tokens.push_back(std::move(token));
            continue;
        } else if (i + 1 < n && twoCharSymbol(c, text[i + 1])) {
            i += 2;
            token.kind = Token::Kind::Symbol;
        } else if (oneCharSymbol(c)) {
            ++i;
            token.kind = Token::Kind::Symbol;
        } else {
            // Not script: a symbol of its own, which no rule of the reader accepts.
            ++i;
            token.kind = Token::Kind::Symbol;
        }
        token.text = text.mid(start, i - start).toString();
        tokens.push_back(std::move(token));
    }
    Token end;
    end.position = here(n);
    end.startsLine = true;
    tokens.push_back(end);
    return tokens;
}

} // namespace tarvo::script
