#include "script/script_reader.h"

#include "script/script_lexer.h"

namespace tarvo::script {

namespace {

bool isKeyword(const QString& word)
{
    return word == QLatin1String("not") || word == QLatin1String("and")
        || word == QLatin1String("or") || word == QLatin1String("if")
        || word == QLatin1String("else") || word == QLatin1String("while");
}

QString shown(const Token& token)
{
    switch (token.kind) {
    case Token::Kind::End:
        return QStringLiteral("the end of the text");
    case Token::Kind::Text:
        return u'"' + token.text + u'"';
    default:
        return u'\'' + token.text + u'\'';
    }
}

// Recursive descent over the token list; each rule throws a SyntaxError at
// the first token it cannot take.
class Reader
{
public:
    explicit Reader(QStringView text)
        : m_tokens(tokenize(text))
    {
    }

    bool atEnd() const { return peek().kind == Token::Kind::End; }

    ScriptFile file()
    {
        ScriptFile result;
        while (!atEnd()) {
            const qsizetype start = m_at;
            QString event;
            try {
                topLevel(result, event);
            } catch (SyntaxError& error) {
                error.event = event;
                result.errors.push_back(std::move(error));
                skipToNextTopLevel(start);
            }
        }
        return result;
    }

    std::vector<Expression> triggerList()
    {
        std::vector<Expression> trigger;
        if (peek().kind != Token::Kind::Name || isKeyword(peek().text))
            fail(QStringLiteral("a trigger (a keyword or a timer)"));
        trigger.push_back(expression());
        while (accept(u",")) {
            trigger.push_back(expression());
        }
        return trigger;
    }

    Expression expression() { return orLevel(); }

    std::vector<Statement> statementsToEnd()
    {
        std::vector<Statement> statements;
        while (!atEnd())
            statements.push_back(statement());
        return statements;
    }

    void expectEnd()
    {
        if (!atEnd())
            fail(QStringLiteral("the end of the text"));
    }

private:
    const Token& peek(qsizetype ahead = 0) const
    {
        return m_tokens[size_t(qMin(m_at + ahead, qsizetype(m_tokens.size()) - 1))];
    }

    const Token& take()
    {
        return m_tokens[size_t(m_at < qsizetype(m_tokens.size()) - 1 ? m_at++ : m_at)];
    }

    bool isSymbol(QStringView symbol, qsizetype ahead = 0) const
    {
        const Token& token = peek(ahead);
        return token.kind == Token::Kind::Symbol && token.text == symbol;
    }

    bool isWord(QStringView word) const
    {
        return peek().kind == Token::Kind::Name && peek().text == word;
    }

    bool accept(QStringView symbol)
    {
        if (!isSymbol(symbol))
            return false;
        ++m_at;
        return true;
    }

    [[noreturn]] void fail(const QString& wanted) const
    {
        throw SyntaxError {
            peek().position, QStringLiteral("expected %1 but found %2").arg(wanted, shown(peek()))};
    }

    void expect(QStringView symbol)
    {
        if (!accept(symbol))
            fail(u'\'' + symbol.toString() + u'\'');
    }

    QString name(const QString& what)
    {
        if (peek().kind != Token::Kind::Name || isKeyword(peek().text))
            fail(what);
        return take().text;
    }

    // After an error: on to the next "public", "private", "trigger" or
    // "event" that starts a line, at least one token further.
    void skipToNextTopLevel(qsizetype start)
    {
        m_at = qMax(m_at, start + 1);
        while (!atEnd()) {
            const Token& token = peek();
            if (token.startsLine && token.kind == Token::Kind::Name
                && (token.text == QLatin1String("event") || token.text == QLatin1String("public")
                    || token.text == QLatin1String("private")
                    || token.text == QLatin1String("trigger")))
                return;
            ++m_at;
        }
    }

