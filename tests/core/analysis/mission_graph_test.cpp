// The mission map: each folder of tests/data/graph holds a project and the
// DOT and JSON the map must make of it; the samples have theirs in
// tests/data/graph/samples. Facts of single events are rows of a table.
#include "analysis/known_names.h"
#include "analysis/mission_graph.h"
#include "case_files.h"
#include "document/project_file.h"
#include "project_builder.h"
#include "script/project_script.h"
#include "script/script_reader.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::analysis;

namespace {

void expectGraph(const QString& project, const QString& expectedBase)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    LoadProject(workspace, project);
    const MissionGraph graph = missionGraph(workspace.project, analyseMission(workspace));
    expectFileHolds(expectedBase + QStringLiteral(".dot"), graphDot(graph));
    expectFileHolds(expectedBase + QStringLiteral(".json"), graphJson(graph));
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST(MissionGraph, EveryCaseFolderAndSampleDrawsItsExpectedGraph)
{
    const QDir cases(testDataDir() + QStringLiteral("/graph"));
    const QStringList names = cases.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    ASSERT_GE(names.size(), 2);
    for (const QString& name : names) {
        const QString folder = cases.filePath(name);
        if (name == QLatin1String("samples"))
            continue;
        SCOPED_TRACE(folder.toStdString());
        expectGraph(folder + QStringLiteral("/project.vnsc"), folder + QStringLiteral("/expected"));
    }
    for (const QString& sample : QDir(sampleDir()).entryList({QStringLiteral("*.vnsc")})) {
        SCOPED_TRACE(sample.toStdString());
        expectGraph(sampleDir() + u'/' + sample,
            testDataDir() + QStringLiteral("/graph/samples/") + QFileInfo(sample).baseName());
    }
}

struct FactRow
{
    const char* body; // statements of an event triggered by "every, 10"
    const char* facts; // what eventFacts finds, see summary()
};

QString summary(const EventFacts& facts)
{
    QStringList parts;
    for (const Arming& arming : facts.arms)
        parts << QStringLiteral("arms %1(%2) with %3")
                     .arg(arming.targetCode)
                     .arg(arming.target)
                     .arg(arming.trigger);
    if (!facts.writes.isEmpty())
        parts << QStringLiteral("writes ") + facts.writes.join(u',');
    if (!facts.reads.isEmpty())
        parts << QStringLiteral("reads ") + facts.reads.join(u',');
    if (!facts.messages.isEmpty())
        parts << QStringLiteral("shows ") + facts.messages.join(u',');
    if (!facts.sounds.isEmpty())
        parts << QStringLiteral("plays ") + facts.sounds.join(u',');
    for (const MissionEnd end : facts.ends)
        parts << (end == MissionEnd::Win  ? QStringLiteral("wins")
                : end == MissionEnd::Lose ? QStringLiteral("loses")
                                          : QStringLiteral("ends"));
    if (!facts.unknownNames.isEmpty())
        parts << QStringLiteral("unknown ") + facts.unknownNames.join(u',');
    return parts.join(QStringLiteral("; "));
}

const FactRow kFacts[] = {
    {"setEventTrigger(event1, Timer0);", "arms event1(1) with Timer0"},
    {"setEventTrigger(event2, inactive);", "arms event2(2) with inactive"},
    {"setEventTrigger(event9, Timer0);", "arms event9(-1) with Timer0; unknown event9"},
    {"setEventTrigger(Reinforce, Timer0);", "arms Reinforce(-1) with Timer0; unknown Reinforce"},
    // Giving a variable a value from itself is no use of it; its index is.
    {"integ[0] = integ[0] + tempX;", "writes integ[0]; reads tempX"},
    {"flag[integ[0]] = TRUE;", "writes flag[integ[0]]; reads integ[0]"},
    {"Group[0].members = 2;", "writes Group[0]"},
    {"if(not flag[1] and (integ[0] >= (3))) { flag[0] = flag[1]; } else { count = 1; }",
        "writes flag[0],count; reads flag[1],integ[0]"},
    {"while(droid != NULLOBJECT) { groupAddDroid(Group[1], droid); droid = enumDroid(); }",
        // The project declares no groups.
        "writes droid; reads droid,NULLOBJECT,Group[1]; unknown Group"},
    {"showConsoleText(message[0], 0); playSound(sound[1], 0);",
        "reads message[0],sound[1]; shows message[0]; plays sound[1]; unknown message,sound"},
    {"gameOverMessage(winMsg, MSG_MISSION, 0, true); gameOverMessage(endMsg, MSG_MISSION, 0, "
     "FALSE); gameOverMessage(winMsg, MSG_MISSION, 0, boolResult);",
        "reads winMsg,MSG_MISSION,endMsg,boolResult; wins; loses; ends"},
    {"x = banana + DORDER_MOVE + REF_ANY;",
        "writes x; reads banana,DORDER_MOVE,REF_ANY; unknown "
        "banana"},
};

TEST(EventFacts, EachStatementKindAddsWhatItDoes)
{
    ProjectBuilder builder(sourceProgramDir());
    for (const char* name : {"A", "B", "C"})
        builder.addEvent(QString::fromLatin1(name));
    builder.addTimer(QStringLiteral("Clock"));
    const script::FunctionTable functions = script::FunctionTable::shipped();
    const script::ScriptNames names(builder.project());
    const script::ProjectScript script = script::readProjectScript(builder.project());
    const KnownNames known(builder.workspace, script.declarations, functions);
    for (const FactRow& row : kFacts) {
        SCOPED_TRACE(row.body);
        const script::ScriptFile file
            = script::readScript(QStringLiteral("event event0(every, 10)\n{\n")
                + QString::fromUtf8(row.body) + QStringLiteral("\n}\n"));
        ASSERT_TRUE(file.errors.empty());
        EXPECT_EQ(summary(eventFacts(file.events.front(), functions, names, known)),
            QString::fromUtf8(row.facts));
    }
}

// Who can run, as rows: each event's trigger and whom it switches on ("+")
// or off ("-").
struct ReachRow
{
    std::vector<std::pair<const char*, std::vector<int>>> events; // trigger, arms (negative: off)
    const char* canRun; // one letter an event: y or n, "-" for switched off
};

TEST(Reachability, FollowsTheArmsFromEventsThatStartThemselves)
{
    const ReachRow rows[] = {
        {{{"every", {1}}, {"inactive", {2}}, {"inactive", {}}}, "yyy"},
        {{{"inactive", {1}}, {"inactive", {}}}, "nn"},
        // Switching off does not make an event run.
        {{{"CALL_GAMEINIT", {-2}}, {"inactive", {}}, {"inactive", {}}}, "ynn"},
        {{{"inactive", {0}}, {"every", {0}}}, "yy"},
        {{{"inactive", {1}}, {"inactive", {0}}, {"wait", {0}}}, "yyy"},
        {{{"inactive", {1}}, {"", {}}, {"every", {1}}}, "n-y"},
    };
    for (const ReachRow& row : rows) {
        std::vector<EventAnalysis> events;
        for (const auto& [trigger, arms] : row.events) {
            EventAnalysis event;
            event.inScript = *trigger != 0;
            event.facts.trigger = QString::fromLatin1(trigger);
            for (const int target : arms)
                event.facts.arms.append({qAbs(target), {},
                    target < 0 ? QStringLiteral("inactive") : QStringLiteral("Timer0")});
            events.push_back(event);
        }
        findReachability(events);
        QString canRun;
        for (const EventAnalysis& event : events)
            canRun += !event.inScript ? u'-' : event.canRun ? u'y' : u'n';
        EXPECT_EQ(canRun, QString::fromLatin1(row.canRun));
    }
}

} // namespace

namespace {

TEST(MissionGraph, AroundANodeKeepsTwoStepsEitherWay)
{
    MissionGraph graph;
    for (const char* id : {"a", "b", "c", "d", "x"}) {
        GraphNode node;
        node.id = QString::fromLatin1(id);
        graph.nodes.append(node);
    }
    // a -> b -> c -> d, and x -> b: from a, two steps reach c and x, not d.
    graph.edges = {{"a", "b", "arms", {}, {}}, {"b", "c", "arms", {}, {}},
        {"c", "d", "arms", {}, {}}, {"x", "b", "reads", {}, {}}};
    const MissionGraph part = graphAround(graph, QStringLiteral("a"), 2);
    QStringList ids;
    for (const GraphNode& node : part.nodes)
        ids << node.id;
    EXPECT_EQ(ids, (QStringList {"a", "b", "c", "x"}));
    EXPECT_EQ(part.edges.size(), 3);
    EXPECT_EQ(graphAround(graph, QStringLiteral("d"), 0).nodes.size(), 1);
}

} // namespace
