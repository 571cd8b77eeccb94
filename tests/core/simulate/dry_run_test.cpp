// The dry run. Each folder of tests/data/simulate holds a project, maybe a
// scenario.txt, and the transcript the run must give in both formats
// (expected.jsonl, expected.txt); why.txt names events whose "why not?"
// answers must read as expected-why.txt. The rules of values and of the
// scenario reader are rows of tables.
#include "case_files.h"
#include "document/project_file.h"
#include "project_builder.h"
#include "scripted_prompter.h"
#include "simulate/dry_run.h"
#include "simulate/why_not.h"
#include "test_paths.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::simulate;

namespace {

QString fileText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

TEST(DryRun, EveryCaseFolderGivesItsTranscriptAndAnswers)
{
    const QDir root(testDataDir() + QStringLiteral("/simulate"));
    const QStringList names = root.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_GE(names.size(), 3);
    for (const QString& name : names) {
        const QString folder = root.filePath(name);
        SCOPED_TRACE(folder.toStdString());
        ScriptedPrompter prompter;
        Workspace workspace(sourceProgramDir(), prompter);
        LoadProject(workspace, folder + QStringLiteral("/project.vnsc"));
        auto model = std::make_shared<const DryRunModel>(buildDryRunModel(workspace));
        EXPECT_TRUE(model->errors.isEmpty()) << model->errors.join(u'\n').toStdString();
        QList<FileError> errors;
        Scenario scenario;
        if (QFile::exists(folder + QStringLiteral("/scenario.txt")))
            scenario = loadScenario(folder + QStringLiteral("/scenario.txt"), errors);
        EXPECT_TRUE(errors.isEmpty());

        QByteArray json;
        QString text;
        DryRun run(model, scenario, [&](const TranscriptEntry& entry) {
            json += entryJson(entry, *model) + '\n';
            text += entryText(entry, *model) + u'\n';
        });
        run.runToEnd();
        expectFileHolds(folder + QStringLiteral("/expected.jsonl"), json);
        expectFileHolds(folder + QStringLiteral("/expected.txt"), text.toUtf8());

        QString answers;
        const QStringList why
            = fileText(folder + QStringLiteral("/why.txt")).split(u'\n', Qt::SkipEmptyParts);
        for (const QString& event : why) {
            const int index = findEventByWord(run, event);
            EXPECT_GE(index, 0) << event.toStdString();
            answers += QStringLiteral("== ") + event + u'\n' + whyNotLines(run, index).join(u'\n')
                + u'\n';
        }
        if (!why.isEmpty())
            expectFileHolds(folder + QStringLiteral("/expected-why.txt"), answers.toUtf8());
        EXPECT_TRUE(prompter.prompts.isEmpty());
    }
}

// What one statement leaves in tempX, run once by an event every tenth.
struct ValueRow
{
    const char* code;
    const char* scenario;
    const char* tempX; // as the script writes it
};

TEST(DryRun, StatementsComputeAsTheScriptWould)
{
    const ValueRow rows[] = {
        {"tempX = 1 + 2 * 3 - 8 / 3;", "", "5"},
        {"tempX = -7 % 3 + (10 / 0);", "", "-1"},
        {"tempX = 2147483647 + 1;", "", "-2147483648"},
        // No answer counts as 0, FALSE and NULLOBJECT at once.
        {"tempX = (getPower(0) == 0) and (enumDroid() == NULLOBJECT) and not isHuman(1);", "",
            "TRUE"},
        {"tempX = getPower(0) + 1;", "at 0 answer getPower = 250", "251"},
        {"tempX = getPower(1);", "at 0 answer getPower(0) = 7", "0"},
        {"tempX = getPower(2 - 2);", "at 0 answer getPower(0) = 7", "7"},
        {"tempX = Group[0].members;", "at 0 answer Group[0].members = 3", "3"},
        {"if(count > 0) { tempX = 1; } else { tempX = 2; }", "", "2"},
        {"count = 3; while(count > 0) { count = count - 1; tempX = tempX + 10; }", "", "30"},
        {"flag[1] = TRUE; tempX = flag[0] == flag[1];", "", "FALSE"},
        {"tempX = (\"a\" < \"b\") or (REF_ANY == REF_ANY);", "", "TRUE"},
        // Numbers compare as numbers, flags by truth, a flag never equals a text.
        {"tempX = (2 == 3) or (flag[0] == \"x\") or not (flag[0] == 0);", "", "FALSE"},
    };
    for (const ValueRow& row : rows) {
        SCOPED_TRACE(row.code);
        ProjectBuilder builder(sourceProgramDir());
        const int event = builder.addEvent(QStringLiteral("Probe"));
        EventRecord& record = builder.project().events[event];
        record.triggerKind = 1; // wait
        record.triggerArgTexts = {QStringLiteral("1"), {}, {}};
        record.triggerArgTypes = {-1, 0, 0};
        record.triggerArgCount = 1;
        builder.addAction(
            event, QStringLiteral("Custom script code"), {QString::fromLatin1(row.code)});
        auto model = std::make_shared<const DryRunModel>(
            buildDryRunModel(builder.project(), script::FunctionTable::shipped()));
        ASSERT_TRUE(model->errors.isEmpty()) << model->errors.join(u'\n').toStdString();
        QList<FileError> errors;
        DryRun run(model, readScenario(QString::fromLatin1(row.scenario), {}, errors), {});
        run.runTo(5);
        EXPECT_EQ(run.variable(QStringLiteral("tempX")).value.scriptText(),
            QString::fromLatin1(row.tempX));
    }
}

struct ScenarioRow
{
    const char* line;
    const char* error; // empty when the line reads
};

TEST(Scenario, BadLinesAreRefusedWithFileLineAndWhatWasExpected)
{
    const ScenarioRow rows[] = {
        {"# only a comment", ""},
        {"until 600", ""},
        {"at 0 fire CALL_TRANSPORTER_LANDED   # landed", ""},
        {"at 10 answer countStructures(REF_ANY, 0) = -3", ""},
        {"at 10 answer getName = \"a # b\"", ""},
        {"until", "s.txt:1: expected \"until T\" with T a whole number of tenths"},
        {"until -5", "s.txt:1: expected \"until T\" with T a whole number of tenths"},
        {"at 1.5 fire CALL_X",
            "s.txt:1: expected \"until T\", \"at T fire KEYWORD\", \"at T answer NAME = VALUE\" "
            "or \"at T answer NAME(ARG, ...) = VALUE\" (T in tenths of a second)"},
        {"at 10 fire",
            "s.txt:1: expected \"until T\", \"at T fire KEYWORD\", \"at T answer NAME "
            "= VALUE\" or \"at T answer NAME(ARG, ...) = VALUE\" (T in tenths of a "
            "second)"},
        {"at 10 fire CALL_X now",
            "s.txt:1: expected \"at T fire KEYWORD\" with one callback "
            "keyword"},
        {"at 10 answer getPower",
            "s.txt:1: expected \"at T answer NAME = VALUE\" or \"at T "
            "answer NAME(ARG, ...) = VALUE\""},
        {"at 10 answer 5 = 6",
            "s.txt:1: expected \"at T answer NAME = VALUE\" or \"at T answer "
            "NAME(ARG, ...) = VALUE\""},
        {"at 10 answer getPower = 1 + ",
            "s.txt:1: expected a value after \"=\": a number, TRUE, "
            "FALSE, a \"text\" or a name"},
        {"when 10 fire CALL_X",
            "s.txt:1: expected \"until T\", \"at T fire KEYWORD\", \"at T answer NAME = VALUE\" "
            "or \"at T answer NAME(ARG, ...) = VALUE\" (T in tenths of a second)"},
    };
    for (const ScenarioRow& row : rows) {
        SCOPED_TRACE(row.line);
        QList<FileError> errors;
        readScenario(QString::fromLatin1(row.line), QStringLiteral("s.txt"), errors);
        EXPECT_EQ(errors.isEmpty() ? QString() : errors.front().message(),
            QString::fromLatin1(row.error));
    }
    // Every bad line is reported, each with its own line.
    QList<FileError> errors;
    const Scenario scenario = readScenario(
        QStringLiteral("until 50\nat x fire A\n\nat 3 fire B\nat 4 fire\n"), {}, errors);
    ASSERT_EQ(errors.size(), 2);
    EXPECT_EQ(errors.at(0).line(), 2);
    EXPECT_EQ(errors.at(1).line(), 5);
    EXPECT_EQ(scenario.until, 50);
    EXPECT_EQ(scenario.firings.size(), 1);
}

} // namespace
