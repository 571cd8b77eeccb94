#pragma once

#include "catalogue/workspace.h"

namespace tarvo {

// What the condition editor holds when "&Add" or "&Update" is pressed: the
// kind (a condition catalogue index) and the texts as the user sees them.
struct ConditionInput
{
    int kind = 0;
    QStringList argumentTexts; // one per argument slot, display form
    int operatorIndex = 0;
    QString comparedText; // display form
    int negation = 0;
};

// Stores a condition into `event`: a new one at the end (`position` -1) or over
// the one at `position`. The condition is a fresh copy of its catalogue entry
// with the typed texts encoded under each argument's list, the compared value
// under the kind's value type; it starts active. An update keeps the
// condition's comment. Returns the condition's position.
int StoreCondition(
    Workspace& workspace, EventRecord& event, int position, const ConditionInput& input);

// The condition's values in display form, for loading it into the editor.
ConditionInput conditionInputOf(Workspace& workspace, const ConditionRecord& condition);

// Removes condition `position`; later ones move down one place.
void DeleteCondition(EventRecord& event, int position);

// Appends a full copy of condition `position` that starts active; returns
// the copy's position.
int CopyCondition(EventRecord& event, int position);

// A list tick: the condition is active exactly when its line is ticked.
void setConditionActive(EventRecord& event, int position, bool active);

} // namespace tarvo
