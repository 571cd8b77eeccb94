#include "script/event_pieces.h"

#include "compile/script_renderers.h"
#include "catalogue/trigger_tables.h"
#include "base/checked.h"

namespace tarvo::script {

namespace {

// The condition's text as the writer puts it inside "if(...)".
QString conditionText(const Project& project, int event, int item)
{
    const ConditionRecord& condition
        = at(at(project.events, event, "events").conditions, item, "conditions");
    QString text;
    switch (condition.CodeMode) {
    case 0:
        text = WriteScript::conditionCall(project, event, item);
        break;
    case 1:
        text = WriteScript::conditionValue(project, event, item);
        break;
    default:
        text = WriteScript::conditionCode(project, event, item);
    }
    if (condition.ResultB != 17)
        text += WriteScript::comparisonText(project, event, item);
    return negationText(condition.negation) + text;
}

} // namespace

std::vector<EventPiece> eventPieces(const Project& project, int event)
{
    std::vector<EventPiece> pieces;
    const EventRecord& record = at(project.events, event, "events");
    const auto add = [&](EventPiece::Part part, int item, const auto& write) {
        try {
            pieces.push_back({part, item, write()});
        } catch (const std::exception&) {
            // Left out of the script too; the compile's log says why.
        }
    };
    add(EventPiece::Part::Trigger, -1,
        [&] { return WriteScript::eventTriggerText(project, event); });
    for (int c = 0; c < heldCount(record.conditionCount, record.conditions); ++c)
        if (!record.conditions.at(c).inactive)
            add(EventPiece::Part::Condition, c, [&] { return conditionText(project, event, c); });
    for (int a = 0; a < heldCount(record.actionCount, record.actions); ++a) {
        const ActionRecord& action = record.actions.at(a);
        if (action.inactive)
            continue;
        add(EventPiece::Part::Action, a, [&] {
            return action.CodeMode == 0 ? WriteScript::actionCall(project, event, a)
                                        : WriteScript::actionCode(project, event, a);
        });
    }
    return pieces;
}

} // namespace tarvo::script
