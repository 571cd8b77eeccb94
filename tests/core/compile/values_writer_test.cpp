// The values file: header, public rows with the row-0 shift, the quote mark
// of each row and the last row's quote on the game-over lines.
#include "compile/output_tree.h"
#include "compile/step_log.h"
#include "compile/values_writer.h"
#include "compile_fixture.h"

using namespace tarvo;
using namespace tarvo::WriteScript;

namespace {

const QString kHeader
    = QStringLiteral("script \"S.slo\"\r\nrun\r\n{\r\n\r\n\t//-----------------\r\n"
                     "\t//Variables\r\n\t//-----------------\r\n\r\n");

Project projectWithIntegers(int count)
{
    Project project;
    project.name = "S";
    ReferenceList& list = project.tables[row::Integers];
    list.Scope = 2;
    list.ListName = "Numbers";
    list.ValueType = "INT";
    list.CodeTemplate = "integ[&&0]";
    for (int k = 0; k < count; ++k)
        list.RawCodes.append(QString::number(100 + k));
    list.ItemCount = qint16(count);
    return project;
}

void useGameOver(Project& project)
{
    EventRecord event;
    ActionRecord action;
    action.CallName = "gameOverMessage";
    event.actions.append(action);
    event.actionCount = 1;
    event.disabled = true;
    project.events.append(event);
    project.eventCount = 1;
}

TEST(ValuesText, RowZeroNamesCountFromZeroWhileValuesStartAtFive)
{
    EXPECT_EQ(valuesText(projectWithIntegers(7)),
        kHeader
            + QStringLiteral("\t//Numbers\r\n\tinteg[0]\t\tINT\t\t105\r\n"
                             "\tinteg[1]\t\tINT\t\t106\r\n\r\n}"));
    EXPECT_EQ(valuesText(projectWithIntegers(5)), kHeader + u'}');
    EXPECT_EQ(valuesText(projectWithIntegers(0)), kHeader + u'}');
}

TEST(ValuesText, TextValuesAreQuotedAndOtherRowsStartAtZero)
{
    Project project = projectWithIntegers(0);
    ReferenceList& names = project.tables[3];
    names.Scope = 2;
    names.ListName = "Names";
    names.ValueType = "TEXTSTRING";
    names.CodeTemplate = "name[&&0]";
    names.RawCodes = QStringList {"a \"b\"", "c"};
    names.ItemCount = 2;
    ReferenceList& hidden = project.tables[4]; // private: never in the values
    hidden.Scope = 1;
    hidden.ValueType = "INT";
    hidden.RawCodes = QStringList {"1"};
    hidden.ItemCount = 1;
    EXPECT_EQ(valuesText(project),
        kHeader
            + QStringLiteral("\t//Names\r\n\tname[0]\t\tTEXTSTRING\t\t\"a \"b\"\"\r\n"
                             "\tname[1]\t\tTEXTSTRING\t\t\"c\"\r\n\r\n}"));
}

TEST(ValuesText, GameOverLinesTakeTheQuoteOfTheLastRow)
{
    Project project = projectWithIntegers(0);
    useGameOver(project);
    const QString quoted = QStringLiteral("\tendMsg              INTMESSAGE  \"END\"\r\n"
                                          "\twinMsg              INTMESSAGE  \"WIN\"\r\n}");
    // A row without a type is not "INT" or "BOOL", so it quotes.
    EXPECT_EQ(valuesText(project), kHeader + quoted);

    project.tables[29].ValueType = "BOOL";
    EXPECT_EQ(valuesText(project),
        kHeader
            + QStringLiteral("\tendMsg              INTMESSAGE  END\r\n"
                             "\twinMsg              INTMESSAGE  WIN\r\n}"));
    // Only the last row counts, not the public row before it.
    project.tables[29].ValueType = "STRING";
    project.tables[28].ValueType = "INT";
    EXPECT_TRUE(valuesText(project).endsWith(quoted));
}

TEST(ValuesFile, AMissingValueLeavesAnEmptyFileAndAWarning)
{
    compile_test::ProgramFolder folder;
    Project project = projectWithIntegers(7);
    project.tables[row::Integers].RawCodes.removeLast();
    StepLog log;
    const OutputContext context {project, folder.root("S"), folder.sourceDir(), log, {}};
    MakeOutputRoot(context);
    WriteValuesFile(context, "script/data/S.vlo");
    EXPECT_EQ(compile_test::readBytes(context.path("script/data/S.vlo")), QByteArray());
    ASSERT_EQ(log.warnings().size(), 1);
    EXPECT_TRUE(log.warnings()[0].startsWith("values file: "));

    StepLog clean;
    const Project six = projectWithIntegers(6);
    const OutputContext good {six, folder.root("S"), folder.sourceDir(), clean, {}};
    WriteValuesFile(good, "script/data/S.vlo");
    EXPECT_EQ(compile_test::readBytes(good.path("script/data/S.vlo")),
        (valuesText(good.project) + QStringLiteral("\r\n")).toLatin1());
    EXPECT_TRUE(clean.warnings().isEmpty());
}

} // namespace
