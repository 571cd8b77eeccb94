// Every compile case of tests/data/compile, compiled twice in a row: each
// time the projects folder must hold exactly the expected files, the outcome
// must read as expected and nothing outside the projects folder may change.
// The preview must show what the compile wrote.
#include "case_files.h"
#include "compile/compile_command.h"
#include "compile/droid_built.h"
#include "compile/script_preview.h"
#include "compile_case.h"
#include "base/file_error.h"
#include "document/project_file.h"
#include "catalogue/workspace.h"
#include "scripted_prompter.h"
#include "text/code_page.h"
#include "ui/launcher.h"

using namespace tarvo;
using namespace compile_case;

namespace {

// Records what a compile reports, as the outcome files write it. The batch
// is not started, only recorded.
struct Report : Launcher
{
    QString start(const QString& batch, const QString& dir, Mode mode) override
    {
        started += QStringLiteral("packer: %1 started in %2, %3, MakeVNP.exe %4\n")
                       .arg(batch, dir, QLatin1String(mode == Mode::Wait ? "waiting" : "detached"),
                           QLatin1String(
                               QFileInfo::exists(dir + "/MakeVNP.exe") ? "beside it" : "missing"));
        return {};
    }

    QString text(const CompileOutcome& outcome, const ScriptedPrompter& prompter) const
    {
        static const char* const statuses[] = {"Done", "NoName", "NothingToCompile", "Failed"};
        static const char* const kinds[] = {"message", "input", "file", "file", "beep", "status"};
        static const char* const icons[] = {"plain", "information", "exclamation", "critical", "?"};
        QString text = QStringLiteral("status: %1, disk %2, %3 progress calls\n")
                           .arg(QLatin1String(statuses[int(outcome.status)]),
                               QLatin1String(outcome.touchedDisk ? "touched" : "untouched"))
                           .arg(progress)
            + started;
        for (const ScriptedPrompter::Prompt& prompt : prompter.prompts) {
            text
                += QStringLiteral("prompt: %1, %2%3: %4\n")
                       .arg(QLatin1String(kinds[int(prompt.kind)]),
                           QLatin1String(icons[int(prompt.icon)]),
                           QLatin1String(prompt.buttons == Prompter::Buttons::Ok ? "" : ", yes/no"),
                           prompt.text);
        }
        for (const QString& warning : outcome.warnings)
            text += QStringLiteral("warning: ") + warning + u'\n';
        return text + QStringLiteral("message: ") + outcome.message + u'\n';
    }

    QString started;
    int progress = 0;
};

// The preview of the whole script and of each event against the file written.
void expectPreviewShowsTheScript(const Project& project, const QString& root)
{
    const QString script = text::decodeCodePage(
        readBytes(root + QStringLiteral("/script/text/") + project.name + QStringLiteral(".slo")));
    EXPECT_EQ(scriptPreviewText(project).toStdString(), script.toStdString());
    for (int e = 0; e < project.eventCount; ++e) {
        const QString preview = eventPreviewText(project, e);
        const QString declaration = QStringLiteral("event event%1;\r\n").arg(e);
        const qsizetype head = preview.indexOf(declaration) + declaration.size() + 2;
        const bool disabled = project.events.at(e).disabled;
        EXPECT_EQ(preview.startsWith(QStringLiteral("//This event is switched off")), disabled);
        EXPECT_EQ(script.contains(declaration), !disabled) << e;
        EXPECT_EQ(script.contains(preview.mid(head)), !disabled) << e;
    }
    // The wizard shows its trigger before it stores it.
    StoredTrigger every;
    every.argCount = 1;
    every.texts[0] = QStringLiteral("50");
    EXPECT_TRUE(eventPreviewText(project, 0, every).contains("\r\nevent event0(every, 50)\r\n"));
}

class GoldenCompile : public testing::TestWithParam<std::string>
{
};

TEST_P(GoldenCompile, TwiceInARow)
{
    CaseFolder folder(GetParam());
    ScriptedPrompter prompter;
    Workspace workspace(folder.dir(), prompter);
    LoadProject(workspace, folder.project());
    const QMap<QString, QByteArray> outside = folder.outside();
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round);
        prompter.clear();
        Report report;
        CompileOptions options;
        options.launcher = &report;
        options.progress = [&] { ++report.progress; };
        const CompileOutcome outcome = CompileProject(workspace, prompter, options);
        expectFileHolds(folder.caseDir() + QStringLiteral("/outcome.txt"),
            folder.placeheld(report.text(outcome, prompter)).toUtf8());
        folder.expectProjectsAsExpected();
        EXPECT_TRUE(folder.outside() == outside);
        if (outcome.done())
            expectPreviewShowsTheScript(workspace.project, outcome.outputRoot);
    }
}

INSTANTIATE_TEST_SUITE_P(Cases, GoldenCompile, testing::ValuesIn(caseNames()),
    [](const auto& info) { return info.param; });

// Built for every compile but never written: the slot stays empty.
TEST(DroidBuiltSlot, BlockIsBuiltButTheSlotStaysEmpty)
{
    const WriteScript::DroidBuiltSlot slot;
    EXPECT_TRUE(slot.text.isEmpty());
    EXPECT_EQ(
        slot.builtBlock.toLatin1(), readBytes(casesDir() + QStringLiteral("/droid_built.txt")));
}

// Inputs kept from the fuzzers and from hostile sharing: each compiles or
// fails with a message, and never writes outside its output root.
TEST(HostileInputs, CompileInsideTheirRootOrFailWithAMessage)
{
    const std::pair<const char*, const char*> kinds[] = {{"project_file", "project.vnsc"},
        {"condition_catalogue", "temp.txt"}, {"action_catalogue", "temp2.txt"}};
    int seen = 0;
    for (const auto& [kind, replaces] : kinds) {
        const QDir inputs(testDataDir() + QStringLiteral("/hostile/") + QLatin1String(kind));
        for (const QString& input : inputs.entryList(QDir::Files)) {
            SCOPED_TRACE(input.toStdString());
            CaseFolder folder("hostile_base");
            writeBytes(
                folder.dir() + u'/' + QLatin1String(replaces), readBytes(inputs.filePath(input)));
            ScriptedPrompter prompter;
            Workspace workspace(folder.dir(), prompter);
            const QMap<QString, QByteArray> outside = folder.outside();
            ++seen;
            try {
                LoadProject(workspace, folder.project());
            } catch (const std::runtime_error&) {
                continue; // refused by a reader: the readers' tests own these
            }
            CompileOptions options;
            options.runPacker = false;
            const CompileOutcome outcome = CompileProject(workspace, prompter, options);
            EXPECT_TRUE(outcome.done() || !outcome.message.isEmpty());
            EXPECT_TRUE(folder.outside() == outside);
        }
    }
    EXPECT_GE(seen, 10);
}

} // namespace
