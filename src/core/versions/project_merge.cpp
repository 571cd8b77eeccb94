#include "versions/project_merge.h"

#include "catalogue/project_lists.h"
#include "base/checked.h"
#include "versions/list_merge.h"
#include "versions/record_words.h"
#include "versions/reference_rewrite.h"
#include "versions/variable_merge.h"

#include <QMap>

namespace tarvo {

namespace {

constexpr int kMaxCount = 32767;

template <typename List> List heldPart(const List& list, qsizetype count)
{
    return list.mid(0, heldCount(count, list));
}

template <typename List> QList<int> idsOf(const List& list, qsizetype count)
{
    QList<int> ids;
    for (qsizetype i = 0; i < heldCount(count, list); ++i)
        ids.append(list.at(i).id);
    return ids;
}

// A trigger as one field: kind, arguments and their types.
template <typename Record> auto triggerOf(const Record& r)
{
    return std::make_tuple(r.triggerKind, r.triggerArgCount, r.triggerArgTexts, r.triggerArgTypes);
}

template <typename Record, typename Trigger> void setTrigger(Record& r, const Trigger& trigger)
{
    std::tie(r.triggerKind, r.triggerArgCount, r.triggerArgTexts, r.triggerArgTypes) = trigger;
}

class ProjectMerger
{
public:
    ProjectMerger(const Project& base, const Project& ours, const Project& theirs)
        : m_base(base)
        , m_ours(ours)
        , m_theirs(theirs)
        , m_baseWords(base)
    {
    }

    MergeOutcome run()
    {
        m_merged = m_ours;
        planLists();
        m_taken = m_theirs;
        rewriteProjectReferences(m_taken, m_changes);
        mergeValue(m_base.name, m_ours.name, m_theirs.name, m_theirs.name, m_merged.name)
            || conflict(QStringLiteral("project ") + quotedWords(m_base.name),
                QStringLiteral("renamed on both sides (ours %1, theirs %2); ours kept")
                    .arg(quotedWords(m_ours.name), quotedWords(m_theirs.name)));
        mergeValue(m_base.scriptComment, m_ours.scriptComment, m_theirs.scriptComment,
            m_theirs.scriptComment, m_merged.scriptComment)
            || conflict(QStringLiteral("script comment"),
                QStringLiteral("changed on both sides; ours kept"));
        buildEvents();
        buildTimers();
        buildSounds();
        buildMessages();
        buildVariables();
        finish();
        return {std::move(m_merged), std::move(m_conflicts), std::move(m_notes)};
    }

private:
    bool conflict(const QString& record, const QString& what)
    {
        m_conflicts << conflictLine(record, what);
        return false;
    }

    template <typename List>
    ListMergeRules rules(
        const QString& listName, List Project::*list, std::function<QString(int)> baseName) const
    {
        return {listName,
            [this, list](int b, int o) { return (m_base.*list).at(b) == (m_ours.*list).at(o); },
            [this, list](int b, int t) { return (m_base.*list).at(b) == (m_theirs.*list).at(t); },
            [this, list](int o, int t) { return (m_ours.*list).at(o) == (m_theirs.*list).at(t); },
            std::move(baseName)};
    }

