// The compile's lookup keeps what it resolved; it must give what the
// references routines give, for every form, and never keep a failure.
#include "catalogue/reference_markers.h"
#include "compile/script_lookup.h"
#include "model/file_error.h"

#include <gtest/gtest.h>

using namespace tarvo;

namespace {

ReferenceListTable groupsWithAMissingCode()
{
    ReferenceListTable table;
    ReferenceList& groups = table[7];
    groups.ItemCount = 2;
    groups.UsesIds = true;
    groups.Ids = {0, 1};
    groups.Texts = {"North", "South"};
    groups.Codes = {"group0"}; // the second item has no code
    return table;
}

TEST(ScriptLookup, GivesWhatResolvingGivesAndRaisesEveryFailureAgain)
{
    const ReferenceListTable table = groupsWithAMissingCode();
    const ReferenceIndex index(table);
    const ScriptLookup lookup(index);
    const QString good = encodedReference(7, "0") + " + 1";
    const QString bad = encodedReference(7, "1");

    for (int pass = 0; pass < 2; ++pass) {
        for (const ResolveForm form : {ResolveForm::A, ResolveForm::B, ResolveForm::C})
            EXPECT_EQ(lookup.resolve(good, form), ResolveReferences(table, good, form));
        EXPECT_THROW(lookup.resolve(bad, ResolveForm::B), DataError) << "pass " << pass;
    }
    EXPECT_EQ(lookup.resolve(good, ResolveForm::C), "(group0 + 1)");
    EXPECT_EQ(lookup.resolve(good, ResolveForm::B), "group0 + 1");
}

} // namespace
