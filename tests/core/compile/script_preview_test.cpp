// The live preview shows exactly what Compile writes: the whole script, and
// for each event its declaration line and its body as the script holds them.
#include "compile/script_preview.h"
#include "compile_fixture.h"
#include "text/basic_text.h"
#include "text/code_page.h"

using namespace tarvo;
using namespace compile_test;

namespace {

TEST(ScriptPreview, EveryEventAndTheWholeScriptAreWhatCompileWrites)
{
    for (const char* goldenCase : {"worked_example", "full"}) {
        SCOPED_TRACE(goldenCase);
        ProgramFolder folder(QString::fromLatin1(goldenCase));
        const QString project = goldenCase == QByteArray("full") ? "Full" : "Example";
        LoadedWorkspace loaded(folder, project + ".vnsc");
        const Project& loadedProject = loaded.workspace.project;
        const QString script = text::decodeCodePage(readBytes(
            ProgramFolder::caseDir(goldenCase) + "/expected/script/text/" + project + ".slo"));
        EXPECT_EQ(scriptPreviewText(loadedProject).toStdString(), script.toStdString());
        int switchedOff = 0;
        for (int e = 0; e < loadedProject.eventCount; ++e) {
            const QString preview = eventPreviewText(loadedProject, e);
            const QString declaration = QStringLiteral("event event%1;\r\n").arg(e);
            const QString body = preview.mid(preview.indexOf(declaration) + declaration.size() + 2);
            ASSERT_TRUE(body.startsWith("//---")) << e;
            if (loadedProject.events.at(e).disabled) {
                ++switchedOff;
                EXPECT_TRUE(preview.startsWith("//This event is switched off"));
                EXPECT_FALSE(script.contains(declaration));
                continue;
            }
            EXPECT_TRUE(script.contains(declaration)) << e;
            EXPECT_TRUE(script.contains(body)) << e;
        }
        EXPECT_EQ(switchedOff > 0, goldenCase == QByteArray("full"));
    }
}

TEST(ScriptPreview, TheWizardsTriggerReplacesTheStoredOne)
{
    ProgramFolder folder("worked_example");
    LoadedWorkspace loaded(folder, "Example.vnsc");
    StoredTrigger trigger;
    trigger.kind = 0;
    trigger.argCount = 1;
    trigger.texts[0] = QStringLiteral("50");
    EXPECT_TRUE(eventPreviewText(loaded.workspace.project, 0, trigger)
                    .contains(QStringLiteral("event event0(every, 50)\r\n")));
    EXPECT_TRUE(eventPreviewText(loaded.workspace.project, 0)
                    .contains(QStringLiteral("event event0(CALL_GAMEINIT)\r\n")));
}

} // namespace