    void topLevel(ScriptFile& result, QString& event)
    {
        const Token& first = peek();
        if (first.kind == Token::Kind::Name
            && (first.text == QLatin1String("public") || first.text == QLatin1String("private"))) {
            variables(result);
        } else if (first.kind == Token::Kind::Name && first.text == QLatin1String("trigger")) {
            Declaration declaration;
            declaration.kind = Declaration::Kind::Trigger;
            declaration.position = take().position;
            declaration.name = name(QStringLiteral("the name of a trigger"));
            event = declaration.name;
            expect(u"(");
            declaration.trigger = triggerList();
            expect(u")");
            expect(u";");
            result.declarations.push_back(std::move(declaration));
        } else if (first.kind == Token::Kind::Name && first.text == QLatin1String("event")) {
            const TextPosition position = take().position;
            const QString eventName = name(QStringLiteral("the name of an event"));
            event = eventName;
            if (accept(u";")) {
                Declaration declaration;
                declaration.kind = Declaration::Kind::Event;
                declaration.name = eventName;
                declaration.position = position;
                result.declarations.push_back(std::move(declaration));
                return;
            }
            EventBody body;
            body.name = eventName;
            body.position = position;
            expect(u"(");
            if (isSymbol(u")"))
                throw SyntaxError {
                    peek().position, QStringLiteral("the trigger of the event is empty")};
            body.trigger = triggerList();
            expect(u")");
            expect(u"{");
            while (!accept(u"}")) {
                if (atEnd())
                    fail(QStringLiteral("'}'"));
                body.body.push_back(statement());
            }
            result.events.push_back(std::move(body));
        } else {
            fail(QStringLiteral("a declaration or an event"));
        }
    }

    void variables(ScriptFile& result)
    {
        Declaration declaration;
        declaration.kind = Declaration::Kind::Variable;
        declaration.position = peek().position;
        declaration.scope = take().text;
        declaration.type = name(QStringLiteral("the type of the variables"));
        do {
            Declaration one = declaration;
            one.position = peek().position;
            one.name = name(QStringLiteral("the name of a variable"));
            if (accept(u"[")) {
                if (peek().kind != Token::Kind::Number)
                    fail(QStringLiteral("the size of the array"));
                one.size = take().text.toInt();
                expect(u"]");
            }
            result.declarations.push_back(std::move(one));
        } while (accept(u","));
        expect(u";");
    }

    Statement statement()
    {
        Statement statement;
        statement.position = peek().position;
        if (accept(u";"))
            return statement;
        if (accept(u"{")) {
            statement.kind = Statement::Kind::Block;
            while (!accept(u"}")) {
                if (atEnd())
                    fail(QStringLiteral("'}'"));
                statement.body.push_back(this->statement());
            }
            return statement;
        }
        if (isWord(u"if") || isWord(u"while")) {
            const bool isIf = take().text == QLatin1String("if");
            statement.kind = isIf ? Statement::Kind::If : Statement::Kind::While;
            expect(u"(");
            statement.value = expression();
            expect(u")");
            statement.body.push_back(this->statement());
            if (isIf && isWord(u"else")) {
                ++m_at;
                statement.elseBody.push_back(this->statement());
            }
            return statement;
        }
        Expression value = expression();
        if (accept(u"=")) {
            if (value.kind != Expression::Kind::Name && value.kind != Expression::Kind::Index
                && value.kind != Expression::Kind::Member)
                throw SyntaxError {
                    value.position, QStringLiteral("only a variable can be given a value")};
            statement.kind = Statement::Kind::Assign;
            statement.target = std::move(value);
            statement.value = expression();
        } else {
            statement.kind = Statement::Kind::Evaluate;
            statement.value = std::move(value);
        }
        expect(u";");
        return statement;
    }

    Expression binary(Expression left, const Token& op, Expression right)
    {
        Expression result;
        result.kind = Expression::Kind::Binary;
        result.text = op.text;
        result.position = left.position;
        result.operands.push_back(std::move(left));
        result.operands.push_back(std::move(right));
        return result;
    }

    Expression orLevel()
    {
        Expression left = andLevel();
        while (isWord(u"or") || isSymbol(u"||")) {
            const Token op = take();
            left = binary(std::move(left), op, andLevel());
        }
        return left;
    }

