// The script source writer on projects built in memory: the rules and quirks
// of each section that the golden cases do not reach, and the statements that
// a faulty item makes the writer skip.
#include "compile/droid_built.h"
#include "compile/resource_lists.h"
#include "compile/script_renderers.h"
#include "compile/script_writer.h"
#include "compile/step_log.h"

#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::WriteScript;

namespace {

const QString S = "\u00a7";

QString ref(int row, int id)
{
    return QStringLiteral("&&%1$$%2").arg(row).arg(id) + S;
}

void setRow(Project& project, int r, qint16 scope, const QString& name, const QString& type,
    const QString& codeTemplate, const QStringList& codes, const QStringList& raw = {})
{
    ReferenceList& list = project.tables[r];
    list.Scope = scope;
    list.ListName = name;
    list.ValueType = type;
    list.CodeTemplate = codeTemplate;
    list.Codes = codes;
    list.Texts = codes;
    list.RawCodes = raw.isEmpty() ? codes : raw;
    list.UsesIds = true;
    list.Ids.clear();
    for (int k = 0; k < codes.size(); ++k)
        list.Ids.append(qint16(k));
    list.ItemCount = qint16(codes.size());
}

ArgumentSlot arg(const QString& value)
{
    ArgumentSlot slot;
    slot.Value = value;
    return slot;
}

ConditionRecord condition(qint16 form, const QString& callName, const QStringList& args)
{
    ConditionRecord record;
    record.CodeMode = form;
    record.CallName = callName;
    for (const QString& value : args)
        record.Args.append(arg(value));
    record.ArgCount = qint16(args.size());
    return record;
}

ConditionRecord codeCondition(const QStringList& lines, const QStringList& args)
{
    ConditionRecord record = condition(2, QString(), args);
    record.CodeLines = lines;
    record.CodeLineCount = qint16(lines.size());
    return record;
}

ActionRecord action(
    qint16 form, const QString& callName, const QStringList& lines, const QStringList& args = {})
{
    ActionRecord record;
    record.CodeMode = form;
    record.CallName = callName;
    record.CodeLines = lines;
    record.CodeLineCount = qint16(lines.size());
    for (const QString& value : args)
        record.Args.append(arg(value));
    record.ArgCount = qint16(args.size());
    return record;
}

EventRecord event(const QString& name, qint16 kind)
{
    EventRecord record;
    record.name = name;
    record.triggerKind = kind;
    return record;
}

void addEvent(Project& project, EventRecord record)
{
    record.conditionCount = qint16(record.conditions.size());
    record.actionCount = qint16(record.actions.size());
    project.events.append(record);
    project.eventCount = qint16(project.events.size());
}

// The lines of the event body between "{" and "}".
QStringList innerLines(const Project& project, int index, StepLog& log)
{
    QStringList lines = eventBody(project, index, log).split("\r\n");
    const int open = int(lines.indexOf("{"));
    const int close = int(lines.lastIndexOf("}"));
    return lines.mid(open + 1, close - open - 1);
}

TEST(ScriptSections, PublicRowsSkipTheFiveFixedIntegersOfRowZeroOnly)
{
    Project project;
    const QStringList five = {"integ[0]", "integ[1]", "integ[2]", "integ[3]", "integ[4]"};
    setRow(project, 0, 2, "Numbers", "INT", "integ[&&0]", five);
    setRow(project, 17, 2, "Flags", "BOOL", "flag[&&0]", {"flag[0]"});
    StepLog log;
    EXPECT_EQ(publicVariablesSection(project, log),
        QStringLiteral("//-----------------\r\n//Public Variables\r\n//-----------------\r\n"
                       "//Flags\r\npublic\t\tBOOL\t\tflag[1];\r\n\r\n"));

    setRow(project, 0, 2, "Numbers", "INT", "integ[&&0]", five + QStringList {"integ[0]"});
    EXPECT_TRUE(publicVariablesSection(project, log)
                    .contains("//Numbers\r\npublic\t\tINT\t\tinteg[1];\r\n\r\n"));

    // A private row 0 is declared with its whole count.
    setRow(project, 0, 1, "Numbers", "INT", "n[&&0]", five);
    EXPECT_TRUE(
        privateVariablesSection(project, log)
            .startsWith(QStringLiteral("//-----------------\r\n//Private Variables\r\n"
                                       "//-----------------\r\n//Numbers\r\n"
                                       "private\t\tINT\t\tn[5];\r\n\r\n//Other variables")));
    EXPECT_TRUE(log.warnings().isEmpty());
}

TEST(ScriptSections, TriggerKindsWithEmptyKeywordsGiveEmptyParentheses)
{
    Project project;
    TimerRecord timer;
    timer.triggerKind = 9;
    timer.name = "Lost droid";
    timer.comment = "not this";
    project.timers.append(timer);
    project.timerCount = 1;
    addEvent(project, event("Hit", 7));
    StepLog log;
    EXPECT_EQ(triggerDeclarationSection(project, log),
        QStringLiteral("//-----------------\r\n//Trigger declaration\r\n//-----------------\r\n"
                       "trigger Timer0();\t\t//Lost droid\r\n\r\n"));
    EXPECT_TRUE(eventBody(project, 0, log).contains("\r\nevent event0()\r\n{\r\n"));
}

TEST(ScriptSections, FaultyItemsLoseTheirLineAndAreReported)
{
    Project project;
    TimerRecord timer;
    timer.triggerKind = 16; // outside the table
    project.timers.append(timer);
    project.timerCount = 2; // a count beyond the array
    StepLog log;
    EXPECT_EQ(triggerDeclarationSection(project, log),
        QStringLiteral(
            "//-----------------\r\n//Trigger declaration\r\n//-----------------\r\n\r\n"));
    EXPECT_EQ(log.warnings().size(), 2);

    addEvent(project, event("Bad", 20));
    const QString body = eventBody(project, 0, log);
    EXPECT_EQ(body,
        QStringLiteral("//-------------------------\r\n//Bad\r\n//-------------------------\r\n"
                       "{\r\n}\r\n\r\n"));
}

TEST(ConditionLines, ComparisonNegationAndTheirFaults)
{
    Project project;
    EventRecord record = event("E", 3);
    ConditionRecord compared = condition(0, "F", {});
    compared.operatorIndex = 6; // the empty operator
    compared.comparisonValue = "V";
    record.conditions.append(compared);
    ConditionRecord badOperator = condition(0, "G", {"a"});
    badOperator.operatorIndex = 9;
    badOperator.comparisonValue = "W";
    badOperator.negation = 1;
    record.conditions.append(badOperator);
    ConditionRecord badNegation = condition(0, "H", {});
    badNegation.ResultB = 17; // no comparison at all
    badNegation.negation = 2;
    record.conditions.append(badNegation);
    addEvent(project, record);

    StepLog log;
    EXPECT_EQ(innerLines(project, 0, log),
        QStringList({"\tif(F()  (V))", "\t{", "\t\tif(not G(a))", "\t\t{", "\t\t\tif(H())",
            "\t\t\t{", "\t\t\t}", "\t\t}", "\t}"}));
    ASSERT_EQ(log.warnings().size(), 2);
    EXPECT_TRUE(log.warnings()[0].contains("condition 1: comparison"));
    EXPECT_TRUE(log.warnings()[1].contains("condition 2: negation"));
}

TEST(ConditionLines, ArgumentsUseRawFixedIntegersWhileTheComparisonUsesCodes)
{
    Project project;
    setRow(project, 0, 2, "Numbers", "INT", "integ[&&0]",
        {"integ[0]", "integ[1]", "integ[2]", "integ[3]", "integ[4]"},
        {"10", "20", "30", "40", "50"});
    EventRecord record = event("E", 3);
    ConditionRecord value = condition(1, QString(), {ref(0, 2), " + 1"});
    value.operatorIndex = 0;
    value.comparisonValue = ref(0, 2);
    record.conditions.append(value);
    addEvent(project, record);
    StepLog log;
    EXPECT_EQ(innerLines(project, 0, log).first(), "\tif(30 + 1 > (integ[2]))");
}

TEST(ConditionLines, CodeBlockMarkersExpandInOrder)
{
    Project project;
    setRow(project, 17, 2, "Flags", "BOOL", "flag[&&0]", {"flag[0]", "flag[1]"});
    EventRecord record = event("E", 3);
    record.conditions.append(condition(0, "first", {}));
    record.conditions[0].ResultB = 17;
    // Continuation lines go one tab left of the "if(" line (here one tab).
    ConditionRecord block = codeCondition({"a(&&0)&&&&&$", "b == &&r"}, {ref(17, 1)});
    block.ResultB = 17;
    block.comparisonValue = "ok";
    record.conditions.append(block);
    addEvent(project, record);
    StepLog log;
    EXPECT_EQ(
        innerLines(project, 0, log).mid(2, 2), QStringList({"\t\tif(a(flag[1])", "\t\tb == ok)"}));
}

TEST(ConditionLines, ArgumentMarkersAreReplacedByPlainTextFromZeroUp)
{
    Project project;
    EventRecord record = event("E", 3);
    QStringList args;
    for (int a = 0; a < 11; ++a)
        args.append(QString(QChar(u'A' + a)));
    // "&&1" takes the start of "&&10" before argument 10 is reached.
    ConditionRecord many = codeCondition({"x(&&1, &&10)"}, args);
    many.ResultB = 17;
    record.conditions.append(many);
    // The comparison value goes in still encoded, so argument 0's marker
    // eats the start of a row-0 reference in it.
    ConditionRecord encoded = codeCondition({"y(&&r)"}, {"Z"});
    encoded.ResultB = 17;
    encoded.comparisonValue = ref(0, 5);
    record.conditions.append(encoded);
    addEvent(project, record);
    StepLog log;
    const QStringList lines = innerLines(project, 0, log);
    EXPECT_EQ(lines[0], "\tif(x(B, B0))");
    EXPECT_EQ(lines[2], QStringLiteral("\t\tif(y(Z$$5") + S + QStringLiteral("))"));
}

TEST(ActionLines, IndentFollowsTheConditionCountAndUnknownFormsRepeat)
{
    Project project;
    EventRecord record = event("E", 3);
    ConditionRecord off = condition(0, "F", {});
    off.inactive = true;
    record.conditions = {off, off};
    record.actions.append(action(5, "odd", {})); // first: repeats nothing
    record.actions.append(action(2, QString(), {"go(&&0);&&&done();&&$x"}, {"1"}));
    record.actions.append(action(0, "call", {}, {"1"}));
    record.actions.append(action(7, "odd", {}));
    ActionRecord inactive = action(2, QString(), {"never();"});
    inactive.inactive = true;
    record.actions.append(inactive);
    addEvent(project, record);
    StepLog log;
    EXPECT_EQ(innerLines(project, 0, log),
        QStringList({"", "\t\t\tgo(1);", "\t\t\tdone();\tx", "cal", "cal"}));
    EXPECT_EQ(log.warnings().size(), 2);
}

TEST(GameOverCheck, CountsDisabledEventsButNotActionsBeyondTheCount)
{
    Project project;
    EventRecord record = event("E", 3);
    record.actions.append(action(2, "gameOverMessage", {}));
    record.disabled = true;
    addEvent(project, record);
    EXPECT_TRUE(usesGameOverMessages(project));
    project.events[0].actionCount = 0;
    EXPECT_FALSE(usesGameOverMessages(project));

    project.events[0].actionCount = 1;
    StepLog log;
    const QString text = scriptSourceText(project, DroidBuiltSlot(), log);
    EXPECT_TRUE(
        text.contains(QStringLiteral("//-----------------\r\n\r\n//Win-Lose messages\r\n\r\n"
                                     "public  INTMESSAGE      endMsg, winMsg;\r\n\r\n"
                                     "//-----------------\r\n//Private Variables")));
    EXPECT_FALSE(text.contains("event event0"));
}

TEST(DroidBuiltSlot, BlockIsBuiltButTheSlotStaysEmpty)
{
    const DroidBuiltSlot slot;
    EXPECT_TRUE(slot.text.isEmpty());
    EXPECT_EQ(slot.builtBlock, droidBuiltBlock());
    const QStringList lines = slot.builtBlock.split("\r\n");
    EXPECT_EQ(lines.size(), 8 * 16 + 1);
    EXPECT_EQ(lines.mid(16, 16),
        QStringList({"event droidBuilt(CALL_NEWDROID,1, ref droid,ref structure)", "{",
            "       if(droid.droidType == DROID_CONSTRUCT)", "       {",
            "           groupAddDroid(Group[5], droid);", "       }",
            "       else if(droid.droidType == DROID_CYBORG)", "       {",
            "           groupAddDroid(Group[4], droid);", "       }", "       else", "       {",
            "           groupAddDroid(Group[3], droid);", "       }", "}", ""}));
    EXPECT_EQ(lines[7 * 16 + 12], "           groupAddDroid(Group[21], droid);");
}

} // namespace
