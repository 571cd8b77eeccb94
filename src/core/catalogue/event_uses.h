#pragma once

#include "records/project.h"

#include <vector>

namespace tarvo {

// The action arguments that offer the events row and hold more than two
// characters, event by event: the arguments the event-in-use check has to
// look at. Asking for them runs through the events only; the arguments of an
// event are read again only when its actions changed since the last time.
//
// An event's actions are an implicitly shared list, and the index keeps a
// copy of each list it read: while the project's list is still shared with
// that copy, neither has changed, so the arguments read from it still hold.
class EventUses
{
public:
    struct Use
    {
        int id = 0; // of the single reference
        qint16 action = 0;
        qint16 argument = 0;
        qint8 row = 0; // of the single reference
        bool single = false; // the value is one reference and nothing else
        bool inactive = false; // the action is switched off
    };
    // A plain vector: most events hold none, and Qt 6.4's small-array
    // move assignment leaks a grown buffer.
    using Uses = std::vector<Use>;

    // Brings the index up to the project's events (those up to the count).
    void update(const Project& project);

    // The uses of event `e` as of the last update, in argument order.
    const Uses& of(qsizetype e) const { return m_entries[size_t(e)].uses; }
    qsizetype eventCount() const { return qsizetype(m_entries.size()); }

    // Uses read from scratch by the updates so far (for tests: an update
    // after an edit reads only the events whose actions changed).
    qsizetype eventsRead() const { return m_eventsRead; }

private:
    struct Entry
    {
        QList<ActionRecord> actions;
        qint16 actionCount = 0;
        Uses uses;
    };

    static bool holds(const Entry& entry, const EventRecord& event);
    Entry read(const EventRecord& event);

    std::vector<Entry> m_entries;
    qsizetype m_eventsRead = 0;
};

} // namespace tarvo
