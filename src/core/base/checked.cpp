#include "base/checked.h"

namespace tarvo {

void throwIndexError(const char* what, qsizetype index, qsizetype size)
{
    if (size == 0)
        throw DataError(QStringLiteral("index %1 of the %2 is out of range: it is empty")
                            .arg(index)
                            .arg(QLatin1String(what)));
    throw DataError(QStringLiteral("index %1 of the %2 is out of range 0 to %3")
                        .arg(index)
                        .arg(QLatin1String(what))
                        .arg(size - 1));
}

} // namespace tarvo
