// The script reader: fragments read or refused with their place, every
// script the compile writes from the samples and the shipped catalogues read
// back, and script names led back to the author's names.
#include "catalogue/reference_markers.h"
#include "compile/script_preview.h"
#include "base/file_error.h"
#include "document/project_file.h"
#include "project_builder.h"
#include "resources/resource_items.h"
#include "script/function_table.h"
#include "script/project_script.h"
#include "script/script_names.h"
#include "script/script_reader.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::script;

namespace {

QString errorsOf(const ScriptFile& file)
{
    QStringList lines;
    for (const SyntaxError& error : file.errors)
        lines << QStringLiteral("%1:%2: %3")
                     .arg(error.position.line)
                     .arg(error.position.column)
                     .arg(error.message);
    return lines.join(u'\n');
}

struct FragmentRow
{
    const char* text;
    const char* errors; // "" when it reads
};

// Whole files or events; each broken row is one way the compile can write
// script the game refuses.
const FragmentRow kFragments[] = {
    {"public\t\tINT\t\tinteg[5];\r\nprivate\t\tDROID\t\tdroid,transportDroid;\r\n"
     "trigger Timer0(wait, 25);\t\t//Clock\r\nevent event0;\r\n",
        ""},
    {"event event1(every, 100)\n{\n\tif(not flag[0] and (integ[1] + 2 * -3 >= (4)))\n\t{\n"
     "\t\tflag[0] = TRUE;\n\t}\n\telse\n\t\twhile(droid != NULLOBJECT) { droid = "
     "enumDroid(); }\n\t;\n\tx = Group[0].members % 2 - \"R-Wpn-MG1\";\n}\n",
        ""},
    {"event e(CALL_GAMEINIT)\n{\n\t/* a\n comment */ a = b or c || d && e;\n}\n", ""},
    {"event event0(every, )\n{\n}\n", "1:21: expected a value but found ')'"},
    {"event event3()\n{\n}\n", "1:14: the trigger of the event is empty"},
    {"event event0(every, 10)\n{\n\tif(integ[0]0 > (0))\n\t{\n\t}\n}\n",
        "3:13: expected ')' but found '0'"},
    {"event event0(every, 10)\n{\n\tplaySound(, 0);\n}\n", "3:12: expected a value but found ','"},
    {"event event0(CALL_GAMEINIT)\n{\ncentreVie\ncentreVie\nnoop(\n}\n"
     "event event1(every, 5)\n{\n}\n",
        "4:1: expected ';' but found 'centreVie'"},
    {"event a(x)\n{\n\t1 = 2;\n}\nevent b(y)\n{\n\tx = \"open;\n}\n",
        "3:2: only a variable can be given a value\n7:6: expected a value but found '\"'"},
    {"event a(x)\n{\n\tx = 1;\n", "4:1: expected '}' but found the end of the text"},
    {"public INT ;\nevent event0;\nbanana\n",
        "1:12: expected the name of a variable but found ';'\n"
        "3:1: expected a declaration or an event but found 'banana'"},
    {"event event0(not)\n{\n}\n",
        "1:14: expected a trigger (a keyword or a timer) but found 'not'"},
};

TEST(ScriptReader, ReadsOrRefusesEachFragmentWithItsPlace)
{
    for (const FragmentRow& row : kFragments) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(errorsOf(readScript(QString::fromUtf8(row.text))), QString::fromUtf8(row.errors));
    }
}

TEST(ScriptReader, BuildsTheTreeOfAnEvent)
{
    const ScriptFile file = readScript(u"event event2(CALL_TRANSPORTER_LANDED, Group[0], 1)\n{\n"
                                       u"\tif(a == 1)\n\t{\n\t\tsetEventTrigger(event1, Timer0);\n"
                                       u"\t}\n\telse\n\t{\n\t\tflag[2] = flag[2] + 1;\n\t}\n}\n");
    ASSERT_EQ(file.events.size(), 1u);
    const EventBody& event = file.events.front();
    EXPECT_EQ(event.name, "event2");
    ASSERT_EQ(event.trigger.size(), 3u);
    EXPECT_EQ(expressionText(event.trigger[1]), "Group[0]");
    ASSERT_EQ(event.body.size(), 1u);
    const Statement& branch = event.body.front();
    EXPECT_EQ(branch.kind, Statement::Kind::If);
    EXPECT_EQ(expressionText(branch.value), "a == 1");
    EXPECT_EQ(branch.position.line, 3);
    const Statement& call = branch.body.front().body.front();
    EXPECT_EQ(expressionText(call.value), "setEventTrigger(event1, Timer0)");
    const Statement& assign = branch.elseBody.front().body.front();
    EXPECT_EQ(assign.kind, Statement::Kind::Assign);
    EXPECT_EQ(expressionText(assign.target), "flag[2]");
    EXPECT_EQ(expressionText(assign.value), "flag[2] + 1");
}

