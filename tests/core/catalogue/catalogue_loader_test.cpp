// Catalogues: each folder under tests/data/catalogue holds a temp.txt and a
// temp2.txt; a reset over them must give the golden dump of the kinds, the
// kind combos and the list rows, or stop at the faulty line it names.
#include "../model/workspace_case.h"

#include <set>

using namespace tarvo;

class CatalogueCases : public testing::TestWithParam<golden::Case>
{
};

TEST_P(CatalogueCases, LoadAsTheGoldenDumpSays)
{
    golden::checkCase(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Folders, CatalogueCases,
    testing::ValuesIn(golden::folderCases(QStringLiteral("catalogue"))), golden::caseName);
INSTANTIATE_TEST_SUITE_P(HostileConditions, CatalogueCases,
    testing::ValuesIn(golden::hostileCases(QStringLiteral("condition_catalogue"))),
    golden::caseName);
INSTANTIATE_TEST_SUITE_P(HostileActions, CatalogueCases,
    testing::ValuesIn(golden::hostileCases(QStringLiteral("action_catalogue"))), golden::caseName);

// The shipped catalogues are data the editor depends on: they must load and
// use every form and every list row the program fills.
TEST(ShippedCatalogues, LoadAndCoverWhatTheEditorNeeds)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    ASSERT_NO_THROW(ResetProject(workspace));
    EXPECT_GE(workspace.conditionCatalogue.size(), 15);
    EXPECT_GE(workspace.actionCatalogue.size(), 25);
    std::set<int> condForms, styles, actForms, actionRows;
    bool valueType17 = false, altBox = false, gameOver = false;
    for (const CatalogueEntry& e : workspace.conditionCatalogue) {
        condForms.insert(e.CodeMode);
        styles.insert(e.ResultA);
        valueType17 = valueType17 || e.ResultB == 17;
        EXPECT_LE(e.ArgCount, 8) << e.Title.toStdString();
    }
    for (const CatalogueEntry& e : workspace.actionCatalogue) {
        actForms.insert(e.CodeMode);
        gameOver = gameOver || e.CallName == u"gameOverMessage";
        for (const ArgumentSlot& a : e.Args) {
            altBox = altBox || a.UseAltBox;
            actionRows.insert(a.ListRef);
        }
    }
    EXPECT_EQ(condForms, (std::set<int> {0, 1, 2}));
    EXPECT_TRUE(styles.count(0) && styles.count(1));
    EXPECT_TRUE(valueType17 && altBox && gameOver && actForms.count(0) && actForms.count(2));
    for (int r : {0, 1, 7, 12, 13, 14, 15, 17})
        EXPECT_TRUE(actionRows.count(r)) << "no action offers row " << r;
    const ReferenceListTable& t = workspace.project.tables;
    EXPECT_EQ(t[0].ItemCount, 5);
    for (const auto& [row, code, type] : {std::tuple {0, "integ[&&0]", "INT"},
             std::tuple {7, "Group[&&0]", "GROUP"}, std::tuple {17, "flag[&&0]", "BOOL"}}) {
        EXPECT_EQ(t[row].Scope, 2);
        EXPECT_EQ(t[row].CodeTemplate, QLatin1String(code));
        EXPECT_EQ(t[row].ValueType, QLatin1String(type));
    }
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
    EXPECT_TRUE(privateRow && textRow);
}
