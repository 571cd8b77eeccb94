// Catalogues: each folder under tests/data/catalogue holds a temp.txt and a
// temp2.txt; a reset over them must give the golden dump of the kinds, the
// kind combos and the list rows, or stop at the faulty line it names.
#include "workspace_case.h"

#include <set>

using namespace tarvo;

GOLDEN_CASE_FOLDERS(CatalogueCases, "catalogue");

// The shipped catalogues are data the editor depends on: they must load and
// use every form, style and list row the program fills.
TEST(ShippedCatalogues, LoadAndCoverWhatTheEditorNeeds)
{
    ScriptedPrompter prompter;
    Workspace w(sourceProgramDir(), prompter);
    ASSERT_NO_THROW(ResetProject(w));
    std::set<QString> seen;
    for (const CatalogueEntry& e : w.conditionCatalogue) {
        seen.insert({QStringLiteral("condition form %1").arg(e.CodeMode),
            QStringLiteral("style %1").arg(e.ResultA), QStringLiteral("type %1").arg(e.ResultB)});
        EXPECT_LE(e.ArgCount, 8) << e.Title.toStdString();
    }
    for (const CatalogueEntry& e : w.actionCatalogue) {
        seen.insert({QStringLiteral("action form %1").arg(e.CodeMode), e.CallName});
        for (const ArgumentSlot& a : e.Args)
            seen.insert({QStringLiteral("row %1").arg(a.ListRef), a.UseAltBox ? "alt" : ""});
    }
    for (const ReferenceList& row : w.project.tables) {
        const QString scope = QStringLiteral("scope %1 ").arg(row.Scope);
        const bool text = row.ItemCount > 0 && row.ValueType != u"INT" && row.ValueType != u"BOOL";
        seen.insert({scope + row.ValueType + row.CodeTemplate, row.ItemCount ? scope + "items" : "",
            text ? scope + "texts" : ""});
    }
    for (const char* need :
        {"condition form 0", "condition form 1", "condition form 2", "style 0", "style 1",
            "type 17", "action form 0", "action form 2", "gameOverMessage", "alt", "row 0", "row 1",
            "row 7", "row 12", "row 13", "row 14", "row 15", "row 17", "scope 2 INTinteg[&&0]",
            "scope 2 GROUPGroup[&&0]", "scope 2 BOOLflag[&&0]", "scope 1 items", "scope 2 texts"})
        EXPECT_TRUE(seen.count(QLatin1String(need))) << need;
    EXPECT_GE(w.conditionCatalogue.size(), 15);
    EXPECT_GE(w.actionCatalogue.size(), 25);
    EXPECT_EQ(w.project.tables[0].ItemCount, 5);
    EXPECT_EQ(w.project.tables[17].RawCodes.mid(0, w.project.tables[17].ItemCount),
        QStringList(w.project.tables[17].ItemCount, "FALSE"));
}
