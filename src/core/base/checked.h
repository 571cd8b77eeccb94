#pragma once

#include "base/file_error.h"

#include <QList>

namespace tarvo {

// Checked element access: an index outside the list is a DataError, the
// program's answer to what would otherwise be undefined behaviour.
[[noreturn]] void throwIndexError(const char* what, qsizetype index, qsizetype size);

template <typename List> auto& at(List& list, qsizetype index, const char* what = "list")
{
    if (index < 0 || index >= list.size())
        throwIndexError(what, index, list.size());
    return list[index];
}

// How many records a loop over a counted list may visit: the count, but never
// more than the list holds (a damaged file can claim more than it has).
template <typename List> qsizetype heldCount(qsizetype count, const List& list)
{
    return qBound<qsizetype>(0, count, list.size());
}

// Grows a list to at least `size` elements, keeping what it holds.
template <typename List> void growTo(List& list, qsizetype size)
{
    if (list.size() < size)
        list.resize(size);
}

} // namespace tarvo
