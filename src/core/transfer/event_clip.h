#pragma once

#include "records/project.h"

#include <QByteArray>

namespace tarvo {

// Events copied out of one project to be pasted into another, with every
// item their arguments name, each by its name and kind, and every condition
// and action kind by its call name and title: the catalogue of the project
// pasted into may hold the kinds at other places.
struct EventClip
{
    // A condition or action with what it owns; `Kind` is the source's index.
    struct Step
    {
        QString callName;
        QString title;
        QStringList values; // argument values, stored form
        // Conditions only.
        qint16 operatorIndex = 0;
        QString comparisonValue;
        qint16 negation = 0;
        // Actions only.
        QString text;
        bool inactive = false;
        QString comment;
    };
    struct Event
    {
        EventRecord trigger; // name, comment, ID, disabled, trigger fields
        QList<Step> conditions;
        QList<Step> actions;
    };
    // An item of a list row that the events name: a variable, a flag, an
    // entry of a catalogue list, or an event that was not copied.
    struct Item
    {
        int row = 0;
        int id = 0;
        QString name;
        QString value; // a number's starting value
    };

    QList<Event> events;
    QList<Item> items;
    QList<TimerRecord> timers;
    QList<SoundRecord> sounds;
    QList<MessageRecord> messages;
};

// The clipboard's own format for events.
inline constexpr char kEventClipMimeType[] = "application/x-tarvo-events";

// The events at `indices` (positions in the events list, in list order) and
// everything their arguments name.
EventClip copyEvents(const Project& project, const QList<int>& indices);

// The clip as the clipboard holds it (JSON text of our own layout), and back.
// A text that is no clip of ours is a DataError.
QByteArray clipBytes(const EventClip& clip);
EventClip readClip(const QByteArray& bytes);

// The copied events as readable text, one block each as the project outline
// shows them, for a paste into a chat or a bug report.
QString clipText(const Project& project, const QList<int>& indices);

} // namespace tarvo
