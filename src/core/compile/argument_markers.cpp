#include "compile/argument_markers.h"

#include <QVarLengthArray>
#include <algorithm>
#include <cstring>

namespace tarvo::WriteScript {

namespace {

bool isMarkerAt(const QChar* text, qsizetype size, qsizetype i, qsizetype count)
{
    return i + 2 < size && text[i] == u'&' && text[i + 1] == u'&' && text[i + 2] >= u'0'
        && text[i + 2].unicode() < u'0' + count;
}

} // namespace

QString withArgumentsStepByStep(QString line, const QStringList& arguments)
{
    for (qsizetype a = 0; a < arguments.size(); ++a)
        line.replace(QStringLiteral("&&") + QString::number(a), arguments.at(a));
    return line;
}

QString withArguments(const QString& line, const QStringList& arguments)
{
    return withArguments({}, line, arguments);
}

QString withArguments(QStringView prefix, const QString& line, const QStringList& arguments)
{
    return withArguments(prefix, line, arguments.constData(), arguments.size());
}

QString withArguments(
    QStringView prefix, const QString& line, const QString* arguments, qsizetype count)
{
    // One pass gives the same text when no replacement can make a marker:
    // no argument holds "&" (so none brings a marker or half of one) and no
    // marker follows an "&" (which an argument starting with a digit would
    // turn into a marker). Markers of different arguments cannot overlap, so
    // the order of replacing them does not matter otherwise. Beyond ten
    // arguments "&&1" and "&&10" meet: the step-by-step way decides.
    bool oneByOne = count > 10;
    // Arguments are a few characters: a plain loop beats the library search.
    for (qsizetype a = 0; a < count; ++a) {
        for (const QChar c : arguments[a])
            oneByOne = oneByOne || c == u'&';
    }
    const QChar* in = line.constData();
    const qsizetype size = line.size();
    qsizetype resultSize = size;
    // The markers found, so that the copy does not look for them again.
    QVarLengthArray<qsizetype, 8> found;
    for (qsizetype i = 0; !oneByOne && i < size;) {
        if (!isMarkerAt(in, size, i, count)) {
            ++i;
            continue;
        }
        if (i > 0 && in[i - 1] == u'&')
            oneByOne = true;
        resultSize += arguments[in[i + 2].unicode() - u'0'].size() - 3;
        found.push_back(i);
        i += 3;
    }
    if (oneByOne) {
        const QString replaced
            = withArgumentsStepByStep(line, QStringList(arguments, arguments + count));
        return prefix.isEmpty() ? replaced : prefix.toString() + replaced;
    }
    if (found.isEmpty() && prefix.isEmpty())
        return line;

    QString result(prefix.size() + resultSize, Qt::Uninitialized);
    QChar* out = result.data();
    std::copy_n(prefix.data(), prefix.size(), out);
    out += prefix.size();
    qsizetype copied = 0;
    for (const qsizetype i : found) {
        std::copy_n(in + copied, i - copied, out);
        out += i - copied;
        const QString& argument = arguments[in[i + 2].unicode() - u'0'];
        std::copy_n(argument.constData(), argument.size(), out);
        out += argument.size();
        copied = i + 3;
    }
    std::copy_n(in + copied, size - copied, out);
    return result;
}

} // namespace tarvo::WriteScript
