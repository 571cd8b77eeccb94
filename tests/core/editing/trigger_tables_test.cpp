#include "editing/trigger_tables.h"
#include "model/file_error.h"

#include <gtest/gtest.h>

using namespace tarvo;

TEST(TriggerTables, KindsKeepTheirStartUpValues)
{
    EXPECT_EQ(triggerKind(0).caption, u"Repeart every:");
    EXPECT_EQ(triggerKind(0).keyword, u"every");
    EXPECT_EQ(triggerKind(0).separator, u", ");
    EXPECT_EQ(triggerKind(1).keyword, u"wait");
    EXPECT_EQ(triggerKind(3).keyword, u"CALL_GAMEINIT");
    EXPECT_EQ(triggerKind(3).firstArgType, -1);
    // Kind 4 keeps 0 as its first argument type; kind 5 takes a group, then a player.
    EXPECT_EQ(triggerKind(4).firstArgType, 0);
    EXPECT_EQ(triggerKind(5).keyword, u"CALL_TRANSPORTER_LANDED");
    EXPECT_EQ(triggerKind(5).argCount, 2);
    EXPECT_EQ(triggerKind(5).firstArgType, 7);
    EXPECT_EQ(triggerKind(5).secondArgType, 1);
    EXPECT_EQ(triggerKind(8).caption, triggerKind(11).caption);
    for (int kind = 6; kind < 16; ++kind) {
        EXPECT_TRUE(triggerKind(kind).keyword.isEmpty() && triggerKind(kind).separator.isEmpty());
        EXPECT_EQ(triggerKind(kind).argCount, 0);
    }
    EXPECT_TRUE(triggerKind(13).caption.isEmpty());
}

TEST(TriggerTables, OperatorsAndNegations)
{
    EXPECT_EQ(operatorText(2), u"==");
    EXPECT_EQ(operatorComboItems().at(2), u"=");
    EXPECT_EQ(operatorText(5), u"!=");
    EXPECT_TRUE(operatorText(6).isEmpty());
    EXPECT_EQ(negationText(0), u"");
    EXPECT_EQ(negationText(1), u"not ");
    EXPECT_EQ(negationComboItems(), (QStringList {QString(), "Not"}));
    EXPECT_THROW(triggerKind(16), DataError);
    EXPECT_THROW(triggerKind(-1), DataError);
    EXPECT_THROW(operatorText(7), DataError);
    EXPECT_THROW(negationText(2), DataError);
}
