#pragma once

#include "catalogue/reference_index.h"
#include "records/project.h"
#include "ui/quiet_prompter.h"

namespace tarvo {

// The records of a project in the words the editor shows them with: triggers
// by their caption, stored argument texts with every encoded reference shown
// as the name of its item, operators and negations as the condition editor's
// combos show them. Shared by the outline, the differences and the merge's
// conflict lines, so all three name things alike.
class RecordWords
{
public:
    explicit RecordWords(const Project& project);

    const Project& project() const { return m_project; }

    // A stored text as the user sees it.
    QString shown(const QString& stored) const;

    // "After: 100", "On transport landing, unload units to group: Scouts, Player 1".
    template <typename Record> QString trigger(const Record& record) const
    {
        return triggerText(record.triggerKind, record.triggerArgCount, record.triggerArgTexts);
    }

    // "=" for operator 2, "" for none; "Not" or "" for a negation.
    static QString operatorShown(int index);
    static QString negationShown(int index);

    // "event 'Start' (ID 0)", "timer 'Every 5 seconds' (ID 0)".
    static QString eventName(const EventRecord& event);
    static QString timerName(const TimerRecord& timer);
    // "condition 2 'Structure count'", counted from 1 as the lists show them.
    static QString itemName(const char* what, int position, const CatalogueEntry& entry);
    // "sound 'alarm.wav' (ID 0)", "message 2 'The base is secure.'".
    static QString soundName(const SoundRecord& sound);
    static QString messageName(const MessageRecord& message);
    // "number 'Scouts' (ID 5)", "item 'Red' (ID 3) of list row 20 'Colours'".
    QString variableName(int row, const QString& text, int id) const;

    // The label of argument `k` of an entry, or "argument k+1" when it has none.
    static QString argumentLabel(const CatalogueEntry& entry, int k);

private:
    QString triggerText(qint16 kind, qint16 argCount, const std::array<QString, 3>& texts) const;

    const Project& m_project;
    ReferenceIndex m_index;
    mutable QuietPrompter m_prompter;
};

// 'text' in the quotes the tools' messages use.
QString quotedWords(const QString& text);

} // namespace tarvo