    void planLists()
    {
        m_events = mergeList(idsOf(m_base.events, m_base.eventCount),
            idsOf(m_ours.events, m_ours.eventCount), idsOf(m_theirs.events, m_theirs.eventCount),
            rules(QStringLiteral("events"), &Project::events,
                [this](int b) { return RecordWords::eventName(m_base.events.at(b)); }),
            m_conflicts);
        m_timers = mergeList(idsOf(m_base.timers, m_base.timerCount),
            idsOf(m_ours.timers, m_ours.timerCount), idsOf(m_theirs.timers, m_theirs.timerCount),
            rules(QStringLiteral("timers"), &Project::timers,
                [this](int b) { return RecordWords::timerName(m_base.timers.at(b)); }),
            m_conflicts);
        m_sounds = mergeList(idsOf(m_base.sounds, m_base.soundCount),
            idsOf(m_ours.sounds, m_ours.soundCount), idsOf(m_theirs.sounds, m_theirs.soundCount),
            rules(QStringLiteral("sounds"), &Project::sounds,
                [this](int b) { return RecordWords::soundName(m_base.sounds.at(b)); }),
            m_conflicts);
        m_messages = mergeList(idsOf(m_base.messages, m_base.messageCount),
            idsOf(m_ours.messages, m_ours.messageCount),
            idsOf(m_theirs.messages, m_theirs.messageCount),
            rules(QStringLiteral("messages"), &Project::messages,
                [this](int b) { return RecordWords::messageName(m_base.messages.at(b)); }),
            m_conflicts);
        renumber(m_events, row::Events, false, "event",
            [this](int t) { return quotedWords(m_theirs.events.at(t).name); });
        renumber(m_timers, row::Timers, false, "timer",
            [this](int t) { return quotedWords(m_theirs.timers.at(t).name); });
        renumber(m_sounds, row::Sounds, true, "sound",
            [this](int t) { return quotedWords(m_theirs.sounds.at(t).firstText); });
        renumber(m_messages, row::Messages, true, "message",
            [this](int t) { return quotedWords(m_theirs.messages.at(t).text); });
        for (int t = 0; t < kReferenceRowCount; ++t) {
            if (!m_ours.tables[size_t(t)].Saved)
                continue;
            const QList<Variable> base = variablesOf(m_base.tables[size_t(t)]);
            const QList<Variable> ours = variablesOf(m_ours.tables[size_t(t)]);
            const QList<Variable> theirs = variablesOf(m_theirs.tables[size_t(t)]);
            ListMergeRules variableRules {QStringLiteral("list row %1").arg(t),
                [&](int b, int o) { return base.at(b) == ours.at(o); },
                [&](int b, int h) { return base.at(b) == theirs.at(h); },
                [&](int o, int h) { return ours.at(o) == theirs.at(h); },
                [&](int b) { return m_baseWords.variableName(t, base.at(b).text, base.at(b).id); }};
            m_variables[t] = mergeList(variableIds(base), variableIds(ours), variableIds(theirs),
                variableRules, m_conflicts);
            renumber(m_variables[t], t, false, "variable",
                [theirs](int h) { return quotedWords(theirs.at(h).text); });
        }
    }

    // Gives theirs' clashing records the next IDs of the merged list, in
    // order: the highest ID plus one (for sounds and messages, the count
    // while no record has an ID of 0 or more).
    void renumber(QList<MergeSlot>& slots, int row, bool countWhenNone, const char* what,
        const std::function<QString(int)>& theirsName)
    {
        int best = -1;
        int count = 0;
        for (const MergeSlot& slot : slots) {
            if (!slot.clashing) {
                best = std::max(best, idOfKey(slot.key));
                ++count;
            }
        }
        QHash<int, int>& changes = m_changes[row];
        for (MergeSlot& slot : slots) {
            if (!slot.clashing)
                continue;
            const int old = idOfKey(slot.key);
            // A sound's ID stands in its row too: both take the same new ID.
            if (changes.contains(old)) {
                slot.newId = changes.value(old);
                continue;
            }
            slot.newId = countWhenNone && best == -1 ? count : best + 1;
            best = std::max(best, slot.newId);
            ++count;
            changes.insert(old, slot.newId);
            m_notes << QStringLiteral("theirs' %1 %2 takes ID %3: ours added ID %4 too")
                           .arg(QLatin1String(what), theirsName(slot.theirs))
                           .arg(slot.newId)
                           .arg(old);
        }
        if (changes.isEmpty())
            m_changes.remove(row);
    }

