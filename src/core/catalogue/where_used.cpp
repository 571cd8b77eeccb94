#include "catalogue/where_used.h"

namespace tarvo {

namespace {

// Reads a decimal number at `at` (a leading "-" allowed when `signedNumber`);
// -1 in `end` when there is none.
int readNumber(const QString& text, qsizetype at, bool signedNumber, qsizetype& end)
{
    qsizetype i = at;
    const bool negative = signedNumber && i < text.size() && text.at(i) == u'-';
    if (negative)
        ++i;
    qint64 value = 0;
    const qsizetype digits = i;
    while (i < text.size() && text.at(i).isDigit() && i - digits < 6)
        value = value * 10 + text.at(i++).digitValue();
    end = i > digits ? i : -1;
    return int(negative ? -value : value);
}

} // namespace

QList<EncodedReference> referencesIn(const QString& value)
{
    QList<EncodedReference> found;
    forEachReference(value, [&](EncodedReference reference) { found.append(reference); });
    return found;
}

int forEachReference(const QString& value, const std::function<void(EncodedReference)>& visit)
{
    int count = 0;
    for (qsizetype start = value.indexOf(QLatin1String("&&")); start >= 0;
         start = value.indexOf(QLatin1String("&&"), start + 2)) {
        qsizetype end = -1;
        const int row = readNumber(value, start + 2, false, end);
        if (end < 0 || !QStringView(value).mid(end).startsWith(QLatin1String("$$")))
            continue;
        const int id = readNumber(value, end + 2, true, end);
        if (end < 0 || end >= value.size() || value.at(end) != QChar(0x00A7))
            continue;
        visit({row, id});
        ++count;
    }
    return count;
}

QList<ProjectPlace> findReferences(const Project& project, int row, int id)
{
    QList<ProjectPlace> places;
    const EncodedReference wanted {row, id};
    forEachArgument(project, [&](const ArgumentValue& argument) {
        bool refers = false;
        if (argument.value.contains(QLatin1String("&&")))
            forEachReference(argument.value,
                [&](EncodedReference reference) { refers = refers || reference == wanted; });
        if (refers)
            places.append(argument.place);
    });
    return places;
}

} // namespace tarvo
