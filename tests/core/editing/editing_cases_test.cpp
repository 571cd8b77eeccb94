// The editing rules as data: each folder of tests/data/editing holds the
// steps a user takes (steps.txt) and what must come of them (expected.txt):
// every prompt and error in order, then the project file as it would be
// saved, the events and timers rows, the lines of the timers list, the counts
// of the status bar and the project folders.
//
// Steps, one a line, in the dialect of case_files.h. Set-up steps build the
// project (event, timer, action, item, message, condition-note, action-note,
// action-claims, catalogue, its line breaks written as CR LF); answer and input queue
// the answers to the questions; the others are the commands of `kCommands`
// below, each named after the routine it calls. A command logs what it
// returns when the project does not show it.
#include "case_files.h"
#include "catalogue/project_lists.h"
#include "document/project_commands.h"
#include "document/project_file.h"
#include "editing/action_ops.h"
#include "editing/condition_ops.h"
#include "editing/editor_kinds.h"
#include "editing/event_block.h"
#include "editing/event_list.h"
#include "editing/event_title.h"
#include "editing/timer_list.h"
#include "editing/wizard_ops.h"
#include "program_folder.h"
#include "project_builder.h"
#include "test_paths.h"

#include <QDir>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <map>

using namespace tarvo;

namespace {

struct Run
{
    QTemporaryDir dir;
    std::unique_ptr<ProjectBuilder> build;
    QStringList log;

