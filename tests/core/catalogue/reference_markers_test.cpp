#include "catalogue/reference_markers.h"
#include "scripted_prompter.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

void addItem(ReferenceList& row, const QString& code, const QString& text, qint16 id,
    const QString& raw = QString())
{
    row.Codes.append(code);
    row.Texts.append(text);
    row.Ids.append(id);
    row.RawCodes.append(raw.isEmpty() ? code : raw);
    row.ItemCount = static_cast<qint16>(row.ItemCount + 1);
}

// Row 3 holds units whose texts are prefixes of each other, row 0 the five
// fixed integers and one of the user's, row 12 two events with gaps in their IDs.
ReferenceListTable sampleTable()
{
    ReferenceListTable t;
    for (ReferenceList& row : t)
        row.UsesIds = true;
    t[3].ListName = QStringLiteral("Units");
    addItem(t[3], QStringLiteral("U_TANK"), QStringLiteral("Tank"), 0);
    addItem(t[3], QStringLiteral("U_TANK0"), QStringLiteral("Tank0"), 1);
    addItem(t[3], QStringLiteral("U_JEEP"), QStringLiteral("Jeep"), 2);
    t[0].ListName = QStringLiteral("Numbers");
    for (int i = 0; i < 5; ++i)
        addItem(t[0], QStringLiteral("integ[%1]").arg(i), QStringLiteral("Fixed%1").arg(i),
            qint16(i), QStringLiteral("raw%1").arg(i));
    addItem(t[0], QStringLiteral("integ[0]"), QStringLiteral("Score"), 5, QStringLiteral("0"));
    t[12].ListName = QStringLiteral("Events");
    addItem(t[12], QStringLiteral("event0"), QStringLiteral("Start"), 4);
    addItem(t[12], QStringLiteral("event1"), QStringLiteral("Attack"), 9);
    return t;
}

} // namespace

TEST(ReferenceMarkers, EncodeLeavesTextAloneForNoRowOrEmptyText)
{
    ScriptedPrompter p;
    const ReferenceListTable t = sampleTable();
    EXPECT_EQ(EncodeReferences(t, -1, QStringLiteral("Tank"), p), u"Tank");
    EXPECT_EQ(EncodeReferences(t, 3, QString(), p), u"");
    EXPECT_EQ(EncodeReferences(t, 3, QStringLiteral("Truck"), p), u"Truck");
    EXPECT_FALSE(referenceBoxNamesItem(t, 3, QStringLiteral("Truck"), p));
    EXPECT_FALSE(referenceBoxNamesItem(t, -1, QStringLiteral("Tank"), p));
}

TEST(ReferenceMarkers, EncodePrefersTheItemThatSavesMost)
{
    ScriptedPrompter p;
    const ReferenceListTable t = sampleTable();
    EXPECT_EQ(EncodeReferences(t, 3, QStringLiteral("Tank0"), p), u"&&3$$1§");
    EXPECT_EQ(EncodeReferences(t, 3, QStringLiteral("Tank"), p), u"&&3$$0§");
    // The best length is never reset: after "Tank0" was encoded, "Jeep" would make
    // the text longer again and stays plain.
    EXPECT_EQ(EncodeReferences(t, 3, QStringLiteral("Jeep and Tank0"), p), u"Jeep and &&3$$1§");
    EXPECT_EQ(EncodeReferences(t, 3, QStringLiteral("Jeep"), p), u"&&3$$2§");
    EXPECT_TRUE(referenceBoxNamesItem(t, 3, QStringLiteral("Jeep"), p));
    // IDs, not positions, go into the reference.
    EXPECT_EQ(EncodeReferences(t, 12, QStringLiteral("Attack"), p), u"&&12$$9§");
    EXPECT_TRUE(p.prompts.isEmpty());
}

TEST(ReferenceMarkers, DecodeShowsItemTexts)
{
    ScriptedPrompter p;
    const ReferenceListTable t = sampleTable();
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("&&3$$1§ + &&12$$4§"), p), u"Tank0 + Start");
    EXPECT_EQ(DecodeReferences(t, QString(), p), u"");
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("plain"), p), u"plain");
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("a&&b"), p), u"a&&b");
    // One resolvable reference is enough: the rest stays as it is, silently.
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("&&3$$2§&&3$$7§"), p), u"Jeep&&3$$7§");
    EXPECT_TRUE(p.prompts.isEmpty());
}

