// The compile's rules below the whole-tree cases: which names may become a
// file in the output tree, the argument-marker replacement in one pass, the
// lookup that keeps resolved references, and a values text that no project
// file can make fail.
#include "catalogue/reference_markers.h"
#include "compile/argument_markers.h"
#include "compile/output_guard.h"
#include "compile/output_tree.h"
#include "compile/script_lookup.h"
#include "compile/sound_source.h"
#include "compile/step_log.h"
#include "compile/values_writer.h"
#include "base/file_error.h"
#include "records/project.h"
#include "program_folder.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::WriteScript;

namespace {

#ifdef Q_OS_UNIX
// What the compile reads as a sound: the entries a project could name, set
// up in a folder of the project's own and one outside it.
TEST(SoundSource, OnlyWavFilesOfASoundsSizeInsideAreRead)
{
    QTemporaryDir home;
    QTemporaryDir away;
    const QByteArray wav = QByteArray("RIFF\x04\0\0\0WAVE", 12) + "data";
    writeBytes(home.filePath("good.wav"), wav);
    writeBytes(away.filePath("far.wav"), wav);
    writeBytes(home.filePath("riff.wav"), "RIFF\x04\0\0\0AVI data");
    writeBytes(home.filePath("short.wav"), "RIFF");
    writeBytes(home.filePath("huge.wav"), wav);
    QFile(home.filePath("huge.wav")).resize(sound_source::SizeLimit + 1); // sparse
    QFile::link(home.filePath("good.wav"), home.filePath("inside.wav"));
    QFile::link(away.filePath("far.wav"), home.filePath("outside.wav"));
    QFile::link(home.filePath("gone.wav"), home.filePath("dangling.wav"));
    QDir().mkdir(home.filePath("folder.wav"));
    const char* const notWav = "it does not start as a WAV file (no RIFF/WAVE header)";
    const std::pair<QString, const char*> rows[] = {
        {home.filePath("good.wav"), ""},
        {home.filePath("inside.wav"), ""},
        {away.filePath("far.wav"), ""}, // outside, but no link: the check warns
        {home.filePath("riff.wav"), notWav},
        {home.filePath("short.wav"), notWav},
        {home.filePath("huge.wav"), "it is larger than 64 MB"},
        {home.filePath("outside.wav"),
            "it is a link to a place outside the project's folder and the program folder"},
        {home.filePath("dangling.wav"), "it is a link to nothing"},
        {home.filePath("folder.wav"), "it is not a plain file (a folder, a device or a pipe)"},
        {"/dev/null", "it lies in a folder of the system (/proc, /sys or /dev)"},
        {"/proc/self/environ", "it lies in a folder of the system (/proc, /sys or /dev)"},
    };
    const QStringList folders {home.path()};
    for (const auto& [path, problem] : rows) {
        QByteArray bytes;
        EXPECT_EQ(sound_source::problem(path, folders, &bytes), QString::fromUtf8(problem))
            << path.toStdString();
        EXPECT_EQ(bytes, *problem ? QByteArray() : wav) << path.toStdString();
    }
    EXPECT_TRUE(sound_source::liesInside(home.filePath("inside.wav"), folders));
    EXPECT_FALSE(sound_source::liesInside(away.filePath("far.wav"), folders));
    EXPECT_FALSE(sound_source::liesInside(home.path() + "x/a.wav", folders));
}
#endif

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

// The one pass against the step-by-step order the catalogues were written for
// (the case "sections_and_quirks" pins its quirks), on generated lines over a
// small alphabet, so that markers, stray "&", digits and arguments holding
// markers meet often.
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

// The writer skips the file's text, not the file: an old values file must not
// pass for this compile's.
TEST(ValuesFile, ATextThatCannotBeBuiltLeavesAnEmptyFileAndAWarning)
{
    QTemporaryDir root;
    Project project;
    project.name = QStringLiteral("S");
    ReferenceList& numbers = project.tables[row::Integers];
    numbers.Scope = 2;
    numbers.RawCodes = QStringList {"1", "2", "3", "4", "5"};
    numbers.ItemCount = 6; // one more than the values it holds
    writeBytes(root.filePath("script/data/S.vlo"), "old values");
    StepLog log;
    WriteScript::WriteValuesFile({project, root.path(), root.path(), log, {}}, "script/data/S.vlo");
    EXPECT_EQ(readBytes(root.filePath("script/data/S.vlo")), QByteArray());
    ASSERT_EQ(log.warnings().size(), 1);
    EXPECT_TRUE(log.warnings()[0].startsWith("values file: "));
}

} // namespace
