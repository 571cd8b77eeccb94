#pragma once

#include "catalogue/project_places.h"

#include <functional>

namespace tarvo {

// One encoded reference of a stored value: its list row and item ID.
struct EncodedReference
{
    int row = 0;
    int id = 0;

    friend bool operator==(const EncodedReference&, const EncodedReference&) = default;
};

// The well-formed encoded references of a stored value ("&&" row "$$" ID
// "§"), in the order they stand.
QList<EncodedReference> referencesIn(const QString& value);

// The same, handed one by one to `visit` (no list is made); returns how many.
int forEachReference(const QString& value, const std::function<void(EncodedReference)>& visit);

// Every argument (trigger arguments, condition arguments and compared values,
// action arguments) whose stored value refers to item `id` of list row `row`,
// in the order the lists show them.
QList<ProjectPlace> findReferences(const Project& project, int row, int id);

} // namespace tarvo