    // Conditions or actions of an event: taken whole from the side that
    // changed them, or item by item while all three have as many.
    template <typename Item>
    void mergeItems(const QString& event, const char* what, const QList<Item>& baseList,
        qint16 baseCount, const QList<Item>& oursList, qint16 oursCount,
        const QList<Item>& theirsList, qint16 theirsCount, const QList<Item>& takenList,
        QList<Item>& merged, qint16& mergedCount)
    {
        const QList<Item> base = heldPart(baseList, baseCount);
        const QList<Item> ours = heldPart(oursList, oursCount);
        const QList<Item> theirs = heldPart(theirsList, theirsCount);
        if (ours == theirs || theirs == base)
            return;
        if (ours == base) {
            merged = takenList;
            mergedCount = theirsCount;
            return;
        }
        const bool oursKeeps = ours.size() == base.size();
        const bool theirsKeeps = theirs.size() == base.size();
        if (oursKeeps && theirsKeeps) {
            for (qsizetype k = 0; k < base.size(); ++k) {
                mergeValue(base.at(k), ours.at(k), theirs.at(k), takenList.at(k), merged[k])
                    || conflict(event + QStringLiteral(", ")
                            + RecordWords::itemName(what, int(k), base.at(k)),
                        QStringLiteral("changed on both sides; ours kept"));
            }
            return;
        }
        // One side changed items in place, the other added, removed or moved
        // some: the changes go to the same items in the other side's list.
        if (oursKeeps || theirsKeeps) {
            const QList<Item>& inPlace = oursKeeps ? ours : theirs;
            const QList<Item>& inPlaceTaken = oursKeeps ? ours : takenList;
            QList<Item> result = oursKeeps ? heldPart(takenList, theirsCount) : ours;
            const QList<int> kept = alignedPositions(base, oursKeeps ? theirs : ours);
            bool clean = true;
            for (qsizetype k = 0; k < base.size() && clean; ++k) {
                if (inPlace.at(k) == base.at(k))
                    continue;
                clean = kept.at(k) >= 0;
                if (clean)
                    result[kept.at(k)] = inPlaceTaken.at(k);
            }
            if (clean) {
                merged = result;
                mergedCount = qint16(result.size());
                return;
            }
            const QString inPlaceSide
                = oursKeeps ? QStringLiteral("ours") : QStringLiteral("theirs");
            const QString otherSide = oursKeeps ? QStringLiteral("theirs") : QStringLiteral("ours");
            conflict(event,
                QStringLiteral("%1 %2 changed by %3 was removed or changed by %4; ours kept")
                    .arg(QLatin1String(*what == 'a' ? "an" : "a"), QLatin1String(what), inPlaceSide,
                        otherSide));
            return;
        }
        conflict(event,
            QStringLiteral("%1s added, removed or moved on both sides; ours kept")
                .arg(QLatin1String(what)));
    }

    // What events and timers share: the name, the trigger and the comment.
    template <typename Record>
    void mergeHeader(const QString& name, const Record& base, const Record& ours,
        const Record& theirs, const Record& taken, Record& merged)
    {
        mergeValue(base.name, ours.name, theirs.name, taken.name, merged.name)
            || conflict(name,
                QStringLiteral("renamed on both sides (ours %1, theirs %2); ours kept")
                    .arg(quotedWords(ours.name), quotedWords(theirs.name)));
        auto trigger = triggerOf(ours);
        mergeValue(triggerOf(base), triggerOf(ours), triggerOf(theirs), triggerOf(taken), trigger)
            || conflict(name, QStringLiteral("trigger changed on both sides; ours kept"));
        setTrigger(merged, trigger);
        mergeValue(base.comment, ours.comment, theirs.comment, taken.comment, merged.comment)
            || conflict(name, QStringLiteral("comment changed on both sides; ours kept"));
    }

    EventRecord mergedEvent(const MergeSlot& slot)
    {
        const EventRecord& base = m_base.events.at(slot.base);
        const EventRecord& ours = m_ours.events.at(slot.ours);
        const EventRecord& theirs = m_theirs.events.at(slot.theirs);
        const EventRecord& taken = m_taken.events.at(slot.theirs);
        EventRecord event = ours;
        const QString name = RecordWords::eventName(base);
        mergeHeader(name, base, ours, theirs, taken, event);
        mergeValue(base.disabled, ours.disabled, theirs.disabled, taken.disabled, event.disabled);
        mergeItems(name, "condition", base.conditions, base.conditionCount, ours.conditions,
            ours.conditionCount, theirs.conditions, theirs.conditionCount, taken.conditions,
            event.conditions, event.conditionCount);
        mergeItems(name, "action", base.actions, base.actionCount, ours.actions, ours.actionCount,
            theirs.actions, theirs.actionCount, taken.actions, event.actions, event.actionCount);
        return event;
    }

    TimerRecord mergedTimer(const MergeSlot& slot)
    {
        const TimerRecord& base = m_base.timers.at(slot.base);
        const TimerRecord& ours = m_ours.timers.at(slot.ours);
        const TimerRecord& theirs = m_theirs.timers.at(slot.theirs);
        const TimerRecord& taken = m_taken.timers.at(slot.theirs);
        TimerRecord timer = ours;
        mergeHeader(RecordWords::timerName(base), base, ours, theirs, taken, timer);
        return timer;
    }

    // A record that is not merged field by field: ours' when ours has it,
    // else theirs' (with its new ID when it clashed).
    template <typename Record>
    Record wholeRecord(const MergeSlot& slot, const QList<Record>& ours, const QList<Record>& taken)
    {
        if (slot.ours >= 0)
            return ours.at(slot.ours);
        Record record = taken.at(slot.theirs);
        if (slot.clashing)
            record.id = qint16(slot.newId);
        return record;
    }

