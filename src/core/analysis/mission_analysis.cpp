#include "analysis/mission_analysis.h"

#include "analysis/known_names.h"
#include "base/checked.h"
#include "script/event_pieces.h"
#include "script/script_reader.h"

#include <QMap>

namespace tarvo::analysis {

namespace {

// Facts from the pieces that read alone, for an event whose whole text does
// not: one broken action should not hide whom the others switch on.
EventFacts factsFromPieces(const Project& project, int event,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known)
{
    EventFacts facts;
    for (const script::EventPiece& piece : script::eventPieces(project, event)) {
        try {
            switch (piece.part) {
            case script::EventPiece::Part::Trigger:
                setTriggerFacts(facts, script::readTrigger(piece.text), known);
                break;
            case script::EventPiece::Part::Condition:
                addConditionFacts(
                    facts, script::readCondition(piece.text), functions, names, known);
                break;
            case script::EventPiece::Part::Action:
                addStatementFacts(facts, script::readActions(piece.text), functions, names, known);
                break;
            }
        } catch (const script::SyntaxError&) {
            // Reported by the check; the rest still counts.
        }
    }
    return facts;
}

std::optional<VariableAnalysis::Kind> variableKind(const ReferenceList& list, int row)
{
    if (list.Scope == 0)
        return std::nullopt;
    if (row == row::Flags || list.ValueType == QLatin1String("BOOL"))
        return VariableAnalysis::Kind::Flag;
    if (row == row::Groups || list.ValueType == QLatin1String("GROUP"))
        return VariableAnalysis::Kind::Group;
    if (list.ValueType == QLatin1String("INT"))
        return VariableAnalysis::Kind::Number;
    return std::nullopt;
}

} // namespace

bool MissionAnalysis::canEnd() const
{
    for (const EventAnalysis& event : events)
        if (event.canRun && !event.facts.ends.isEmpty())
            return true;
    return false;
}

EventAnalysis eventAnalysis(const Project& project, int event, const script::ProjectScript& script,
    const script::FunctionTable& functions, const script::ScriptNames& names,
    const KnownNames& known)
{
    EventAnalysis result;
    if (event < 0 || size_t(event) >= script.events.size() || !script.events[size_t(event)])
        return result;
    result.inScript = true;
    const script::EventScript& text = *script.events[size_t(event)];
    result.read = text.body.has_value();
    result.facts = result.read ? eventFacts(*text.body, functions, names, known)
                               : factsFromPieces(project, event, functions, names, known);
    return result;
}

void findReachability(std::vector<EventAnalysis>& events)
{
    const int count = int(events.size());
    for (EventAnalysis& event : events) {
        event.armedBy.clear();
        event.disarmedBy.clear();
        event.canRun = false;
    }
    for (int e = 0; e < count; ++e) {
        if (!events[size_t(e)].inScript)
            continue;
        for (const Arming& arming : events[size_t(e)].facts.arms) {
            if (arming.target < 0 || arming.target >= count
                || !events[size_t(arming.target)].inScript)
                continue;
            QList<int>& by = arming.disarms() ? events[size_t(arming.target)].disarmedBy
                                              : events[size_t(arming.target)].armedBy;
            if (!by.contains(e))
                by.append(e);
        }
    }
    // From the events whose own trigger starts them, along the arms.
    std::vector<int> work;
    for (int e = 0; e < count; ++e) {
        EventAnalysis& event = events[size_t(e)];
        if (event.inScript && event.facts.trigger != QLatin1String("inactive")) {
            event.canRun = true;
            work.push_back(e);
        }
    }
    while (!work.empty()) {
        const int from = work.back();
        work.pop_back();
        for (const Arming& arming : events[size_t(from)].facts.arms) {
            if (arming.disarms() || arming.target < 0 || arming.target >= count)
                continue;
            EventAnalysis& target = events[size_t(arming.target)];
            if (target.inScript && !target.canRun) {
                target.canRun = true;
                work.push_back(arming.target);
            }
        }
    }
}

QList<VariableAnalysis> variableAnalysis(const Project& project,
    const std::vector<EventAnalysis>& events, const script::ScriptNames& names)
{
    QMap<std::pair<int, int>, VariableAnalysis> found;
    const auto note = [&](const QString& code, int event, bool writes) {
        const script::NamedItem* item = names.find(code);
        if (!item || item->kind != script::NamedItem::Kind::Variable)
            return;
        const auto kind = variableKind(project.tables[size_t(item->row)], item->row);
        if (!kind)
            return;
        VariableAnalysis& variable = found[{item->row, item->index}];
        if (variable.code.isEmpty())
            variable = {code, *kind, item->row, item->index, item->name, {}, {}};
        QList<int>& list = writes ? variable.writers : variable.readers;
        if (!list.contains(event))
            list.append(event);
    };
    for (int e = 0; e < int(events.size()); ++e) {
        for (const QString& code : events[size_t(e)].facts.writes)
            note(code, e, true);
        for (const QString& code : events[size_t(e)].facts.reads)
            note(code, e, false);
    }
    return found.values();
}

MissionAnalysis analyseMission(const Workspace& workspace, const script::ProjectScript& script,
    const script::FunctionTable& functions)
{
    const Project& project = workspace.project;
    const script::ScriptNames names(project);
    const KnownNames known(workspace, script.declarations, functions);
    MissionAnalysis analysis;
    const int count = int(script.events.size());
    analysis.events.reserve(size_t(count));
    for (int e = 0; e < count; ++e)
        analysis.events.push_back(eventAnalysis(project, e, script, functions, names, known));
    findReachability(analysis.events);
    analysis.variables = variableAnalysis(project, analysis.events, names);
    return analysis;
}

MissionAnalysis analyseMission(const Workspace& workspace)
{
    const script::FunctionTable functions
        = script::FunctionTable::forProgramFolder(workspace.paths.programDir);
    return analyseMission(workspace, script::readProjectScript(workspace.project), functions);
}

QString variableKindWord(VariableAnalysis::Kind kind)
{
    switch (kind) {
    case VariableAnalysis::Kind::Flag:
        return QStringLiteral("flag");
    case VariableAnalysis::Kind::Group:
        return QStringLiteral("group");
    case VariableAnalysis::Kind::Number:
        break;
    }
    return QStringLiteral("number");
}

} // namespace tarvo::analysis
