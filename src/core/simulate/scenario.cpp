#include "simulate/scenario.h"

#include "script/script_names.h"
#include "script/script_reader.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace tarvo::simulate {

namespace {

const QString kExpected
    = QStringLiteral("expected \"until T\", \"at T fire KEYWORD\", \"at T answer NAME = VALUE\" or "
                     "\"at T answer NAME(ARG, ...) = VALUE\" (T in tenths of a second)");

bool readTime(const QString& word, int& time)
{
    bool ok = false;
    const qlonglong value = word.toLongLong(&ok);
    if (!ok || value < 0 || value > std::numeric_limits<int>::max() || word.startsWith(u'+'))
        return false;
    time = int(value);
    return true;
}

// An expression as the script would write it; false when it does not read.
bool readExpression(const QString& text, script::Expression& expression)
{
    try {
        expression = script::readCondition(text);
        return true;
    } catch (const script::SyntaxError&) {
        return false;
    }
}

// A constant as the script writes it: 5, -5, TRUE, "text", NULLOBJECT.
bool readConstant(const QString& text, ScriptValue& value)
{
    script::Expression expression;
    if (!readExpression(text, expression))
        return false;
    using Kind = script::Expression::Kind;
    bool negative = false;
    if (expression.kind == Kind::Unary && expression.text == QLatin1String("-")
        && expression.operands.size() == 1 && expression.operands.front().kind == Kind::Number) {
        negative = true;
        expression = expression.operands.front();
    }
    switch (expression.kind) {
    case Kind::Number: {
        bool ok = false;
        const qlonglong number = expression.text.toLongLong(&ok);
        if (!ok)
            return false;
        value = ScriptValue::ofNumber(wrapInteger(negative ? -number : number));
        return true;
    }
    case Kind::Truth:
        value = ScriptValue::ofTruth(expression.text.compare(u"TRUE", Qt::CaseInsensitive) == 0);
        return true;
    case Kind::Text:
        value = ScriptValue::ofText(expression.text);
        return true;
    case Kind::Name:
        value = ScriptValue::ofName(expression.text);
        return true;
    default:
        return false;
    }
}

// "countStructures(REF_ANY,0)" -> name and "REF_ANY, 0"; "getPower" -> name.
bool readAnswerTarget(const QString& text, Scenario::Answer& answer)
{
    script::Expression expression;
    if (!readExpression(text, expression))
        return false;
    using Kind = script::Expression::Kind;
    if (expression.kind == Kind::Name) {
        answer.name = expression.text;
        return true;
    }
    if (expression.kind == Kind::Member) {
        answer.name = script::expressionText(expression);
        return true;
    }
    if (expression.kind != Kind::Call)
        return false;
    answer.name = expression.text;
    answer.anyArguments = false;
    QStringList arguments;
    for (const script::Expression& argument : expression.operands)
        arguments << script::expressionText(argument);
    answer.arguments = arguments.join(QStringLiteral(", "));
    return true;
}

QString withoutComment(const QString& line)
{
    // A "#" inside a quoted answer is text, not a comment.
    bool quoted = false;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line.at(i) == u'"')
            quoted = !quoted;
        else if (line.at(i) == u'#' && !quoted)
            return line.left(i);
    }
    return line;
}

} // namespace

Scenario readScenario(const QString& text, const QString& file, QList<FileError>& errors)
{
    Scenario scenario;
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList lines = text.split(u'\n');
    for (int n = 0; n < lines.size(); ++n) {
        const int lineNumber = n + 1;
        const QString line = withoutComment(lines.at(n)).trimmed();
        if (line.isEmpty())
            continue;
        const auto refuse
            = [&](const QString& why) { errors.append(FileError(file, lineNumber, why)); };
        const QStringList words = line.split(blanks);
        if (words.first() == QLatin1String("until")) {
            if (words.size() != 2 || !readTime(words.at(1), scenario.until))
                refuse(QStringLiteral("expected \"until T\" with T a whole number of tenths"));
            continue;
        }
        int time = 0;
        if (words.size() < 4 || words.first() != QLatin1String("at")
            || !readTime(words.at(1), time)) {
            refuse(kExpected);
            continue;
        }
        if (words.at(2) == QLatin1String("fire")) {
            static const QRegularExpression keyword(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
            if (words.size() != 4 || !keyword.match(words.at(3)).hasMatch())
                refuse(QStringLiteral("expected \"at T fire KEYWORD\" with one callback keyword"));
            else
                scenario.firings.append({time, words.at(3), lineNumber});
            continue;
        }
        if (words.at(2) != QLatin1String("answer")) {
            refuse(kExpected);
            continue;
        }
        // Everything after "answer": NAME or NAME(ARGS), "=", the value.
        const qsizetype answerAt = line.indexOf(QLatin1String("answer")) + 6;
        const QString rest = line.mid(answerAt);
        qsizetype equals = -1;
        int depth = 0;
        bool quoted = false;
        for (qsizetype i = 0; i < rest.size() && equals < 0; ++i) {
            const QChar c = rest.at(i);
            if (c == u'"')
                quoted = !quoted;
            else if (!quoted && c == u'(')
                ++depth;
            else if (!quoted && c == u')')
                --depth;
            else if (!quoted && depth == 0 && c == u'=')
                equals = i;
        }
        Scenario::Answer answer;
        answer.time = time;
        answer.line = lineNumber;
        if (equals < 0 || !readAnswerTarget(rest.left(equals).trimmed(), answer)) {
            refuse(QStringLiteral("expected \"at T answer NAME = VALUE\" or \"at T answer "
                                  "NAME(ARG, ...) = VALUE\""));
            continue;
        }
        if (!readConstant(rest.mid(equals + 1).trimmed(), answer.value)) {
            refuse(QStringLiteral("expected a value after \"=\": a number, TRUE, FALSE, "
                                  "a \"text\" or a name"));
            continue;
        }
        scenario.answers.append(answer);
    }
    return scenario;
}

Scenario loadScenario(const QString& path, QList<FileError>& errors)
{
    return readScenario(scenarioFileText(path), path, errors);
}

QString scenarioFileText(const QString& path)
{
    // Scenarios are small text files; a device or a huge file is a mistake.
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        throw FileError(path, 0, QStringLiteral("is not a file"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, 0, file.errorString());
    if (file.size() > 16 * 1024 * 1024)
        throw FileError(path, 0, QStringLiteral("the file is too large for a scenario"));
    QString text = QString::fromUtf8(file.read(16 * 1024 * 1024));
    text.remove(u'\r');
    return text;
}

} // namespace tarvo::simulate
