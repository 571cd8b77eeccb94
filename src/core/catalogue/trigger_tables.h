#pragma once

#include <QString>
#include <QStringList>

namespace tarvo {

// One row of the trigger-kind table.
struct TriggerKind
{
    QString caption;
    QString keyword;
    QString separator;
    qint16 argCount = 0;
    qint16 firstArgType = 0;
    qint16 secondArgType = 0;
};

constexpr int kTriggerKindCount = 16;
// Kinds that have an option button on the trigger page.
constexpr int kTriggerOptionCount = 13;
constexpr int kOperatorCount = 7;
constexpr int kNegationCount = 2;

// Lookups; an index outside the table is a DataError.
const TriggerKind& triggerKind(int kind);
QString operatorText(int index);
QString negationText(int index);

// What the condition editor's operator and negation combos show.
QStringList operatorComboItems();
QStringList negationComboItems();

} // namespace tarvo