    Workspace& workspace() { return build->workspace; }
    Project& project() { return build->workspace.project; }
    Prompter& prompter() { return build->prompter; }
};

using Fields = QStringList;
using Command = std::function<void(Run&, const Fields&)>;

int number(const Fields& f, int i)
{
    return f.value(i).toInt();
}

QList<int> lines(const Fields& f, int i)
{
    QList<int> result;
    for (const QString& line : f.value(i).split(u',', Qt::SkipEmptyParts))
        result.append(line.toInt());
    return result;
}

void logTick(Run& run, const Fields& f, bool ticked)
{
    static const char* const outcomes[] = {"ignored", "enabled", "disabled", "refused"};
    const int item = number(f, 0);
    const TickOutcome outcome
        = setEventTicked(run.workspace(), item, ticked, run.project().events.value(item).name);
    run.log.append(QLatin1String(outcomes[int(outcome)]));
}

StoredTrigger trigger(Run& run, const Fields& f, int from)
{
    return storedTrigger(run.project().tables, number(f, from), f.value(from + 1),
        f.value(from + 2), run.prompter());
}

const std::map<QString, Command> kCommands = {
    {"event",
        [](Run& r, const Fields& f) {
            r.build->addEvent(f.value(0), f.value(1) == "off", f.size() > 2 ? number(f, 2) : -1);
        }},
    {"message", [](Run& r, const Fields& f) { r.build->addMessage(f.value(0)); }},
    {"condition-note",
        [](Run& r, const Fields& f) {
            r.project().events[number(f, 0)].conditions[number(f, 1)].comment = f.value(2);
        }},
    {"action-note",
        [](Run& r, const Fields& f) {
            r.project().events[number(f, 0)].actions[number(f, 1)].comment = f.value(2);
        }},
    {"timer", [](Run& r, const Fields& f) { r.build->addTimer(f.value(0), number(f, 1)); }},
    {"action-claims", // a damaged file: the event claims more actions than it holds
        [](Run& r, const Fields& f) {
            r.project().events[number(f, 0)].actionCount = number(f, 1);
        }},
    {"action",
        [](Run& r, const Fields& f) { r.build->addAction(number(f, 0), f.value(1), f.mid(2)); }},
    {"item",
        [](Run& r, const Fields& f) {
            r.build->addItem(number(f, 0), f.value(1), number(f, 2), f.value(3));
        }},
    {"answer",
        [](Run& r, const Fields& f) {
            r.build->prompter.answers.append(
                f.value(0) == "Yes" ? Prompter::Answer::Yes : Prompter::Answer::No);
        }},
    {"input", [](Run& r, const Fields& f) { r.build->prompter.inputs.append(f.value(0)); }},
    {"tick", [](Run& r, const Fields& f) { logTick(r, f, true); }},
    {"untick", [](Run& r, const Fields& f) { logTick(r, f, false); }},
    {"rename-event",
        [](Run& r, const Fields& f) { renameEvent(r.project(), number(f, 0), r.prompter()); }},
    {"rename-timer",
        [](Run& r, const Fields& f) { renameTimer(r.project(), number(f, 0), r.prompter()); }},
    {"delete-event", [](Run& r, const Fields& f) { DeleteEvent(r.project(), number(f, 0)); }},
    {"delete-timer", [](Run& r, const Fields& f) { DeleteTimer(r.project(), number(f, 0)); }},
    {"copy-event", [](Run& r, const Fields& f) { copyEventCommand(r.workspace(), number(f, 0)); }},
    {"move-event",
        [](Run& r, const Fields& f) {
            if (moveEvent(r.project(), number(f, 0), number(f, 1)) < 0)
                r.log.append(QStringLiteral("not moved"));
        }},
    // Commands on several lines: the lines as "0,2,3".
    {"delete-events", [](Run& r, const Fields& f) { deleteEvents(r.project(), lines(f, 0)); }},
    {"tick-events",
        [](Run& r, const Fields& f) {
            const BlockTickReport report
                = setEventsTicked(r.workspace(), lines(f, 0), f.value(1) == "on");
            r.log.append(QStringLiteral("switched %1").arg(report.changed));
        }},
    {"move-events",
        [](Run& r, const Fields& f) {
            QStringList moved;
            for (const int line : moveEvents(r.project(), lines(f, 0), number(f, 1)))
                moved.append(QString::number(line));
            r.log.append(moved.isEmpty() ? QStringLiteral("not moved")
                                         : QStringLiteral("moved to ") + moved.join(u','));
        }},
    {"comment",
        [](Run& r, const Fields& f) {
            Project& p = r.project();
            const qint16 line = qint16(number(f, 1));
            CommitComment(p, {qint16(number(f, 0)), line, line}, f.value(2));
        }},
    {"condition",
        [](Run& r, const Fields& f) {
            ConditionInput input {number(f, 2), f.mid(6), number(f, 3), f.value(4), number(f, 5)};
            StoreCondition(r.workspace(), r.project().events[number(f, 0)], number(f, 1), input);
        }},
    {"condition-copy",
        [](Run& r, const Fields& f) {
            CopyCondition(r.project().events[number(f, 0)], number(f, 1));
        }},
    {"condition-delete",
        [](Run& r, const Fields& f) {
            DeleteCondition(r.project().events[number(f, 0)], number(f, 1));
        }},
    {"condition-active",
        [](Run& r, const Fields& f) {
            setConditionActive(r.project().events[number(f, 0)], number(f, 1), number(f, 2));
        }},
    {"condition-shown",
        [](Run& r, const Fields& f) {
            const ConditionInput input = conditionInputOf(
                r.workspace(), r.project().events[number(f, 0)].conditions.at(number(f, 1)));
            r.log.append(QStringLiteral("shown: %1 | %2 | %3 | %4 | %5")
                             .arg(input.kind)
                             .arg(input.argumentTexts.join(u','))
                             .arg(input.operatorIndex)
                             .arg(input.comparedText)
                             .arg(input.negation));
        }},
    {"action-store",
        [](Run& r, const Fields& f) {
            EventRecord& event = r.project().events[number(f, 0)];
            const int position = number(f, 1);
            StoreAction(r.workspace(), event, number(f, 2),
                position < 0 ? event.actionCount : position, position >= 0, f.mid(3));
        }},
    {"action-copy",
        [](Run& r, const Fields& f) {
            CopyAction(r.project().events[number(f, 0)], number(f, 1));
        }},
    {"action-delete",
        [](Run& r, const Fields& f) {
            DeleteAction(r.project().events[number(f, 0)], number(f, 1));
        }},
    {"action-move",
        [](Run& r, const Fields& f) {
            EventRecord& event = r.project().events[number(f, 0)];
            const bool moved = number(f, 2) < 0 ? MoveActionUp(event, number(f, 1))
                                                : MoveActionDown(event, number(f, 1));
            if (!moved)
                r.log.append(QStringLiteral("not moved"));
        }},
    {"action-active",
        [](Run& r, const Fields& f) {
            setActionActive(r.project().events[number(f, 0)], number(f, 1), number(f, 2));
        }},
    {"action-shown",
        [](Run& r, const Fields& f) {
            r.log.append(QStringLiteral("shown: ")
                + actionArgumentTexts(
                    r.workspace(), r.project().events[number(f, 0)].actions.at(number(f, 1)))
                      .join(u','));
        }},
    {"new-event",
        [](Run& r, const Fields&) {
            const int slot = prepareNewEventSlot(r.project());
            if (!AskEventTitle(r.project(), slot, false, r.prompter()))
                r.log.append(QStringLiteral("no title"));
        }},
    {"finish-new",
        [](Run& r, const Fields& f) {
            FinishEventWizard(
                r.project(), WizardMode::NewEvent, number(f, 0), trigger(r, f, 1), r.prompter());
        }},
    {"finish-edit",
        [](Run& r, const Fields& f) {
            FinishEventWizard(
                r.project(), WizardMode::EditEvent, number(f, 0), trigger(r, f, 1), r.prompter());
        }},
    {"finish-timer",
        [](Run& r, const Fields& f) {
            finishTimerEdit(r.project(), number(f, 0), trigger(r, f, 1));
        }},
    {"log-timers",
        [](Run& r, const Fields&) {
            QStringList names;
            for (int i = 0; i < r.project().timerCount; ++i)
                names.append(r.project().timers.at(i).name);
            r.log.append(QStringLiteral("timers %1 | list %2")
                             .arg(names.join(u','), r.project().timerListLines.join(u',')));
        }},
    {"trigger",
        [](Run& r, const Fields& f) {
            const StoredTrigger t = trigger(r, f, 0);
            r.log.append(QStringLiteral("trigger %1 | %2 | %3 | %4 | %5 %6 %7 | %8")
                             .arg(t.kind)
                             .arg(t.texts[0], t.texts[1], t.texts[2])
                             .arg(t.types[0])
                             .arg(t.types[1])
                             .arg(t.types[2])
                             .arg(t.argCount));
        }},
    {"check-name",
        [](Run& r, const Fields& f) {
            r.log.append(
                CheckProjectName(r.workspace(), f.value(0)) ? "name accepted" : "name refused");
        }},
    {"names",
        [](Run& r, const Fields& f) {
            const QString& text = f.value(0);
            r.log.append(QStringLiteral("from file: %1 | safe folder: %2 | made: %3 | caption: %4")
                             .arg(projectNameFromFile(text))
                             .arg(isSafeFolderName(text))
                             .arg(createProjectFolder(r.workspace().paths, text))
                             .arg(windowCaption(text)));
        }},
    {"catalogue",
        [](Run& r, const Fields& f) {
            writeBytes(r.dir.filePath("program/") + f.value(0),
                QString(f.value(1)).replace(u'\n', QStringLiteral("\r\n")).toLatin1());
        }},
    {"editable",
        [](Run& r, const Fields& f) {
            const bool action = f.value(0) == "action";
            const Catalogue& catalogue
                = action ? r.workspace().actionCatalogue : r.workspace().conditionCatalogue;
            checkEditableKind(catalogue.at(number(f, 1)), number(f, 1),
                action ? KindOf::Action : KindOf::Condition);
            r.log.append(QStringLiteral("editable: ") + catalogue.at(number(f, 1)).Title);
        }},
    {"new", [](Run& r, const Fields&) { newProject(r.build->document); }},
    {"open",
        [](Run& r, const Fields& f) {
            openProjectFile(r.build->document, testDataDir() + "/editing/" + f.value(0));
        }},
    {"disk",
        [](Run& r, const Fields& f) {
            const QByteArray bytes = readBytes(r.dir.filePath(f.value(0)));
            r.log.append(QStringLiteral("disk: ")
                + QString::fromLatin1(bytes.left(bytes.indexOf("<sn>")))
                      .replace(QStringLiteral("\r\n"), QStringLiteral(" / ")));
        }},
    {"save-as",
        [](Run& r, const Fields& f) {
            r.build->prompter.fileNames.append(
                f.value(0).isEmpty() ? QString() : r.dir.filePath(f.value(0)));
            SaveProjectAs(r.build->document);
        }},
    {"save", [](Run& r, const Fields&) { saveProjectCommand(r.build->document); }},
    {"ask-discard",
        [](Run& r, const Fields&) {
            r.log.append(confirmDiscard(r.workspace()) ? "go on" : "stop");
        }},
    {"ask-exit",
        [](Run& r, const Fields&) { r.log.append(confirmExit(r.workspace()) ? "exit" : "stay"); }},
};

QString rowLines(const ReferenceList& list)
{
    QString text;
    for (int i = 0; i < list.ItemCount; ++i)
        text += QStringLiteral("%1 | %2 | %3\n")
                    .arg(list.Texts.value(i), QString::number(list.Ids.value(i)),
                        list.Codes.value(i));
    return text;
}

QString dump(Run& run)
{
    const Project& p = run.project();
    QString text = QStringLiteral("-- log\n") + run.log.join(u'\n') + QStringLiteral("\n-- file\n");
    text += QString::fromLatin1(projectFileBytes(p))
                .replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    text += QStringLiteral("-- events row\n") + rowLines(p.tables[row::Events]);
    text += QStringLiteral("-- timers row\n") + rowLines(p.tables[row::Timers]);
    text += QStringLiteral("-- timers list\n") + p.timerListLines.join(u'\n');
    text += QStringLiteral("\n-- counts\n%1 | %2\n").arg(eventCountText(p), timerCountText(p));
    for (int i = 0; i <= p.eventCount; ++i)
        text += actionCountText(p, i) + u'\n';
    text += QStringLiteral("-- project folders\n")
        + QDir(run.workspace().paths.projectsDir())
              .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
              .join(u'\n');
    text += QStringLiteral("\n-- name and file\n%1 | %2 | %3 | %4\n")
                .arg(run.workspace().caption, p.name, QFileInfo(p.filePath).fileName())
                .arg(p.hasFile);
    return text;
}

void runCase(const QString& folder)
{
    Run run;
    QDir().mkpath(run.dir.filePath("program"));
    for (const char* name : {"temp.txt", "temp2.txt"})
        QFile::copy(testDataDir() + "/wizard/program/" + name, run.dir.filePath("program/") + name);
    run.build = std::make_unique<ProjectBuilder>(run.dir.filePath("program"));
    for (const CaseStep& step : readSteps(folder)) {
        const auto command = kCommands.find(step.word);
        ASSERT_NE(command, kCommands.end()) << step.line.toStdString();
        const qsizetype shown = run.build->prompter.prompts.size();
        QString failure;
        try {
            command->second(run, step.fields);
        } catch (const std::exception& error) {
            failure = QStringLiteral("error: ") + QString::fromUtf8(error.what());
        }
        for (qsizetype i = shown; i < run.build->prompter.prompts.size(); ++i)
            run.log.append(promptLine(run.build->prompter.prompts.at(i))
                               .replace(testDataDir(), QStringLiteral("<data>"))
                               .replace(run.dir.path(), QStringLiteral("<temp>")));
        if (!failure.isEmpty())
            run.log.append(failure);
    }
    expectAsWritten(folder, dump(run));
}

TEST(EditingCases, EveryFolderComesOutAsExpected)
{
    const QStringList folders = caseFolders("editing");
    ASSERT_GE(folders.size(), 8);
    for (const QString& folder : folders)
        runCase(folder);
}

} // namespace
