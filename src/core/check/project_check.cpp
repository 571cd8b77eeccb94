#include "check/project_check.h"

#include "catalogue/reference_index.h"
#include "catalogue/where_used.h"
#include "check/script_checks.h"
#include "compile/output_guard.h"
#include "compile/sound_source.h"
#include "base/file_error.h"
#include "document/project_file.h"

#include <QFileInfo>
#include <QHash>

namespace tarvo {

namespace {

using Severity = CheckIssue::Severity;
using Part = ProjectPlace::Part;

// Whether the script holds this argument: its event (or timer) and its
// condition or action are switched on.
bool compiled(const Project& project, const ProjectPlace& place)
{
    if (place.owner != ProjectPlace::Owner::Event)
        return true;
    const EventRecord& event = project.events.at(place.index);
    if (event.disabled)
        return false;
    if (place.part == Part::Condition || place.part == Part::ComparedValue)
        return !event.conditions.at(place.item).inactive;
    if (place.part == Part::Action)
        return !event.actions.at(place.item).inactive;
    return true;
}

// The five fixed numbers resolve to their own codes in arguments, whatever
// the numbers row holds.
bool fixedNumber(const ProjectPlace& place, const EncodedReference& reference)
{
    return place.part != Part::ComparedValue && reference.row == row::Integers && reference.id >= 0
        && reference.id <= 4;
}

} // namespace

namespace checks {

void unresolvedReferences(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    // One index answers every lookup: a row is sorted once, not searched per
    // reference.
    const ReferenceIndex index(project.tables);
    forEachArgument(project, [&](const ArgumentValue& argument) {
        if (!argument.value.contains(QLatin1String("&&")))
            return;
        const Severity severity
            = compiled(project, argument.place) ? Severity::Error : Severity::Warning;
        const int references = forEachReference(argument.value, [&](EncodedReference reference) {
            if (reference.row < 0 || reference.row >= kReferenceRowCount) {
                issues.append({severity, argument.place,
                    QStringLiteral("refers to list row %1, which does not exist")
                        .arg(reference.row)});
            } else if (!fixedNumber(argument.place, reference)
                && index.lastPositionOf(reference.row, reference.id) < 0) {
                issues.append({severity, argument.place,
                    QStringLiteral("refers to %1 %2, which does not exist")
                        .arg(itemKind(project.tables, reference.row))
                        .arg(reference.id)});
            }
        });
        // "&&&" and "&&$" in typed code are line and tab markers, not references.
        if (references == 0
            && QString(argument.value)
                   .remove(QLatin1String("&&&"))
                   .remove(QLatin1String("&&$"))
                   .contains(QLatin1String("&&")))
            issues.append({severity, argument.place,
                QStringLiteral("holds \"&&\" but no reference that can be read: \"%1\"")
                    .arg(argument.value)});
    });
}

void referencesToSwitchedOffEvents(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    const ReferenceList& events = project.tables[row::Events];
    const ReferenceIndex index(project.tables);
    forEachArgument(project, [&](const ArgumentValue& argument) {
        if (argument.place.part != Part::Action || argument.row != row::Events
            || !compiled(project, argument.place))
            return;
        forEachReference(argument.value, [&](EncodedReference reference) {
            if (reference.row != row::Events)
                return;
            // The script names the event by its code, "event" + its position.
            const int position = index.lastPositionOf(row::Events, reference.id);
            const QString code = position >= 0 ? events.Codes.value(position) : QString();
            bool isNumber = false;
            const int target = code.mid(5).toInt(&isNumber);
            if (!code.startsWith(QLatin1String("event")) || !isNumber || target < 0
                || target >= heldCount(project.eventCount, project.events)
                || !project.events.at(target).disabled)
                return;
            issues.append({Severity::Error, argument.place,
                QStringLiteral("refers to the event '%1', which is switched off; the game will "
                               "most probably crash")
                    .arg(project.events.at(target).name)});
        });
    });
}

void timerCount(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    if (project.timerCount > 1)
        issues.append({Severity::Error, {ProjectPlace::Owner::Timer, 1},
            QStringLiteral("the project has %1 timers, but a project file holds one timer only: "
                           "the saved file will not open again")
                .arg(project.timerCount)});
}

void duplicateIds(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    const auto check = [&](ProjectPlace::Owner owner, const auto& records, qint16 count,
                           const char* kind) {
        QHash<qint16, int> first;
        for (int i = 0; i < heldCount(count, records); ++i) {
            const auto found = first.constFind(records.at(i).id);
            if (found == first.constEnd()) {
                first.insert(records.at(i).id, i);
                continue;
            }
            issues.append({Severity::Error, {owner, i},
                QStringLiteral("has the same ID (%1) as the %2 '%3'; references reach only one "
                               "of them")
                    .arg(records.at(i).id)
                    .arg(QLatin1String(kind), records.at(*found).name)});
        }
    };
    check(ProjectPlace::Owner::Timer, project.timers, project.timerCount, "timer");
    check(ProjectPlace::Owner::Event, project.events, project.eventCount, "event");
}

void missingSoundFiles(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    const QStringList folders = sound_source::homeFolders(project, workspace.paths.programDir);
    for (int i = 0; i < heldCount(project.soundCount, project.sounds); ++i) {
        const QString path = soundFilePath(project, project.sounds.at(i));
        const QFileInfo info(path);
        const ProjectPlace place {ProjectPlace::Owner::Sound, i};
        if (!info.exists() && !info.isSymLink()) {
            issues.append({Severity::Warning, place,
                QStringLiteral("its file '%1' does not exist; the compile leaves it out")
                    .arg(path)});
            continue;
        }
        if (const QString problem = sound_source::problem(path, folders); !problem.isEmpty()) {
            issues.append({Severity::Error, place,
                QStringLiteral("its file '%1' is not read: %2; the compile leaves it out")
                    .arg(path, problem)});
        } else if (!sound_source::liesInside(path, folders)) {
            issues.append({Severity::Warning, place,
                QStringLiteral("its file '%1' lies outside the project's folder and the program "
                               "folder: this project will read a file outside its folders")
                    .arg(path)});
        }
    }
}

void unsavableTexts(const Workspace& workspace, QList<CheckIssue>& issues)
{
    for (const UnsavableText& text : tarvo::unsavableTexts(workspace.project))
        issues.append({Severity::Error, text.place,
            text.sentence + QStringLiteral("; the project cannot be saved")});
    const QString problem = checkOutputPaths(workspace.paths, workspace.project);
    if (!problem.isEmpty())
        issues.append({Severity::Error, {}, problem});
}

void emptyArguments(const Workspace& workspace, QList<CheckIssue>& issues)
{
    const Project& project = workspace.project;
    forEachArgument(project, [&](const ArgumentValue& argument) {
        const Part part = argument.place.part;
        // A free text may stay empty on purpose; a list choice may not.
        if ((part != Part::Condition && part != Part::Action) || argument.place.argument < 0
            || argument.row < 0 || !compiled(project, argument.place))
            return;
        if (argument.value.isEmpty())
            issues.append({Severity::Warning, argument.place, QStringLiteral("is empty")});
        else if (argument.value == QLatin1String("-1"))
            issues.append(
                {Severity::Warning, argument.place, QStringLiteral("has nothing chosen")});
    });
}

} // namespace checks

QList<CheckIssue> checkProject(const Workspace& workspace)
{
    QList<CheckIssue> issues;
    checks::unresolvedReferences(workspace, issues);
    checks::referencesToSwitchedOffEvents(workspace, issues);
    checks::timerCount(workspace, issues);
    checks::duplicateIds(workspace, issues);
    checks::missingSoundFiles(workspace, issues);
    checks::unsavableTexts(workspace, issues);
    checks::emptyArguments(workspace, issues);
    ScriptFacts facts;
    try {
        facts = scriptFacts(workspace);
    } catch (const FileError& error) {
        // A bad functions file: the script rules cannot run without it.
        issues.append({Severity::Error, {}, error.message()});
        return issues;
    }
    checks::unreadableScript(workspace, facts, issues);
    checks::undeclaredNames(workspace, facts, issues);
    checks::eventsThatNeverRun(workspace, facts, issues);
    checks::variablesNeverWritten(workspace, facts, issues);
    checks::variablesNeverUsed(workspace, facts, issues);
    checks::missionWithoutEnd(workspace, facts, issues);
    checks::eventsArmingOnlyThemselves(workspace, facts, issues);
    return issues;
}

} // namespace tarvo