TEST(ScriptReader, PiecesReadAloneNameTheirFault)
{
    EXPECT_EQ(readTrigger(u"every, 40").size(), 2u);
    EXPECT_THROW(readTrigger(u""), SyntaxError);
    EXPECT_THROW(readTrigger(u"every, "), SyntaxError);
    EXPECT_EQ(expressionText(readCondition(u"not (a\r\n\t== b)")), "not a == b");
    EXPECT_EQ(expressionText(readCondition(u"name == \"MG 1\"")), "name == \"MG 1\"");
    EXPECT_THROW(readCondition(u"integ[0]0 > (0)"), SyntaxError);
    EXPECT_EQ(readActions(u"a = 1;\r\n\tb();").size(), 2u);
    EXPECT_THROW(readActions(u"callFunctio"), SyntaxError);
}

class Samples : public ::testing::Test
{
protected:
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
};

TEST_F(Samples, EverySampleReadsBackWholeAndEventByEvent)
{
    const QStringList samples = QDir(sampleDir()).entryList({QStringLiteral("*.vnsc")});
    ASSERT_FALSE(samples.isEmpty());
    for (const QString& sample : samples) {
        SCOPED_TRACE(sample.toStdString());
        LoadProject(workspace, sampleDir() + u'/' + sample);
        const Project& project = workspace.project;
        const ScriptFile file = readScript(scriptPreviewText(project));
        EXPECT_EQ(errorsOf(file), QString());
        int enabled = 0;
        for (const EventRecord& event : project.events)
            enabled += event.disabled ? 0 : 1;
        EXPECT_EQ(int(file.events.size()), enabled);
        const ProjectScript script = readProjectScript(project);
        for (int e = 0; e < project.eventCount; ++e) {
            EXPECT_EQ(script.events[e].has_value(), !project.events[e].disabled);
            if (script.events[e]) {
                EXPECT_TRUE(script.events[e]->body.has_value());
            }
            // The preview's text of one event reads as a file of its own.
            EXPECT_EQ(errorsOf(readScript(eventPreviewText(project, e))), QString());
        }
    }
}

TEST_F(Samples, ScriptNamesLeadBackToTheAuthorsNames)
{
    LoadProject(workspace, sampleDir() + QStringLiteral("/Demo.vnsc"));
    const Project& project = workspace.project;
    const ScriptNames names(project);
    EXPECT_EQ(names.authorName("event1"), "Check base");
    EXPECT_EQ(names.eventIndex("event4"), 4);
    EXPECT_EQ(names.eventIndex("event99"), -1);
    EXPECT_EQ(names.timerIndex("Timer0"), 0);
    EXPECT_EQ(names.authorName("Timer0"), project.timers[0].name);
    EXPECT_EQ(names.authorName("flag[0]"), project.tables[17].Texts[0]);
    EXPECT_EQ(names.find("flag[0]")->row, 17);
    EXPECT_EQ(names.authorName("message[0]"), project.tables[15].Texts[0]);
    EXPECT_EQ(names.find("message[0]")->kind, NamedItem::Kind::Message);
    EXPECT_EQ(names.find("sound[1]")->kind, NamedItem::Kind::Sound);
    EXPECT_EQ(names.authorName("nothing[3]"), "nothing[3]");
}

