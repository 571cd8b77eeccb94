#include "catalogue/catalogue_loader.h"
#include "model/file_error.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <gtest/gtest.h>
#include <set>

using namespace tarvo;

namespace {

Catalogue conditions(const QString& text)
{
    TestProgramFolder folder(text, QString());
    return readConditionCatalogue(folder.file(QStringLiteral("temp.txt")));
}

Catalogue actions(const QString& text, ReferenceListTable& tables)
{
    TestProgramFolder folder(QString(), text);
    return readActionCatalogue(folder.file(QStringLiteral("temp2.txt")), tables);
}

// Runs a loader that must fail and returns the error's line and sentence.
template <typename Load> FileError failure(Load load)
{
    try {
        load();
    } catch (const FileError& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return FileError(QString(), 0, QString());
}

} // namespace

TEST(CatalogueGrammar, EmptyFileGivesEmptyCatalogue)
{
    const Catalogue catalogue = conditions(QString());
    EXPECT_TRUE(catalogue.isEmpty());
    EXPECT_EQ(conditionKindItems(catalogue), QStringList {QStringLiteral("<Select a condition>")});
}

TEST(CatalogueGrammar, ConditionFieldsAccumulateAsWritten)
{
    const Catalogue catalogue = conditions(QStringLiteral("<c>\n"
                                                          "<s>;A\n<s>;B\n<s>;\n"
                                                          "<d>;line one\n<d>;line two\n"
                                                          "<q>;first\n<q>;second\n"
                                                          "<r>;1;17\n"
                                                          "<f>;  Label  ; hint; 3x;  7 \n"
                                                          "<f>;cut;hint;with;semicolon;-1\n"
                                                          "<i>|2|one|two|\n"));
    ASSERT_EQ(catalogue.size(), 1);
    const CatalogueEntry& entry = catalogue.first();
    EXPECT_EQ(entry.Title, u"AB");
    EXPECT_EQ(entry.Description, u"line one\r\nline two\r\n");
    EXPECT_EQ(entry.CallName, u"second");
    EXPECT_EQ(entry.ResultA, 1);
    EXPECT_EQ(entry.ResultB, 17);
    ASSERT_EQ(entry.ArgCount, 2);
    EXPECT_EQ(entry.Args[0].Label, u"Label");
    EXPECT_EQ(entry.Args[0].Hint, u"hint");
    EXPECT_EQ(entry.Args[0].ValueKind, 3);
    EXPECT_EQ(entry.Args[0].ListRef, 7);
    // No quoting: the fourth ";" ends the list field, which then reads as 0.
    EXPECT_EQ(entry.Args[1].ValueKind, 0);
    EXPECT_EQ(entry.Args[1].ListRef, 0);
    EXPECT_EQ(entry.CodeMode, 2);
    EXPECT_EQ(entry.CodeLines, (QStringList {QStringLiteral("one"), QStringLiteral("two")}));
    EXPECT_EQ(entry.CodeLineCount, 2);
}

TEST(CatalogueGrammar, CodeLineWithoutClosingBarLosesItsLastLine)
{
    const Catalogue catalogue = conditions(QStringLiteral("<c>\n<i>|1|one|two\n<c>\n<i>|2|\n"));
    EXPECT_EQ(catalogue[0].CodeLines, QStringList {QStringLiteral("one")});
    EXPECT_EQ(catalogue[0].CodeMode, 1);
    EXPECT_TRUE(catalogue[1].CodeLines.isEmpty());
    EXPECT_EQ(catalogue[1].CodeLineCount, 0);
}

TEST(CatalogueGrammar, TabsAreRemovedButBlanksAreNot)
{
    const Catalogue catalogue
        = conditions(QStringLiteral(" <c>\n\t<c>\n<s>;\tTi\ttle\n// comment <c>\n<x>;y\n"));
    ASSERT_EQ(catalogue.size(), 1);
    EXPECT_EQ(catalogue[0].Title, u"Title");
}

TEST(CatalogueGrammar, ActionArgumentsReadTheAltBoxField)
{
    ReferenceListTable tables;
    const Catalogue catalogue = actions(
        QStringLiteral("<c>\n<s>;Act\n<r>;none\n<f>;A;h;0;15;1\n<f>;B;h;0;-1;0\n"), tables);
    ASSERT_EQ(catalogue.size(), 1);
    EXPECT_EQ(catalogue[0].ResultText, u"none");
    EXPECT_TRUE(catalogue[0].Args[0].UseAltBox);
    EXPECT_FALSE(catalogue[0].Args[1].UseAltBox);
    EXPECT_EQ(catalogue[0].Args[1].ListRef, -1);
    EXPECT_EQ(actionKindItems(catalogue),
        (QStringList {QStringLiteral("<Select an action>"), QStringLiteral("Act")}));
}

TEST(CatalogueGrammar, ListRowsFromHeaderAndItems)
{
    ReferenceListTable tables;
    actions(QStringLiteral("<j>|3|Things|2|thing[&&0]|INT  \n"
                           "<g>|3|a:Alpha|b:Beta:ignored|\n"
                           "<g>|3|c:Gamma|\n"
                           "<g>|4|x:X|\n<j>|4|Late|2|late[&&0]|INT\n"),
        tables);
    const ReferenceList& row = tables[3];
    EXPECT_EQ(row.ListName, u"Things");
    EXPECT_EQ(row.Scope, 2);
    EXPECT_EQ(row.CodeTemplate, u"thing[&&0]");
    EXPECT_EQ(row.ValueType, u"INT");
    EXPECT_EQ(row.ItemCount, 3);
    EXPECT_EQ(row.Codes,
        (QStringList {
            QStringLiteral("thing[0]"), QStringLiteral("thing[1]"), QStringLiteral("thing[2]")}));
    EXPECT_EQ(row.RawCodes,
        (QStringList {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    EXPECT_EQ(row.Texts,
        (QStringList {QStringLiteral("Alpha"), QStringLiteral("Beta"), QStringLiteral("Gamma")}));
    EXPECT_EQ(row.Ids, (QList<qint16> {0, 1, 2}));
    // Items read before their row is declared have no script code.
    EXPECT_EQ(tables[4].Codes, QStringList {QString()});
    EXPECT_EQ(tables[4].RawCodes, QStringList {QStringLiteral("x")});
}

TEST(CatalogueGrammar, SetUpAfterLoading)
{
    ReferenceListTable tables;
    actions(QStringLiteral("<g>|7|g:G|\n<g>|17|FALSE:F1|FALSE:F2|\n"), tables);
    SetUpReferenceRows(tables);
    for (const ReferenceList& row : tables)
        EXPECT_TRUE(row.UsesIds);
    EXPECT_EQ(tables[7].Texts.size(), 2);
    EXPECT_EQ(tables[7].Codes.size(), 2);
    EXPECT_EQ(tables[7].Ids.size(), 1);
    EXPECT_EQ(tables[17].RawCodes.size(), 3);
    EXPECT_TRUE(tables[0].Saved);
    EXPECT_TRUE(tables[7].Saved);
    EXPECT_TRUE(tables[14].Saved);
    EXPECT_FALSE(tables[17].Saved);
}

struct FaultCase
{
    const char* name;
    bool action;
    const char* text;
    int line;
    const char* sentencePart;
};

class CatalogueFaults : public testing::TestWithParam<FaultCase>
{
};

TEST_P(CatalogueFaults, StopAtTheFaultyLine)
{
    const FaultCase& c = GetParam();
    ReferenceListTable tables;
    const FileError error = failure([&] {
        if (c.action)
            actions(QString::fromUtf8(c.text), tables);
        else
            conditions(QString::fromUtf8(c.text));
    });
    EXPECT_EQ(error.line(), c.line) << error.message().toStdString();
    EXPECT_TRUE(error.sentence().contains(QString::fromUtf8(c.sentencePart)))
        << error.message().toStdString();
    EXPECT_TRUE(error.file().endsWith(c.action ? u"temp2.txt" : u"temp.txt"));
}

INSTANTIATE_TEST_SUITE_P(Grammar, CatalogueFaults,
    testing::Values(
        FaultCase {"FieldBeforeFirstEntry", false, "// x\n<s>;A\n", 2, "before the first"},
        FaultCase {"TitleWithoutField", false, "<c>\n<s>\n", 2, "field 1 is needed"},
        FaultCase {"ResultNotANumber", false, "<c>\n<r>;a;1\n", 2, "not a number"},
        FaultCase {"ResultMissingSecond", false, "<c>\n<r>;1\n", 2, "field 2"},
        FaultCase {"CodeModeNotANumber", false, "<c>\n<i>|x|a|\n", 2, "not a number"},
        FaultCase {"ActionArgumentNeedsFiveFields", true, "<c>\n<f>;A;h;0;1\n", 2, "field 5"},
        FaultCase {"ItemWithoutColon", true, "<g>|3|abc|\n", 1, "no \":\""},
        FaultCase {"RowThirty", true, "\n<j>|30|X|1|t|INT\n", 2, "row 30"},
        FaultCase {"ItemRowThirty", true, "<g>|30|a:b|\n", 1, "row 30"},
        FaultCase {"RowNotANumber", true, "<j>|x|X|1|t|INT\n", 1, "not a number"},
        FaultCase {
            "ArgumentWithoutAlternativeBox", true, "<c>\n<s>;Big\n<f>;a;h;0;-1\n", 3, "field 5"}),
    [](const testing::TestParamInfo<FaultCase>& info) { return std::string(info.param.name); });

TEST(CatalogueGrammar, MissingFileNamesIt)
{
    ReferenceListTable tables;
    const FileError error
        = failure([&] { readActionCatalogue(QStringLiteral("/nonexistent/temp2.txt"), tables); });
    EXPECT_EQ(error.line(), 0);
    EXPECT_EQ(error.file(), u"/nonexistent/temp2.txt");
}

// The shipped catalogues must load and exercise every part of the grammar and
// every list row the program uses.
TEST(ShippedCatalogues, LoadAndCoverWhatTheEditorNeeds)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    ASSERT_NO_THROW(ResetProject(workspace));
    const Catalogue& conds = workspace.conditionCatalogue;
    const Catalogue& acts = workspace.actionCatalogue;
    EXPECT_GE(conds.size(), 15);
    EXPECT_GE(acts.size(), 25);

    std::set<int> condForms, styles, actForms, actionRows;
    bool valueType17 = false, altBox = false, gameOver = false;
    for (const CatalogueEntry& e : conds) {
        condForms.insert(e.CodeMode);
        styles.insert(e.ResultA);
        valueType17 = valueType17 || e.ResultB == 17;
        EXPECT_LE(e.ArgCount, 8);
    }
    for (const CatalogueEntry& e : acts) {
        actForms.insert(e.CodeMode);
        gameOver = gameOver || e.CallName == u"gameOverMessage";
        for (const ArgumentSlot& a : e.Args) {
            altBox = altBox || a.UseAltBox;
            actionRows.insert(a.ListRef);
        }
    }
    EXPECT_EQ(condForms, (std::set<int> {0, 1, 2}));
    EXPECT_TRUE(styles.count(0) && styles.count(1));
    EXPECT_TRUE(valueType17);
    EXPECT_TRUE(actForms.count(0) && actForms.count(2));
    EXPECT_TRUE(altBox);
    EXPECT_TRUE(gameOver);
    for (int r : {0, 1, 7, 12, 13, 14, 15, 17})
        EXPECT_TRUE(actionRows.count(r)) << "no action offers row " << r;

    const ReferenceListTable& t = workspace.project.tables;
    EXPECT_EQ(t[0].Scope, 2);
    EXPECT_EQ(t[0].CodeTemplate, u"integ[&&0]");
    EXPECT_EQ(t[0].ValueType, u"INT");
    EXPECT_EQ(t[0].ItemCount, 5);
    EXPECT_EQ(t[7].Scope, 2);
    EXPECT_EQ(t[7].CodeTemplate, u"Group[&&0]");
    EXPECT_EQ(t[17].Scope, 2);
    EXPECT_EQ(t[17].ValueType, u"BOOL");
    EXPECT_GT(t[17].ItemCount, 0);
    for (int i = 0; i < t[17].ItemCount; ++i)
        EXPECT_EQ(t[17].RawCodes[i], u"FALSE");
    bool privateRow = false, textRow = false;
    for (const ReferenceList& row : t) {
        privateRow = privateRow || (row.Scope == 1 && row.ItemCount > 0);
        textRow = textRow
            || (row.Scope == 2 && row.ItemCount > 0 && row.ValueType != u"INT"
                && row.ValueType != u"BOOL");
    }
    EXPECT_TRUE(privateRow);
    EXPECT_TRUE(textRow);
}
