#include "catalogue/where_used.h"

#include "catalogue/reference_markers.h"

namespace tarvo {

QList<EncodedReference> referencesIn(const QString& value)
{
    QList<EncodedReference> found;
    forEachReference(value, [&](EncodedReference reference) { found.append(reference); });
    return found;
}

int forEachReference(const QString& value, const std::function<void(EncodedReference)>& visit)
{
    int count = 0;
    // Read exactly as the compile reads them: a number with a leading zero, or
    // beyond 16 bits, is no reference, whatever it seems to name.
    for (qsizetype start = value.indexOf(QLatin1String("&&")); start >= 0;
         start = value.indexOf(QLatin1String("&&"), start + 2)) {
        int row = 0;
        int id = 0;
        qsizetype end = 0;
        if (!readReference(value, start, row, id, end))
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