// A project with one event per kind of both shipped catalogues, each
// argument given the first item its list offers.
TEST(EveryCatalogueKind, CompilesToScriptThatReadsBack)
{
    ProjectBuilder builder(sourceProgramDir());
    Project& project = builder.project();
    project.timers[builder.addTimer(QStringLiteral("Clock"))].triggerArgTexts[0]
        = QStringLiteral("25");
    builder.addMessage(QStringLiteral("Hello"));
    AddSound(project, QStringLiteral("/tmp/beep.wav"));
    builder.addItem(row::Groups, QStringLiteral("Attackers"), 0, QStringLiteral("Group[0]"));
    const auto firstItem = [&](int row) {
        const ReferenceList& list = project.tables[size_t(row)];
        return list.ItemCount > 0 ? encodedReference(row, QString::number(list.Ids.value(0)))
                                  : QStringLiteral("1");
    };
    const auto fill = [&](CatalogueEntry& entry) {
        for (ArgumentSlot& argument : entry.Args)
            argument.Value = argument.ListRef >= 0 ? firstItem(argument.ListRef)
                : argument.UseAltBox               ? QStringLiteral("tempX = 1;")
                                                   : QStringLiteral("1");
    };
    const int target = builder.addEvent(QStringLiteral("Target"));
    project.events[target].triggerKind = 3;
    QStringList titles;
    for (const CatalogueEntry& kind : builder.workspace.conditionCatalogue) {
        const int e = builder.addEvent(QStringLiteral("If ") + kind.Title);
        project.events[e].triggerKind = 3;
        ConditionRecord condition;
        static_cast<CatalogueEntry&>(condition) = kind;
        fill(condition);
        condition.comparisonValue = QStringLiteral("5");
        project.events[e].conditions.append(condition);
        project.events[e].conditionCount = 1;
        titles << kind.Title;
    }
    for (const CatalogueEntry& kind : builder.workspace.actionCatalogue) {
        const int e = builder.addEvent(QStringLiteral("Do ") + kind.Title);
        project.events[e].triggerKind = 3;
        fill(builder.addAction(e, kind.Title));
        titles << kind.Title;
    }
    ASSERT_GE(titles.size(), 40);
    const ProjectScript script = readProjectScript(project);
    for (const SyntaxError& error : script.declarationErrors)
        ADD_FAILURE() << error.message.toStdString() << " at " << error.position.line;
    for (int e = 0; e < project.eventCount; ++e) {
        SCOPED_TRACE(project.events[e].name.toStdString());
        const EventScript& event = *script.events[e];
        // A plain call with arguments is written as its name cut short:
        // the one kind that asks for it says so in its description.
        const bool cutShort = project.events[e].name == QLatin1String("Do Call script function");
        EXPECT_EQ(event.body.has_value(), !cutShort) << event.text.toStdString();
    }
    // The whole source reads back with exactly that one error.
    const ScriptFile file = readScript(scriptPreviewText(project));
    ASSERT_EQ(file.errors.size(), 1u);
    EXPECT_EQ(file.errors.front().event, QStringLiteral("event%1").arg(project.eventCount - 1));
}

TEST(FunctionTable, ReadsRolesAndNamesTheBadLine)
{
    const FunctionTable table = FunctionTable::load(sourceProgramDir() + "/functions.txt");
    ASSERT_TRUE(table.find("gameOverMessage"));
    EXPECT_EQ(table.find("gameOverMessage")->argument("result"), 3);
    EXPECT_EQ(table.find("setEventTrigger")->effect, FunctionInfo::Effect::Arm);
    EXPECT_TRUE(table.knows("NULLOBJECT"));
    EXPECT_FALSE(table.knows("orderGroupLoc"));
    // The shipped fallback holds the same lines as the file.
    EXPECT_EQ(FunctionTable::shipped().find("playSound")->argument("sound"), 0);

    const struct
    {
        const char* text;
        const char* error;
    } bad[] = {
        {"// c\nfoo\n", "f:2: expected \"name|effect|role=argument|...\""},
        {"foo|fly\n",
            "f:1: unknown effect \"fly\" (arm, end, message, sound, time, write or name)"},
        {"foo|end|result=0\n",
            "f:1: \"result=0\" is not a role of \"end\" with an argument number "
            "from 1"},
        {"foo|sound|message=1\n",
            "f:1: \"message=1\" is not a role of \"sound\" with an argument number from 1"},
        {"foo|arm|trigger=2\n", "f:1: \"arm\" needs the argument of its event"},
    };
    for (const auto& row : bad) {
        try {
            FunctionTable::parse(QString::fromUtf8(row.text), QStringLiteral("f"));
            ADD_FAILURE() << row.text;
        } catch (const FileError& error) {
            EXPECT_EQ(error.message(), QString::fromUtf8(row.error));
        }
    }
}

} // namespace
