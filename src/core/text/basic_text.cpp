#include "text/basic_text.h"

#include "base/file_error.h"
#include "text/shown_text.h"

#include <QRegularExpression>
#include <cfenv>
#include <cmath>

namespace tarvo::text {

QString basicReplace(const QString& text, const QString& find, const QString& with)
{
    // Most texts do not hold the search: they are shared, not copied.
    if (find.isEmpty() || !text.contains(find))
        return text;
    QString result = text;
    result.replace(find, with, Qt::CaseSensitive);
    return result;
}

QString basicTrim(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = text.size();
    while (begin < end && text.at(begin) == u' ')
        ++begin;
    while (end > begin && text.at(end - 1) == u' ')
        --end;
    return text.mid(begin, end - begin);
}

QStringList basicSplit(const QString& text, QChar separator)
{
    return text.split(separator, Qt::KeepEmptyParts);
}

QString removeCharacters(QString text, const QString& characters)
{
    for (QChar c : characters)
        text.remove(c);
    return text;
}

namespace {

qint16 roundToInt16(double value, const QString& original)
{
    if (std::isnan(value))
        throw DataError(QStringLiteral("\"%1\" is not a number").arg(shownText(original, 60)));
    // Banker's rounding, as the classic runtime's integer conversion does.
    const double rounded = std::nearbyint(value);
    if (rounded < -32768.0 || rounded > 32767.0)
        throw DataError(QStringLiteral("%1 does not fit in a 16-bit number (-32768 to 32767)")
                            .arg(shownText(original, 60)));
    return static_cast<qint16>(rounded);
}

} // namespace

double val(const QString& text)
{
    qsizetype i = 0;
    const qsizetype n = text.size();
    while (i < n && (text.at(i) == u' ' || text.at(i) == u'\t'))
        ++i;
    const qsizetype start = i;
    if (i < n && (text.at(i) == u'+' || text.at(i) == u'-'))
        ++i;
    const qsizetype digitsStart = i;
    while (i < n && text.at(i).isDigit() && text.at(i).unicode() < 128)
        ++i;
    bool anyDigit = i > digitsStart;
    if (i < n && text.at(i) == u'.') {
        const qsizetype fractionStart = ++i;
        while (i < n && text.at(i).isDigit() && text.at(i).unicode() < 128)
            ++i;
        anyDigit = anyDigit || i > fractionStart;
    }
    if (!anyDigit)
        return 0.0;
    bool ok = false;
    const double value = text.mid(start, i - start).toDouble(&ok);
    // The digits were checked above, so only a number too large for a double
    // fails here: it is an overflow, not zero.
    if (!ok)
        return text.at(start) == u'-' ? -HUGE_VAL : HUGE_VAL;
    return value;
}

qint16 valInt16(const QString& text)
{
    return roundToInt16(val(text), QStringLiteral("the number in \"%1\"").arg(text));
}

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// Checks the whole text against the number form toInt16 accepts: blanks,
// a sign, digits with an optional decimal part (or a decimal part alone), an
// optional exponent, blanks. Gives the number's span without the blanks.
bool numberSpan(const QString& text, qsizetype& begin, qsizetype& end)
{
    const qsizetype n = text.size();
    qsizetype i = 0;
    while (i < n && text.at(i) == u' ')
        ++i;
    begin = i;
    if (i < n && (text.at(i) == u'+' || text.at(i) == u'-'))
        ++i;
    const qsizetype integerStart = i;
    while (i < n && isDigit(text.at(i)))
        ++i;
    const bool integerDigits = i > integerStart;
    if (i < n && text.at(i) == u'.') {
        ++i;
        const qsizetype fractionStart = i;
        while (i < n && isDigit(text.at(i)))
            ++i;
        if (!integerDigits && i == fractionStart)
            return false;
    } else if (!integerDigits) {
        return false;
    }
    if (i < n && (text.at(i) == u'e' || text.at(i) == u'E')) {
        ++i;
        if (i < n && (text.at(i) == u'+' || text.at(i) == u'-'))
            ++i;
        const qsizetype exponentStart = i;
        while (i < n && isDigit(text.at(i)))
            ++i;
        if (i == exponentStart)
            return false;
    }
    end = i;
    while (i < n && text.at(i) == u' ')
        ++i;
    return i == n;
}

} // namespace

qint16 toInt16(const QString& text)
{
    qsizetype begin = 0;
    qsizetype end = 0;
    if (!numberSpan(text, begin, end))
        throw DataError(QStringLiteral("\"%1\" is not a number").arg(shownText(text, 60)));
    const QStringView number = QStringView(text).sliced(begin, end - begin);
    // Plain whole numbers, nearly all of them, need no floating point.
    qsizetype i = number.front() == u'+' || number.front() == u'-' ? 1 : 0;
    if (number.size() - i <= 6) {
        int value = 0;
        while (i < number.size() && isDigit(number[i]))
            value = value * 10 + (number[i++].unicode() - u'0');
        if (i == number.size()) {
            if (number.front() == u'-')
                value = -value;
            if (value >= -32768 && value <= 32767)
                return static_cast<qint16>(value);
        }
    }
    return roundToInt16(number.toDouble(), QStringLiteral("\"%1\"").arg(text));
}

bool toBool(const QString& text)
{
    const QString trimmed = basicTrim(text);
    if (trimmed.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0)
        return true;
    if (trimmed.compare(QLatin1String("false"), Qt::CaseInsensitive) == 0)
        return false;
    static const QRegularExpression number(
        QStringLiteral("^[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?$"));
    if (!number.match(trimmed).hasMatch())
        throw DataError(QStringLiteral("\"%1\" is not True or False").arg(text));
    return trimmed.toDouble() != 0.0;
}

} // namespace tarvo::text
