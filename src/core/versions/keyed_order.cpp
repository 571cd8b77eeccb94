#include "versions/keyed_order.h"

#include <QSet>
#include <algorithm>

namespace tarvo {

QList<RecordKey> recordKeys(const QList<int>& ids)
{
    QHash<int, int> seen;
    QList<RecordKey> keys;
    keys.reserve(ids.size());
    for (int id : ids)
        keys.append(recordKey(id, seen[id]++));
    return keys;
}

QHash<RecordKey, int> keyPositions(const QList<RecordKey>& keys)
{
    QHash<RecordKey, int> positions;
    positions.reserve(keys.size());
    for (int i = 0; i < keys.size(); ++i)
        positions.insert(keys.at(i), i);
    return positions;
}

QSet<RecordKey> movedKeys(const QList<RecordKey>& older, const QList<RecordKey>& newer)
{
    const QHash<RecordKey, int> oldPositions = keyPositions(older);
    // The old positions of the common records in their new order; the records
    // on a longest increasing run stayed, the others moved. Patience sorting
    // keeps it n log n for the largest projects.
    QList<RecordKey> common;
    QList<int> sequence;
    for (RecordKey key : newer) {
        const auto it = oldPositions.constFind(key);
        if (it != oldPositions.constEnd()) {
            common.append(key);
            sequence.append(*it);
        }
    }
    QList<int> tails; // index into sequence of the smallest tail of each length
    QList<int> previous(sequence.size(), -1);
    for (int i = 0; i < sequence.size(); ++i) {
        const auto at = std::lower_bound(tails.begin(), tails.end(), sequence.at(i),
            [&](int index, int value) { return sequence.at(index) < value; });
        if (at != tails.begin())
            previous[i] = *(at - 1);
        if (at == tails.end())
            tails.append(i);
        else
            *at = i;
    }
    QSet<RecordKey> moved(common.begin(), common.end());
    for (int i = tails.isEmpty() ? -1 : tails.last(); i >= 0; i = previous.at(i))
        moved.remove(common.at(i));
    return moved;
}

QList<RecordKey> keysAmong(const QList<RecordKey>& keys, const QSet<RecordKey>& kept)
{
    QList<RecordKey> result;
    for (RecordKey key : keys) {
        if (kept.contains(key))
            result.append(key);
    }
    return result;
}

} // namespace tarvo
