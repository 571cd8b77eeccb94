#include "versions/list_merge.h"

namespace tarvo {

QString conflictLine(const QString& record, const QString& what)
{
    return QStringLiteral("conflict: ") + record + QStringLiteral(": ") + what;
}

namespace {

// The side's records that the merge adds after a kept record: for each kept
// record (and for the list's start, key -1), the side's records that follow
// it there up to the next kept one.
QHash<RecordKey, QList<int>> additionsAfter(const QList<RecordKey>& sideKeys,
    const QSet<RecordKey>& kept, const std::function<bool(int)>& added)
{
    QHash<RecordKey, QList<int>> groups;
    RecordKey anchor = -1;
    for (int i = 0; i < sideKeys.size(); ++i) {
        if (kept.contains(sideKeys.at(i)))
            anchor = sideKeys.at(i);
        else if (added(i))
            groups[anchor].append(i);
    }
    return groups;
}

} // namespace

QList<MergeSlot> mergeList(const QList<int>& baseIds, const QList<int>& oursIds,
    const QList<int>& theirsIds, const ListMergeRules& rules, QStringList& conflicts)
{
    const QList<RecordKey> baseKeys = recordKeys(baseIds);
    const QList<RecordKey> oursKeys = recordKeys(oursIds);
    const QList<RecordKey> theirsKeys = recordKeys(theirsIds);
    const QHash<RecordKey, int> baseAt = keyPositions(baseKeys);
    const QHash<RecordKey, int> oursAt = keyPositions(oursKeys);
    const QHash<RecordKey, int> theirsAt = keyPositions(theirsKeys);

    // The base records that stay, and those of them all three hold.
    QHash<RecordKey, MergeSlot> keptSlots;
    QSet<RecordKey> everywhere;
    for (int b = 0; b < baseKeys.size(); ++b) {
        const RecordKey key = baseKeys.at(b);
        const int o = oursAt.value(key, -1);
        const int t = theirsAt.value(key, -1);
        if (o >= 0 && t >= 0) {
            keptSlots.insert(key, {key, b, o, t});
            everywhere.insert(key);
        } else if (o >= 0) {
            if (!rules.oursUnchanged(b, o)) {
                conflicts << conflictLine(rules.baseName(b),
                    QStringLiteral("changed by ours, removed by theirs; ours kept"));
                keptSlots.insert(key, {key, b, o, -1});
            }
        } else if (t >= 0 && !rules.theirsUnchanged(b, t)) {
            conflicts << conflictLine(rules.baseName(b),
                QStringLiteral("removed by ours, changed by theirs; left out as ours has it"));
        }
    }

    // The order of the kept records: that of the side that moved them.
    const QList<RecordKey> baseOrder = keysAmong(baseKeys, everywhere);
    const QList<RecordKey> oursOrder = keysAmong(oursKeys, everywhere);
    const QList<RecordKey> theirsOrder = keysAmong(theirsKeys, everywhere);
    const QList<RecordKey>* order = &oursOrder;
    if (oursOrder == baseOrder && theirsOrder != baseOrder) {
        order = &theirsOrder;
    } else if (oursOrder != baseOrder && theirsOrder != baseOrder && oursOrder != theirsOrder) {
        conflicts << conflictLine(
            rules.listName, QStringLiteral("the order changed on both sides; ours' order kept"));
    }
    const QSet<RecordKey> ordered(order->begin(), order->end());

    // Ours' additions, and kept records only ours places (theirs removed
    // them), follow their predecessor in ours.
    const QHash<RecordKey, QList<int>> oursAfter = additionsAfter(oursKeys, ordered, [&](int o) {
        const RecordKey key = oursKeys.at(o);
        return !baseAt.contains(key) || keptSlots.contains(key);
    });
    const QHash<RecordKey, QList<int>> theirsAfter
        = additionsAfter(theirsKeys, ordered, [&](int t) {
              const RecordKey key = theirsKeys.at(t);
              if (baseAt.contains(key))
                  return false;
              const int o = oursAt.value(key, -1);
              // Both added the very same record: once, where ours has it.
              return o < 0 || !rules.addedAlike(o, t);
          });

    QList<MergeSlot> merged;
    merged.reserve(oursKeys.size() + theirsKeys.size());
    const auto emitAfter = [&](RecordKey anchor) {
        for (int o : oursAfter.value(anchor)) {
            const RecordKey key = oursKeys.at(o);
            if (keptSlots.contains(key)) {
                merged.append(keptSlots.value(key));
                continue;
            }
            const int t = theirsAt.value(key, -1);
            merged.append({key, -1, o, t >= 0 && rules.addedAlike(o, t) ? t : -1});
        }
        for (int t : theirsAfter.value(anchor)) {
            const RecordKey key = theirsKeys.at(t);
            merged.append({key, -1, -1, t, oursAt.contains(key)});
        }
    };
    emitAfter(-1);
    for (RecordKey key : *order) {
        merged.append(keptSlots.value(key));
        emitAfter(key);
    }
    return merged;
}

} // namespace tarvo