    Expression andLevel()
    {
        Expression left = comparison();
        while (isWord(u"and") || isSymbol(u"&&")) {
            const Token op = take();
            left = binary(std::move(left), op, comparison());
        }
        return left;
    }

    Expression comparison()
    {
        Expression left = additive();
        while (isSymbol(u"==") || isSymbol(u"!=") || isSymbol(u"<") || isSymbol(u">")
            || isSymbol(u"<=") || isSymbol(u">=")) {
            const Token op = take();
            left = binary(std::move(left), op, additive());
        }
        return left;
    }

    Expression additive()
    {
        Expression left = multiplicative();
        while (isSymbol(u"+") || isSymbol(u"-")) {
            const Token op = take();
            left = binary(std::move(left), op, multiplicative());
        }
        return left;
    }

    Expression multiplicative()
    {
        Expression left = unary();
        while (isSymbol(u"*") || isSymbol(u"/") || isSymbol(u"%")) {
            const Token op = take();
            left = binary(std::move(left), op, unary());
        }
        return left;
    }

    Expression unary()
    {
        if (isWord(u"not") || isSymbol(u"!") || isSymbol(u"-")) {
            Expression result;
            result.kind = Expression::Kind::Unary;
            result.position = peek().position;
            result.text
                = take().text == QLatin1String("-") ? QStringLiteral("-") : QStringLiteral("not");
            result.operands.push_back(unary());
            return result;
        }
        return postfix();
    }

    Expression postfix()
    {
        Expression value = primary();
        for (;;) {
            if (accept(u"[")) {
                Expression indexed;
                indexed.kind = Expression::Kind::Index;
                indexed.position = value.position;
                indexed.operands.push_back(std::move(value));
                indexed.operands.push_back(expression());
                expect(u"]");
                value = std::move(indexed);
            } else if (accept(u".")) {
                Expression member;
                member.kind = Expression::Kind::Member;
                member.position = value.position;
                member.text = name(QStringLiteral("the name of a member"));
                member.operands.push_back(std::move(value));
                value = std::move(member);
            } else {
                return value;
            }
        }
    }

    Expression primary()
    {
        const Token& token = peek();
        Expression value;
        value.position = token.position;
        switch (token.kind) {
        case Token::Kind::Number:
            value.kind = Expression::Kind::Number;
            value.text = take().text;
            return value;
        case Token::Kind::Text:
            value.kind = Expression::Kind::Text;
            value.text = take().text;
            return value;
        case Token::Kind::Name:
            if (isKeyword(token.text))
                break;
            value.text = take().text;
            if (value.text.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0
                || value.text.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0) {
                value.kind = Expression::Kind::Truth;
                return value;
            }
            value.kind = Expression::Kind::Name;
            if (accept(u"(")) {
                value.kind = Expression::Kind::Call;
                if (!accept(u")")) {
                    do {
                        value.operands.push_back(expression());
                    } while (accept(u","));
                    expect(u")");
                }
            }
            return value;
        case Token::Kind::Symbol:
            if (token.text == QLatin1String("(")) {
                ++m_at;
                value = expression();
                expect(u")");
                return value;
            }
            break;
        case Token::Kind::End:
            break;
        }
        fail(QStringLiteral("a value"));
    }

    std::vector<Token> m_tokens;
    qsizetype m_at = 0;
};

} // namespace

ScriptFile readScript(QStringView text)
{
    return Reader(text).file();
}

std::vector<Expression> readTrigger(QStringView text)
{
    Reader reader(text);
    if (reader.atEnd())
        throw SyntaxError {{1, 1}, QStringLiteral("the trigger is empty")};
    std::vector<Expression> trigger = reader.triggerList();
    reader.expectEnd();
    return trigger;
}

Expression readCondition(QStringView text)
{
    Reader reader(text);
    Expression condition = reader.expression();
    reader.expectEnd();
    return condition;
}

std::vector<Statement> readActions(QStringView text)
{
    return Reader(text).statementsToEnd();
}

} // namespace tarvo::script
