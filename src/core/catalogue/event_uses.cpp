#include "catalogue/event_uses.h"

#include "records/reference_list.h"
#include "catalogue/reference_markers.h"
#include "base/checked.h"

#include <algorithm>
#include <iterator>

namespace tarvo {

bool EventUses::holds(const Entry& entry, const EventRecord& event)
{
    return entry.actionCount == event.actionCount && entry.actions.isSharedWith(event.actions);
}

EventUses::Entry EventUses::read(const EventRecord& event)
{
    ++m_eventsRead;
    Entry entry {event.actions, event.actionCount, {}};
    for (qsizetype a = 0; a < heldCount(event.actionCount, event.actions); ++a) {
        const ActionRecord& action = event.actions.at(a);
        for (qsizetype k = 0; k < heldCount(action.ArgCount, action.Args); ++k) {
            const ArgumentRecord& argument = action.Args.at(k);
            if (argument.ListRef != row::Events || argument.Value.size() <= 2)
                continue;
            Use use;
            use.action = qint16(a);
            use.argument = qint16(k);
            use.inactive = action.inactive;
            int row = 0;
            qsizetype end = 0;
            use.single = readReference(argument.Value, 0, row, use.id, end)
                && end == argument.Value.size() && row < kReferenceRowCount;
            use.row = use.single ? qint8(row) : qint8(0);
            entry.uses.push_back(use);
        }
    }
    return entry;
}

void EventUses::update(const Project& project)
{
    const QList<EventRecord>& events = project.events;
    const qsizetype now = heldCount(project.eventCount, events);
    const qsizetype before = eventCount();
    // Edits change one event or one stretch of events: what lies in front of
    // it and behind it is found unchanged, the rest is read again.
    qsizetype front = 0;
    while (front < now && front < before && holds(m_entries[size_t(front)], events.at(front)))
        ++front;
    qsizetype back = 0;
    while (back < now - front && back < before - front
        && holds(m_entries[size_t(before - 1 - back)], events.at(now - 1 - back)))
        ++back;
    const qsizetype removed = before - front - back;
    const qsizetype inserted = now - front - back;
    const qsizetype common = std::min(removed, inserted);
    for (qsizetype i = 0; i < common; ++i)
        m_entries[size_t(front + i)] = read(events.at(front + i));
    const auto at = m_entries.begin() + std::ptrdiff_t(front + common);
    if (removed > common) {
        m_entries.erase(at, at + std::ptrdiff_t(removed - common));
    } else if (inserted > common) {
        std::vector<Entry> added;
        added.reserve(size_t(inserted - common));
        for (qsizetype i = common; i < inserted; ++i)
            added.push_back(read(events.at(front + i)));
        m_entries.insert(
            at, std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    }
}

} // namespace tarvo
