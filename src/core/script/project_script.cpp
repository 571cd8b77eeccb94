#include "script/project_script.h"

#include "catalogue/reference_index.h"
#include "compile/droid_built.h"
#include "compile/resource_lists.h"
#include "compile/script_lookup.h"
#include "compile/script_writer.h"
#include "compile/step_log.h"
#include "base/checked.h"
#include "script/script_reader.h"

namespace tarvo::script {

namespace {

std::optional<EventScript> writtenEvent(
    const Project& project, int event, const ScriptLookup* lookup)
{
    if (project.events.at(event).disabled)
        return std::nullopt;
    StepLog log;
    return readEventText(WriteScript::eventBody(project, event, log, lookup));
}

} // namespace

EventScript readEventText(const QString& text)
{
    EventScript result;
    result.text = text;
    ScriptFile file = readScript(text);
    result.errors = std::move(file.errors);
    if (result.errors.empty() && file.events.size() == 1)
        result.body = std::move(file.events.front());
    else if (result.errors.empty())
        result.errors.push_back(
            {{1, 1}, QStringLiteral("expected one event body, found %1").arg(file.events.size())});
    return result;
}

ProjectScript readProjectScript(const Project& project)
{
    ProjectScript script;
    StepLog log;
    QString declarations = WriteScript::publicVariablesSection(project, log);
    if (usesGameOverMessages(project))
        declarations += WriteScript::winLoseDeclaration();
    declarations += WriteScript::privateVariablesSection(project, log)
        + WriteScript::triggerDeclarationSection(project, log)
        + WriteScript::eventDeclarationSection(project, log);
    ScriptFile file = readScript(declarations);
    script.declarationText = declarations;
    script.declarations = std::move(file.declarations);
    script.declarationErrors = std::move(file.errors);

    const ReferenceIndex references(project.tables);
    const ScriptLookup lookup(references);
    const int count = int(heldCount(project.eventCount, project.events));
    script.events.reserve(size_t(count));
    for (int e = 0; e < count; ++e)
        script.events.push_back(writtenEvent(project, e, &lookup));
    return script;
}

void rereadEvent(ProjectScript& script, const Project& project, int event)
{
    if (event < 0 || event >= int(script.events.size())
        || event >= heldCount(project.eventCount, project.events))
        return;
    // One event's references: scanning the rows it uses beats sorting them all.
    const ReferenceIndex references(project.tables, ReferenceIndex::Use::OneText);
    const ScriptLookup lookup(references);
    script.events[size_t(event)] = writtenEvent(project, event, &lookup);
}

} // namespace tarvo::script
