#pragma once

#include <QHash>
#include <QList>
#include <QSet>

namespace tarvo {

// Records of a list matched by ID across versions of a project. A file may
// repeat an ID; the n-th record with an ID is matched with the n-th record
// with that ID on the other side.
using RecordKey = qint64;

inline RecordKey recordKey(int id, int occurrence)
{
    return (qint64(id) << 32) | quint32(occurrence);
}

inline int idOfKey(RecordKey key)
{
    return int(key >> 32);
}

// The keys of a list of IDs, in list order.
QList<RecordKey> recordKeys(const QList<int>& ids);

// Position of each key.
QHash<RecordKey, int> keyPositions(const QList<RecordKey>& keys);

// The keys of `newer` (among those both lists hold) that changed their place
// relative to the others: those outside a longest run kept in the same order.
QSet<RecordKey> movedKeys(const QList<RecordKey>& older, const QList<RecordKey>& newer);

// `keys` restricted to those in `kept`, in order.
QList<RecordKey> keysAmong(const QList<RecordKey>& keys, const QSet<RecordKey>& kept);

} // namespace tarvo
