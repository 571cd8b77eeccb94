// The compile's rules below the whole-tree cases: which names may become a
// file in the output tree, the argument-marker replacement the catalogues
// were written for, and the lookup that keeps resolved references.
#include "catalogue/reference_markers.h"
#include "compile/argument_markers.h"
#include "compile/output_guard.h"
#include "compile/script_lookup.h"
#include "model/file_error.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::WriteScript;

namespace {

TEST(OutputGuard, OnlyPlainNamesBecomeFiles)
{
    const std::pair<QString, const char*> rows[] = {
        {"Mission 1.wav", ""},
        {"a..b", ""},
        {"...", ""},
        {"", "it is empty"},
        {".", "it names a folder above or at its own place"},
        {"..", "it names a folder above or at its own place"},
        {"a/b", "it holds a path separator"},
        {"..\\x", "it holds a path separator"},
        {"/x", "it holds a path separator"},
        {"C:", "it holds a drive letter or a colon"},
        {QStringLiteral("Other.txt") + QChar(0) + u'x', "it holds the control character <U+0000>"},
        {"a\x1f", "it holds the control character <U+001F>"},
        {"a\x7f", "it holds the control character <U+007F>"},
    };
    for (const auto& [name, problem] : rows)
        EXPECT_EQ(plainNameProblem(name), QLatin1String(problem)) << name.toStdString();
}

TEST(ArgumentMarkers, ReplacesInOrderWithTheCataloguesQuirks)
{
    const std::tuple<const char*, QStringList, const char*> rows[] = {
        {"f(&&0, &&1);", {"a", "b"}, "f(a, b);"},
        {"&&0 = &&1 + &&0;", {"x", "7"}, "x = 7 + x;"},
        {"&&10", {"a", "b"}, "b0"}, // argument 1 eats the start of "&&10"
        {"&&0", {"&&1", "b"}, "b"}, // a marker brought in early is replaced
        {"&&1", {"a", "&&0"}, "&&0"}, // one brought in late is not
        {"&&&&01", {"1", "z"}, "z1"}, // a digit after "&&" makes a marker
        {"&&2 &&r &&& &&$", {"a", "b"}, "&&2 &&r &&& &&$"},
        {"plain", {}, "plain"},
    };
    for (const auto& [line, arguments, result] : rows)
        EXPECT_EQ(withArguments(QLatin1String(line), arguments), QLatin1String(result)) << line;
}

// The one pass against the step-by-step order on generated lines over a small
// alphabet, so that markers, stray "&", digits and arguments holding markers
// meet often.
TEST(ArgumentMarkers, OnePassMatchesStepByStepOnGeneratedLines)
{
    QRandomGenerator random(20261122);
    const auto pick = [&](const QString& alphabet, int length) {
        QString text;
        for (int i = 0; i < length; ++i)
            text += alphabet.at(random.bounded(alphabet.size()));
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const QString line = pick(QStringLiteral("&&&&&01239a"), random.bounded(12));
        QStringList arguments;
        const int count = random.bounded(13);
        // Most rounds without "&" in the arguments, to reach the one pass.
        const QString alphabet = random.bounded(3) != 0 ? QStringLiteral("01x") : "&01x";
        for (int a = 0; a < count; ++a)
            arguments.append(pick(alphabet, random.bounded(4)));
        const QString expected = withArgumentsStepByStep(line, arguments);
        const std::string trace = line.toStdString() + " / " + arguments.join(u'|').toStdString();
        ASSERT_EQ(withArguments(line, arguments), expected) << trace;
        ASSERT_EQ(withArguments(u"\t\t", line, arguments), QStringLiteral("\t\t") + expected)
            << trace;
    }
}

// Resolved texts are kept per compile; a failure must be raised every time.
TEST(ScriptLookup, GivesWhatResolvingGivesAndRaisesEveryFailureAgain)
{
    ReferenceListTable table;
    ReferenceList& groups = table[7];
    groups.ItemCount = 2;
    groups.UsesIds = true;
    groups.Ids = {0, 1};
    groups.Texts = {"North", "South"};
    groups.Codes = {"group0"}; // the second item has no code
    const ReferenceIndex index(table);
    const ScriptLookup lookup(index);
    const QString good = encodedReference(7, "0") + " + 1";
    for (int pass = 0; pass < 2; ++pass) {
        for (const ResolveForm form : {ResolveForm::A, ResolveForm::B, ResolveForm::C})
            EXPECT_EQ(lookup.resolve(good, form), ResolveReferences(table, good, form));
        EXPECT_THROW(lookup.resolve(encodedReference(7, "1"), ResolveForm::B), DataError);
    }
    EXPECT_EQ(lookup.resolve(good, ResolveForm::C), "(group0 + 1)");
}

} // namespace