TEST(ReferenceMarkers, DecodeOfADeletedItemShowsAQuestionMarkAndAnError)
{
    ScriptedPrompter p;
    const ReferenceListTable t = sampleTable();
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("&&3$$7§"), p), u"?");
    EXPECT_EQ(
        p.statusLines(), QStringList {QStringLiteral("Error: Couldn't parse 'Units' variable")});
    p.clear();
    // Plain text that looks like a broken reference is treated the same.
    EXPECT_EQ(DecodeReferences(t, QStringLiteral("x && y"), p), u"?");
    EXPECT_EQ(
        p.statusLines(), QStringList {QStringLiteral("Error: Couldn't parse 'Numbers' variable")});
}

TEST(ReferenceMarkers, ResolveGivesScriptCodesInThreeForms)
{
    const ReferenceListTable t = sampleTable();
    const QString stored = QStringLiteral("&&0$$2§+&&0$$5§+&&3$$1§");
    EXPECT_EQ(ResolveReferences(t, stored, ResolveForm::A), u"integ[2]+integ[0]+U_TANK0");
    EXPECT_EQ(ResolveReferences(t, stored, ResolveForm::B), u"raw2+integ[0]+U_TANK0");
    EXPECT_EQ(ResolveReferences(t, stored, ResolveForm::C), u"(integ[2]+integ[0]+U_TANK0)");
    // A missing ID below the row's next free ID is "?"; IDs beyond it stay encoded.
    EXPECT_EQ(ResolveReferences(t, QStringLiteral("&&12$$5§ &&12$$10§ &&12$$11§"), ResolveForm::A),
        u"? ? &&12$$11§");
    EXPECT_EQ(ResolveReferences(t, QStringLiteral("-1"), ResolveForm::C), u"(-1)");
}

TEST(ReferenceMarkers, IdLookups)
{
    ScriptedPrompter p;
    ReferenceListTable t = sampleTable();
    EXPECT_EQ(getIDfromIndex(t, 12, 1, p), u"9");
    EXPECT_EQ(getIDfromIndex(t, 12, -1, p), u"-1");
    EXPECT_EQ(GetIndexFromID(t, 12, 9), u"1");
    EXPECT_EQ(GetIndexFromID(t, 12, 5), u"-1");
    EXPECT_EQ(GetIndexFromID(t, 12, -1), u"-1");
    EXPECT_EQ(NextFreeID(t, 12), 10);
    EXPECT_EQ(NextFreeID(t, 20), 0);
    t[3].Ids[2] = 0; // two items with ID 0: the later one wins
    EXPECT_EQ(GetIndexFromID(t, 3, 0), u"2");
    t[3].UsesIds = false;
    EXPECT_EQ(GetIndexFromID(t, 3, 7), u"7");
    EXPECT_EQ(getIDfromIndex(t, 3, 2, p), u"2");
    EXPECT_TRUE(p.prompts.isEmpty());
}

TEST(ReferenceMarkers, NegativeIdIsReportedAndUsed)
{
    ScriptedPrompter p;
    ReferenceListTable t = sampleTable();
    t[12].Ids[0] = -3;
    EXPECT_EQ(getIDfromIndex(t, 12, 0, p), u"-3");
    ASSERT_EQ(p.prompts.size(), 1);
    EXPECT_EQ(p.prompts[0].text,
        u"getIDfromIndex variable Error! (Events: 12, 0). Couldn't find variable.");
    EXPECT_EQ(p.prompts[0].icon, Prompter::Icon::Critical);
}

TEST(ReferenceMarkers, RowAndIdOfTheFirstReference)
{
    EXPECT_EQ(RowOfReference(QStringLiteral("&&12$$9§")), 12);
    EXPECT_EQ(IdOfReference(QStringLiteral("&&12$$9§")), 9);
    EXPECT_EQ(IdOfReference(QStringLiteral("x &&14$$31§")), 31);
    // The ID runs up to the next "$$", so a second reference makes it unreadable.
    EXPECT_EQ(IdOfReference(QStringLiteral("x &&14$$31§ and &&15$$2§")), 0);
    EXPECT_EQ(RowOfReference(QStringLiteral("&&1$$")), 0);
    EXPECT_EQ(IdOfReference(QStringLiteral("plain text")), 0);
    EXPECT_EQ(RowOfReference(QStringLiteral("ab&&c$$1§")), 0);
}

TEST(ReferenceMarkers, ComboItemsFollowTheNextFreeId)
{
    ReferenceListTable t = sampleTable();
    EXPECT_EQ(comboItemsFromList(t, 3),
        (QStringList {QStringLiteral("Tank"), QStringLiteral("Tank0"), QStringLiteral("Jeep")}));
    EXPECT_TRUE(comboItemsFromList(t, -1).isEmpty());
    t[3].Ids = {0, 0, 0};
    EXPECT_EQ(comboItemsFromList(t, 3), QStringList {QStringLiteral("Tank")});
}
