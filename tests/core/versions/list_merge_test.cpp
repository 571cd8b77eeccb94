// The pieces under the merge, as tables: the order and membership of a merged
// list, the records that moved, and references rewritten to new IDs.
#include "catalogue/reference_markers.h"
#include "versions/keyed_order.h"
#include "versions/list_merge.h"
#include "versions/reference_rewrite.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

// A list written as IDs: "2*" changed against the base, "2=" the same record
// as the other side added under that ID.
struct Side
{
    explicit Side(const char* text)
    {
        for (const QString& token : QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts)) {
            QString id = token;
            changed.append(id.endsWith(u'*'));
            same.append(id.endsWith(u'='));
            id.remove(u'*').remove(u'=');
            ids.append(id.toInt());
        }
    }
    QList<int> ids;
    QList<bool> changed;
    QList<bool> same;
};

struct ListRow
{
    const char* label;
    const char* base;
    const char* ours;
    const char* theirs;
    const char* merged; // IDs in merged order; "2'" is theirs' record renumbered
    int conflicts;
};

const ListRow kRows[] = {
    {"nothing changed", "1 2 3", "1 2 3", "1 2 3", "1 2 3", 0},
    {"additions after their predecessors", "1 2 3", "1 4 2 3", "1 2 5 3", "1 4 2 5 3", 0},
    {"both add after one record: ours first", "1 2", "1 3 2", "1 4 2", "1 3 4 2", 0},
    {"runs of additions stay together", "1 2", "1 3 4 2", "1 5 6 2", "1 3 4 5 6 2", 0},
    {"additions at the start", "1 2", "3 1 2", "4 1 2", "3 4 1 2", 0},
    {"one ID added for two records", "1", "1 2", "1 2", "1 2 2'", 0},
    {"the same record added on both sides", "1", "1 2=", "1 2=", "1 2", 0},
    // Theirs' 4 follows 3 wherever 3 goes.
    {"moved by ours", "1 2 3", "3 1 2", "1 2 3 4", "3 4 1 2", 0},
    {"moved by theirs, added by ours", "1 2 3", "1 4 2 3", "2 3 1", "2 3 1 4", 0},
    {"moved alike on both sides", "1 2 3", "3 1 2", "3 1 2", "3 1 2", 0},
    {"moved differently on both sides", "1 2 3", "3 1 2", "2 1 3", "3 1 2", 1},
    {"removed by ours, untouched by theirs", "1 2 3", "1 3", "1 2 3", "1 3", 0},
    {"removed by both", "1 2 3", "1 3", "1 3", "1 3", 0},
    {"changed by ours, removed by theirs", "1 2 3", "1 2* 3", "1 3", "1 2 3", 1},
    {"removed by ours, changed by theirs", "1 2 3", "1 3", "1 2* 3", "1 3", 1},
    {"added after a record the other side removed", "1 2 3", "1 3", "1 2 4 3", "1 4 3", 0},
    {"a repeated ID counts its records", "1 1", "1 1 1", "1 1", "1 1 1", 0},
};

TEST(ListMerge, OrderAndMembershipFollowTheSides)
{
    for (const ListRow& row : kRows) {
        SCOPED_TRACE(row.label);
        const Side base(row.base);
        const Side ours(row.ours);
        const Side theirs(row.theirs);
        const ListMergeRules rules {QStringLiteral("records"),
            [&](int, int o) { return !ours.changed.at(o); },
            [&](int, int t) { return !theirs.changed.at(t); },
            [&](int o, int t) { return ours.same.at(o) && theirs.same.at(t); },
            [](int b) { return QStringLiteral("record %1").arg(b); }};
        QStringList conflicts;
        const QList<MergeSlot> slots = mergeList(base.ids, ours.ids, theirs.ids, rules, conflicts);
        QStringList merged;
        for (const MergeSlot& slot : slots)
            merged << QString::number(idOfKey(slot.key)) + (slot.clashing ? "'" : "");
        EXPECT_EQ(merged.join(u' '), QString::fromLatin1(row.merged));
        EXPECT_EQ(conflicts.size(), row.conflicts) << conflicts.join(u'\n').toStdString();
    }
}

TEST(KeyedOrder, MovedRecordsAreThoseOffTheLongestKeptRun)
{
    const auto moved = [](const char* older, const char* newer) {
        const QSet<RecordKey> keys
            = movedKeys(recordKeys(Side(older).ids), recordKeys(Side(newer).ids));
        QList<int> ids;
        for (RecordKey key : keys)
            ids.append(idOfKey(key));
        std::sort(ids.begin(), ids.end());
        return ids;
    };
    EXPECT_EQ(moved("1 2 3 4", "1 2 3 4"), QList<int>());
    EXPECT_EQ(moved("1 2 3 4", "4 1 2 3"), QList<int>({4}));
    // Two neighbours swapped: one of them moved; the later one is named.
    EXPECT_EQ(moved("1 2 3 4", "1 3 2 4"), QList<int>({3}));
    EXPECT_EQ(moved("1 2 3 4 5", "2 9 3 1 5"), QList<int>({1}));
    EXPECT_EQ(moved("1 2 3", "3 2 1"), QList<int>({2, 3}));
}

TEST(ReferenceRewrite, EveryReferenceMovesOnceToItsNewId)
{
    const IdChanges changes {{12, {{5, 7}, {7, 9}}}, {14, {{2, 3}}}};
    const auto ref = [](int row, int id) { return encodedReference(row, QString::number(id)); };
    const struct
    {
        QString text;
        QString expected;
    } rows[] = {
        {ref(12, 5), ref(12, 7)},
        // 5 becomes 7 and 7 becomes 9: never 5 to 9.
        {ref(12, 5) + " and " + ref(12, 7), ref(12, 7) + " and " + ref(12, 9)},
        {"x" + ref(14, 2) + ref(12, 6) + "y", "x" + ref(14, 3) + ref(12, 6) + "y"},
        {ref(13, 5), ref(13, 5)},
        {"&&12$$05\u00a7 &&12$$5", "&&12$$05\u00a7 &&12$$5"},
        {"plain", "plain"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(rewriteReferences(row.text, changes), row.expected);
}

} // namespace
