#pragma once

#include "versions/keyed_order.h"

#include <QStringList>
#include <functional>

namespace tarvo {

// One record of a merged list and where it stands in the three versions
// (-1: not there).
struct MergeSlot
{
    RecordKey key = 0;
    int base = -1;
    int ours = -1;
    int theirs = -1;
    // Added by theirs with an ID ours also added for another record: it takes
    // a new ID.
    bool clashing = false;
    int newId = 0; // the clashing record's new ID
};

// What the list merge needs to know of the records besides their IDs.
struct ListMergeRules
{
    QString listName; // "events", for the conflict about their order
    std::function<bool(int base, int ours)> oursUnchanged;
    std::function<bool(int base, int theirs)> theirsUnchanged;
    std::function<bool(int ours, int theirs)> addedAlike;
    std::function<QString(int base)> baseName; // "event 'Start' (ID 0)"
};

// The records of a three-way merge of a list matched by ID, in their merged
// order. Kept records take the order of the side that moved them (ours' when
// both did, which is a conflict); a record removed on one side goes when the
// other left it unchanged, and is a conflict otherwise (ours' side of it
// stays). A record added on one side stands after the record it followed
// there; when both sides add after the same record, ours' come first.
// Conflicts are appended to `conflicts` in the author's words.
QList<MergeSlot> mergeList(const QList<int>& baseIds, const QList<int>& oursIds,
    const QList<int>& theirsIds, const ListMergeRules& rules, QStringList& conflicts);

// A conflict line: "event 'Start' (ID 0): title changed on both sides; ours kept".
QString conflictLine(const QString& record, const QString& what);

// Three-way choice of one value: the side that changed it, or the common
// value. Changed differently on both sides is a conflict: `merged` keeps
// ours and the result is false. `theirsTaken` is what is written when theirs
// wins (theirs with its references renumbered).
template <typename T>
bool mergeValue(const T& base, const T& ours, const T& theirs, const T& theirsTaken, T& merged)
{
    if (ours == theirs || theirs == base) {
        merged = ours;
        return true;
    }
    if (ours == base) {
        merged = theirsTaken;
        return true;
    }
    merged = ours;
    return false;
}

// For each item of `base`, its position in `side` when a longest run of
// equal items keeps it there; -1 for one the side removed or changed.
template <typename Item>
QList<int> alignedPositions(const QList<Item>& base, const QList<Item>& side)
{
    const qsizetype n = base.size();
    const qsizetype m = side.size();
    QList<int> table((n + 1) * (m + 1), 0);
    const auto cell = [&](qsizetype i, qsizetype j) -> int& { return table[i * (m + 1) + j]; };
    for (qsizetype i = n - 1; i >= 0; --i)
        for (qsizetype j = m - 1; j >= 0; --j)
            cell(i, j) = base.at(i) == side.at(j) ? cell(i + 1, j + 1) + 1
                                                  : std::max(cell(i + 1, j), cell(i, j + 1));
    QList<int> positions(n, -1);
    for (qsizetype i = 0, j = 0; i < n && j < m;) {
        if (base.at(i) == side.at(j))
            positions[i++] = int(j++);
        else if (cell(i + 1, j) >= cell(i, j + 1))
            ++i;
        else
            ++j;
    }
    return positions;
}

} // namespace tarvo