    // A merged list longer than a count can say stays as ours has it.
    template <typename Record>
    void setList(const char* what, const QList<Record>& records, QList<Record>& list, qint16& count,
        const QList<Record>& oursList, qint16 oursCount)
    {
        if (records.size() > kMaxCount) {
            conflict(QString::fromLatin1(what),
                QStringLiteral("the merged project would have %1, more than a project file can "
                               "count (%2); ours' kept")
                    .arg(records.size())
                    .arg(kMaxCount));
            list = oursList;
            count = oursCount;
            return;
        }
        list = records;
        count = qint16(records.size());
    }

    void buildEvents()
    {
        QList<EventRecord> events;
        events.reserve(m_events.size());
        for (const MergeSlot& slot : m_events)
            events.append(slot.base >= 0 && slot.ours >= 0 && slot.theirs >= 0
                    ? mergedEvent(slot)
                    : wholeRecord(slot, m_ours.events, m_taken.events));
        setList("events", events, m_merged.events, m_merged.eventCount, m_ours.events,
            m_ours.eventCount);
    }

    void buildTimers()
    {
        QList<TimerRecord> timers;
        for (const MergeSlot& slot : m_timers)
            timers.append(slot.base >= 0 && slot.ours >= 0 && slot.theirs >= 0
                    ? mergedTimer(slot)
                    : wholeRecord(slot, m_ours.timers, m_taken.timers));
        // The project file makes room for one timer only: a second one would
        // make a file that does not open again.
        if (timers.size() > 1) {
            conflict(QStringLiteral("timers"),
                QStringLiteral("the merged project would have %1 timers, but a project file "
                               "holds one; ours' timers kept")
                    .arg(timers.size()));
            m_merged.timers = m_ours.timers;
            m_merged.timerCount = m_ours.timerCount;
            m_notes.removeIf([](const QString& note) { return note.startsWith("theirs' timer "); });
            return;
        }
        m_merged.timers = timers;
        m_merged.timerCount = qint16(timers.size());
    }

    template <typename Record>
    void buildPlain(const char* what, const QList<MergeSlot>& slots, QList<Record> Project::*list,
        qint16 Project::*count)
    {
        QList<Record> records;
        for (const MergeSlot& slot : slots) {
            if (slot.base >= 0 && slot.ours >= 0 && slot.theirs >= 0) {
                const Record& base = (m_base.*list).at(slot.base);
                Record record;
                mergeValue(base, (m_ours.*list).at(slot.ours), (m_theirs.*list).at(slot.theirs),
                    (m_taken.*list).at(slot.theirs), record)
                    || conflict(nameOf(base), QStringLiteral("changed on both sides; ours kept"));
                records.append(record);
            } else {
                records.append(wholeRecord(slot, m_ours.*list, m_taken.*list));
            }
        }
        setList(what, records, m_merged.*list, m_merged.*count, m_ours.*list, m_ours.*count);
    }

    static QString nameOf(const SoundRecord& sound) { return RecordWords::soundName(sound); }
    static QString nameOf(const MessageRecord& message)
    {
        return RecordWords::messageName(message);
    }

    void buildSounds() { buildPlain("sounds", m_sounds, &Project::sounds, &Project::soundCount); }

    void buildMessages()
    {
        buildPlain("messages", m_messages, &Project::messages, &Project::messageCount);
    }

    void buildVariables()
    {
        for (auto it = m_variables.cbegin(); it != m_variables.cend(); ++it)
            mergeVariableRow(it.key(), {m_base, m_ours, m_theirs}, it.value(),
                m_merged.tables[size_t(it.key())], m_baseWords, m_conflicts);
    }

    void finish()
    {
        m_merged.timerListLines.clear();
        for (int i = 0; i < heldCount(m_merged.timerCount, m_merged.timers); ++i)
            m_merged.timerListLines.append(m_merged.timers.at(i).name);
        refreshEventRow(m_merged);
        refreshTimerRow(m_merged);
        refreshMessageRow(m_merged);
    }

    const Project& m_base;
    const Project& m_ours;
    const Project& m_theirs;
    RecordWords m_baseWords;
    Project m_taken; // theirs with the references to renumbered records rewritten
    Project m_merged;
    QList<MergeSlot> m_events;
    QList<MergeSlot> m_timers;
    QList<MergeSlot> m_sounds;
    QList<MergeSlot> m_messages;
    QMap<int, QList<MergeSlot>> m_variables;
    IdChanges m_changes;
    QStringList m_conflicts;
    QStringList m_notes;
};

} // namespace

MergeOutcome mergeProjects(const Project& base, const Project& ours, const Project& theirs)
{
    return ProjectMerger(base, ours, theirs).run();
}

} // namespace tarvo
