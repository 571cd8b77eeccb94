// The reference routines the oracle leaves out: reading the first reference
// of a text, and the items an argument box offers. The others are checked
// against the oracle in reference_differential_test.cpp.
#include "catalogue/reference_markers.h"

#include <gtest/gtest.h>

using namespace tarvo;
using namespace Qt::StringLiterals;

TEST(ReferenceMarkers, RowAndIdOfTheFirstReference)
{
    const struct
    {
        QString text;
        int row;
        int id;
    } cases[] = {
        {u"&&12$$9§"_s, 12, 9},
        {u"x &&14$$31§"_s, 0, 31}, // "x 14" is no number
        {u"x &&14$$31§ and &&15$$2§"_s, 0, 0}, // the ID runs up to the next "$$"
        {u"&&1$$23$$§"_s, 1, 23},
        {u"$$5$$&§"_s, 0, 5},
        {u"&&5$6§xy"_s, 0, 0}, // no "$$"
        {u"&&1$$"_s, 0, 0}, // shorter than a reference
        {u"plain text"_s, 0, 0},
        {u"ab&&c$$1§"_s, 0, 1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(RowOfReference(c.text), c.row) << c.text.toStdString();
        EXPECT_EQ(IdOfReference(c.text), c.id) << c.text.toStdString();
    }
}

TEST(ReferenceMarkers, ComboItemsFollowTheNextFreeId)
{
    ReferenceListTable t;
    t[3].Texts = QStringList {u"Tank"_s, u"Tank0"_s, u"Jeep"_s};
    t[3].Ids = {0, 1, 2};
    t[3].ItemCount = 3;
    EXPECT_EQ(comboItemsFromList(t, 3), t[3].Texts);
    EXPECT_TRUE(comboItemsFromList(t, -1).isEmpty());
    t[3].Ids = {0, 0, 0};
    EXPECT_EQ(comboItemsFromList(t, 3), QStringList {u"Tank"_s});
    t[3].Ids = {0, 9, 0}; // never more than the row holds
    EXPECT_EQ(comboItemsFromList(t, 3), t[3].Texts);
}
