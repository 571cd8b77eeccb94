#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

namespace tarvo {

// One argument of a condition or action kind; in a copied record, `Value`
// holds the stored argument text and `ListRef` the row it offers.
struct ArgumentSlot
{
    qint16 ValueKind = 0;
    QString Value;
    QString Hint;
    QString Label;
    qint16 ListRef = 0;
    bool UseAltBox = false;

    friend bool operator==(const ArgumentSlot&, const ArgumentSlot&) = default;
};

// An argument of a condition or action as the project holds it.
using ArgumentRecord = ArgumentSlot;

// One condition kind or action kind of a catalogue.
struct CatalogueEntry
{
    qint16 Kind = 0;
    QList<ArgumentSlot> Args;
    QString Title;
    QString Description;
    QString CallName;
    qint16 ResultB = 0;
    qint16 ResultA = 0;
    QString ResultText;
    qint16 ArgCount = 0;
    qint16 CodeMode = 0;
    QStringList CodeLines;
    qint16 CodeLineCount = 0;

    friend bool operator==(const CatalogueEntry&, const CatalogueEntry&) = default;
};

// A condition: a whole copy of its catalogue entry (`Kind` is the catalogue
// index, `Args` the arguments, `ResultB` the value type, `ArgCount` the
// argument count, `CodeMode` the form) plus the values it owns.
struct ConditionRecord : CatalogueEntry
{
    qint16 operatorIndex = 0;
    QString comparisonValue;
    qint16 negation = 0;
    bool inactive = false;
    QString comment;

    friend bool operator==(const ConditionRecord&, const ConditionRecord&) = default;
};

// An action: a whole copy of its catalogue entry plus the values it owns.
struct ActionRecord : CatalogueEntry
{
    QString text;
    bool inactive = false;
    QString comment;

    friend bool operator==(const ActionRecord&, const ActionRecord&) = default;
};

struct EventRecord
{
    QList<ConditionRecord> conditions;
    QList<ActionRecord> actions;
    QString name;
    QString comment;
    qint16 triggerKind = 0;
    std::array<QString, 3> triggerArgTexts;
    std::array<qint16, 3> triggerArgTypes = {0, 0, 0};
    qint16 triggerArgCount = 0;
    qint16 actionCount = 0;
    qint16 conditionCount = 0;
    qint16 id = 0;
    bool disabled = false;

    friend bool operator==(const EventRecord&, const EventRecord&) = default;
};

struct TimerRecord
{
    qint16 triggerKind = 0;
    std::array<QString, 3> triggerArgTexts;
    std::array<qint16, 3> triggerArgTypes = {0, 0, 0};
    QString name;
    QString comment;
    qint16 id = 0;
    qint16 triggerArgCount = 0;

    friend bool operator==(const TimerRecord&, const TimerRecord&) = default;
};

struct SoundRecord
{
    QString firstText; // bare file name, shown in the list
    QString secondText; // full path of the wav file
    qint16 id = 0;
    QString thirdText; // bare file name again

    friend bool operator==(const SoundRecord&, const SoundRecord&) = default;
};

struct MessageRecord
{
    QString text;
    qint16 id = 0;

    friend bool operator==(const MessageRecord&, const MessageRecord&) = default;
};

} // namespace tarvo
