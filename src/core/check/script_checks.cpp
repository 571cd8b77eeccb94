#include "check/script_checks.h"

#include "compile/script_renderers.h"
#include "catalogue/trigger_tables.h"
#include "base/checked.h"
#include "script/event_pieces.h"
#include "script/script_lexer.h"
#include "script/script_reader.h"

namespace tarvo {

namespace {

using Severity = CheckIssue::Severity;
using Part = ProjectPlace::Part;
using script::EventPiece;

// A piece of script on one line, short enough for a sentence.
QString shownScript(const QString& text)
{
    QString line = text.simplified();
    if (line.size() > 80)
        line = line.left(77) + QStringLiteral("...");
    return u'"' + line + u'"';
}

qsizetype offsetOf(const QString& text, script::TextPosition position)
{
    qsizetype offset = 0;
    for (int line = 1; line < position.line && offset >= 0; ++line) {
        offset = text.indexOf(u'\n', offset);
        if (offset >= 0)
            ++offset;
    }
    return offset < 0 ? text.size() : qMin(text.size(), offset + position.column - 1);
}

// The argument behind a fault: an empty one, else the one written where the
// reader stopped.
int argumentBehind(const QStringList& arguments, const QString& text, qsizetype at)
{
    for (int a = 0; a < arguments.size(); ++a)
        if (arguments.at(a).trimmed().isEmpty())
            return a;
    for (int a = 0; a < arguments.size(); ++a)
        if (!arguments.at(a).isEmpty() && QStringView(text).mid(at).startsWith(arguments.at(a)))
            return a;
    return -1;
}

QStringList renderedArguments(const Project& project, const CatalogueEntry& entry)
{
    QStringList texts;
    for (int a = 0; a < heldCount(entry.ArgCount, entry.Args); ++a) {
        try {
            texts << WriteScript::renderArgument(project.tables, entry.Args.at(a).Value);
        } catch (const std::exception&) {
            texts << QString();
        }
    }
    return texts;
}

QStringList triggerArguments(const Project& project, const auto& record)
{
    QStringList texts;
    const int count = qBound(0, int(triggerKind(record.triggerKind).argCount), 3);
    for (int a = 0; a < count; ++a)
        texts << WriteScript::renderArgument(project.tables, record.triggerArgTexts[size_t(a)]);
    return texts;
}

void readPiece(const EventPiece& piece)
{
    switch (piece.part) {
    case EventPiece::Part::Trigger:
        script::readTrigger(piece.text);
        break;
    case EventPiece::Part::Condition:
        script::readCondition(piece.text);
        break;
    case EventPiece::Part::Action:
        script::readActions(piece.text);
        break;
    }
}

// The place of an event's piece, with the argument behind a fault.
ProjectPlace piecePlace(
    const Project& project, int event, const EventPiece& piece, const script::SyntaxError* error)
{
    const EventRecord& record = project.events.at(event);
    ProjectPlace place {ProjectPlace::Owner::Event, event};
    QStringList arguments;
    switch (piece.part) {
    case EventPiece::Part::Trigger:
        place.part = Part::Trigger;
        if (error)
            arguments = triggerArguments(project, record);
        break;
    case EventPiece::Part::Condition:
        place.part = Part::Condition;
        if (error)
            arguments = renderedArguments(project, record.conditions.at(piece.item));
        break;
    case EventPiece::Part::Action:
        place.part = Part::Action;
        if (error)
            arguments = renderedArguments(project, record.actions.at(piece.item));
        break;
    }
    place.item = piece.item;
    if (error)
        place.argument
            = argumentBehind(arguments, piece.text, offsetOf(piece.text, error->position));
    return place;
}

QString eventList(const Project& project, const QList<int>& events)
{
    QStringList names;
    for (const int e : events)
        names << u'\'' + project.events.at(e).name + u'\'';
    if (names.size() <= 1)
        return names.join(QString());
    const QString last = names.takeLast();
    return names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

ProjectPlace variablePlace(const analysis::VariableAnalysis& variable)
{
    ProjectPlace place {ProjectPlace::Owner::Variable, variable.position};
    place.row = variable.row;
    return place;
}

bool usesName(const QString& text, const QString& name)
{
    for (const script::Token& token : script::tokenize(text))
        if (token.kind == script::Token::Kind::Name && token.text == name)
            return true;
    return false;
}

// A reference the compile could not resolve stays in the script as "&&",
// or as what is left of its markers: the reference rule reports it already,
// at the same place.
bool holdsReference(const QString& text)
{
    return text.contains(QLatin1String("&&")) || text.contains(QLatin1String("$$"))
        || text.contains(u'\u00a7');
}

// The argument of a condition or action whose script text uses `name`.
int argumentNaming(const Project& project, const ProjectPlace& place, const QString& name)
{
    const EventRecord& event = project.events.at(place.index);
    const CatalogueEntry* entry = nullptr;
    if (place.part == Part::Condition)
        entry = &event.conditions.at(place.item);
    else if (place.part == Part::Action)
        entry = &event.actions.at(place.item);
    if (!entry)
        return -1;
    const QStringList arguments = renderedArguments(project, *entry);
    for (int a = 0; a < arguments.size(); ++a)
        if (usesName(arguments.at(a), name))
            return a;
    return -1;
}

} // namespace

ScriptFacts scriptFacts(const Workspace& workspace)
{
    ScriptFacts facts {script::readProjectScript(workspace.project),
        script::FunctionTable::forProgramFolder(workspace.paths.programDir), {}};
    facts.analysis = analysis::analyseMission(workspace, facts.script, facts.functions);
    return facts;
}

namespace checks {

void unreadableScript(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    for (const script::SyntaxError& error : facts.script.declarationErrors) {
        // Only the timers' declarations hold the author's texts.
        const int timer = script::ScriptNames(project).timerIndex(error.event);
        if (timer < 0) {
            // A list row of the catalogue whose declaration comes out wrong;
            // the line above it names the list.
            const QStringList lines = facts.script.declarationText.split(u'\n');
            const QString line = lines.value(error.position.line - 1);
            const QString list = lines.value(error.position.line - 2).trimmed().mid(2);
            issues.append({Severity::Error, {},
                QStringLiteral("the compile declares the list '%1' as %2, which the game cannot "
                               "read: %3")
                    .arg(list, shownScript(line), error.message)});
            continue;
        }
        const QString trigger = WriteScript::timerTriggerText(project, timer);
        if (holdsReference(trigger))
            continue;
        ProjectPlace place {ProjectPlace::Owner::Timer, timer, -1, Part::Trigger};
        try {
            script::readTrigger(trigger);
        } catch (const script::SyntaxError& inTrigger) {
            place.argument = argumentBehind(triggerArguments(project, project.timers.at(timer)),
                trigger, offsetOf(trigger, inTrigger.position));
        }
        issues.append({Severity::Error, place,
            QStringLiteral("the compile writes %1 here, which the game cannot read: %2")
                .arg(shownScript(error.event + u'(' + trigger + u')'), error.message)});
    }
    for (int e = 0; e < int(facts.script.events.size()); ++e) {
        const auto& event = facts.script.events[size_t(e)];
        if (!event || event->body)
            continue;
        bool named = false;
        for (const EventPiece& piece : script::eventPieces(project, e)) {
            if (holdsReference(piece.text))
                continue;
            try {
                readPiece(piece);
            } catch (const script::SyntaxError& error) {
                named = true;
                issues.append({Severity::Error, piecePlace(project, e, piece, &error),
                    QStringLiteral("the compile writes %1 here, which the game cannot read: %2")
                        .arg(shownScript(piece.part == EventPiece::Part::Trigger
                                     ? QStringLiteral("event event%1(%2)").arg(e).arg(piece.text)
                                     : piece.text),
                            error.message)});
            }
        }
        if (!named && !event->errors.empty() && !holdsReference(event->text))
            issues.append({Severity::Error, {ProjectPlace::Owner::Event, e},
                QStringLiteral("the game cannot read the script of this event: %1 (line %2 of "
                               "its text)")
                    .arg(event->errors.front().message)
                    .arg(event->errors.front().position.line)});
    }
}

void undeclaredNames(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    for (int e = 0; e < int(facts.analysis.events.size()); ++e) {
        const analysis::EventAnalysis& event = facts.analysis.events[size_t(e)];
        if (!event.inScript || event.facts.unknownNames.isEmpty())
            continue;
        const std::vector<EventPiece> pieces = script::eventPieces(project, e);
        for (const QString& name : event.facts.unknownNames) {
            ProjectPlace place {ProjectPlace::Owner::Event, e};
            for (const EventPiece& piece : pieces) {
                if (usesName(piece.text, name)) {
                    place = piecePlace(project, e, piece, nullptr);
                    place.argument = argumentNaming(project, place, name);
                    break;
                }
            }
            issues.append({Severity::Warning, place,
                QStringLiteral("uses the name \"%1\", which the script does not declare and "
                               "the functions file does not know")
                    .arg(name)});
        }
    }
}

void eventsThatNeverRun(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    for (int e = 0; e < int(facts.analysis.events.size()); ++e) {
        const analysis::EventAnalysis& event = facts.analysis.events[size_t(e)];
        if (!event.inScript || event.canRun)
            continue;
        const ProjectPlace place {ProjectPlace::Owner::Event, e};
        if (event.armedBy.isEmpty()) {
            issues.append({Severity::Warning, place,
                QStringLiteral("can never run: its trigger is \"inactive\" and no event "
                               "switches it on")});
        } else {
            issues.append({Severity::Error, place,
                QStringLiteral("can never run: only %1 %2 it on, and %3 never run %4")
                    .arg(eventList(project, event.armedBy),
                        event.armedBy.size() == 1 ? QStringLiteral("switches")
                                                  : QStringLiteral("switch"),
                        event.armedBy.size() == 1 ? QStringLiteral("that event can")
                                                  : QStringLiteral("those events can"),
                        event.armedBy.size() == 1 ? QStringLiteral("itself")
                                                  : QStringLiteral("themselves"))});
        }
    }
}

void variablesNeverWritten(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    for (const analysis::VariableAnalysis& variable : facts.analysis.variables) {
        if (variable.kind == analysis::VariableAnalysis::Kind::Group || !variable.writers.isEmpty()
            || variable.readers.isEmpty())
            continue;
        issues.append({Severity::Warning, variablePlace(variable),
            QStringLiteral("is tested by %1 but no action ever sets it: its start value is all "
                           "it will ever hold")
                .arg(eventList(workspace.project, variable.readers))});
    }
}

void variablesNeverUsed(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    for (const analysis::VariableAnalysis& variable : facts.analysis.variables) {
        if (variable.kind == analysis::VariableAnalysis::Kind::Group || variable.writers.isEmpty()
            || !variable.readers.isEmpty())
            continue;
        issues.append({Severity::Information, variablePlace(variable),
            QStringLiteral("is set by %1 but never used")
                .arg(eventList(workspace.project, variable.writers))});
    }
}

void missionWithoutEnd(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    Q_UNUSED(workspace);
    if (!facts.analysis.canEnd())
        issues.append({Severity::Information, {},
            QStringLiteral("no event that can run wins or loses the mission")});
}

void eventsArmingOnlyThemselves(
    const Workspace& workspace, const ScriptFacts& facts, QList<CheckIssue>& issues)
{
    Q_UNUSED(workspace);
    for (int e = 0; e < int(facts.analysis.events.size()); ++e) {
        const analysis::EventAnalysis& event = facts.analysis.events[size_t(e)];
        if (event.inScript && event.armedBy == QList<int> {e})
            issues.append({Severity::Information, {ProjectPlace::Owner::Event, e},
                QStringLiteral("only this event itself switches it on")});
    }
}

} // namespace checks

} // namespace tarvo
