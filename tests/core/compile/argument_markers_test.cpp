// The one-pass marker replacement against the step-by-step order the
// catalogues were written for, on hand-made traps and on generated lines
// over a small alphabet, so that markers, stray "&", digits and arguments
// that hold markers meet often.
#include "compile/argument_markers.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace tarvo::WriteScript;

namespace {

TEST(ArgumentMarkers, ReplacesInOrderWithTheCataloguesQuirks)
{
    EXPECT_EQ(withArguments("f(&&0, &&1);", {"a", "b"}), "f(a, b);");
    EXPECT_EQ(withArguments("&&0 = &&1 + &&0;", {"x", "7"}), "x = 7 + x;");
    // The marker of argument 1 eats the start of "&&10".
    EXPECT_EQ(withArguments("&&10", {"a", "b"}), "b0");
    // A marker brought in by an earlier argument is replaced in its turn,
    // one brought in by a later one is not.
    EXPECT_EQ(withArguments("&&0", {"&&1", "b"}), "b");
    EXPECT_EQ(withArguments("&&1", {"a", "&&0"}), "&&0");
    // An argument starting with a digit after "&&" makes a new marker, which
    // the next step replaces.
    EXPECT_EQ(withArguments("&&&&01", {"1", "z"}), "z1");
    // Markers beyond the arguments, and lines without any, stay.
    EXPECT_EQ(withArguments("&&2 &&r &&& &&$", {"a", "b"}), "&&2 &&r &&& &&$");
    EXPECT_EQ(withArguments("plain", {}), "plain");
}

TEST(ArgumentMarkers, OnePassMatchesStepByStepOnGeneratedLines)
{
    QRandomGenerator random(20261122);
    const QString lineAlphabet = QStringLiteral("&&&&&01239a");
    const QString argumentAlphabet = QStringLiteral("&01x");
    const auto pick = [&](const QString& alphabet, int length) {
        QString text;
        for (int i = 0; i < length; ++i)
            text += alphabet.at(random.bounded(alphabet.size()));
        return text;
    };
    for (int round = 0; round < 20000; ++round) {
        const QString line = pick(lineAlphabet, random.bounded(12));
        QStringList arguments;
        const int count = random.bounded(13);
        // Most rounds without "&" in the arguments, to reach the one pass.
        const bool plain = random.bounded(3) != 0;
        for (int a = 0; a < count; ++a)
            arguments.append(
                pick(plain ? QStringLiteral("01x") : argumentAlphabet, random.bounded(4)));
        const QString expected = withArgumentsStepByStep(line, arguments);
        ASSERT_EQ(withArguments(line, arguments), expected)
            << line.toStdString() << " / " << arguments.join(u'|').toStdString();
        // The indented form is the indent and the same line, whichever way
        // it was made.
        ASSERT_EQ(withArguments(u"\t\t", line, arguments), QStringLiteral("\t\t") + expected)
            << line.toStdString() << " / " << arguments.join(u'|').toStdString();
    }
}

} // namespace
