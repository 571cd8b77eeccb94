// The stand-in packer run as the batch runs it: in an output folder, reading
// the resource lists in "vnr".
#include "cli_test_support.h"
#include "program_folder.h"
#include "test_paths.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace cli_test;

namespace {

const QString kPacker = builtProgramDir() + QStringLiteral("/Source/MakeVNP.exe");

struct OutputFolder
{
    OutputFolder()
    {
        QDir(dir.path()).mkpath("Mission");
        writeBytes(file("script/text/Mission.slo"), "script");
        writeBytes(file("script/data/Mission.vlo"), "values");
        writeBytes(file(QStringLiteral("audio/Extra/b\xe9l.wav")), "RIFF");
        writeBytes(file("notes.txt"), "not listed");
    }

    QString root() const { return dir.filePath("Mission"); }
    QString file(const QString& relative) const { return root() + u'/' + relative; }
    QString archive() const { return file("Mission.vnp"); }

    QTemporaryDir dir;
};

TEST(MakeVnp, PacksEveryListedFileUnderItsRelativePath)
{
    OutputFolder folder;
    // Directory names with "\", a comment, padding of both lists, a file
    // named twice, a Windows-1252 file name.
    writeBytes(folder.file("vnr/Stats.vnr"),
        crlfBytes(QStringLiteral("// stats\n\ndirectory       \"script\\text\"\n"
                                 "file            SCRIPT      \"Mission.slo\"\n\n"
                                 "directory       \"script\\data\"\n"
                                 "file            SCRIPTVAL   \"Mission.vlo\"\n"
                                 "file            SCRIPTVAL   \"Mission.vlo\"\n")));
    writeBytes(folder.file("vnr/audio.vnr"),
        crlfBytes(QStringLiteral(
            "\ndirectory   \"audio\\Extra\"\n\t\tfile        WAV \"b\u00e9l.wav\"\n")));

    const ProgramRun run = runProgram(kPacker, {}, folder.root());
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(archiveEntries(folder.archive()),
        QStringList(
            {"audio/Extra/b\u00e9l.wav", "script/data/Mission.vlo", "script/text/Mission.slo"}));
    EXPECT_EQ(archiveEntry(folder.archive(), "script/data/Mission.vlo"), "values");
}

TEST(MakeVnp, MissingFilesAreNamedAndNoArchiveIsWritten)
{
    OutputFolder folder;
    writeBytes(folder.archive(), "older archive");
    writeBytes(folder.file("vnr/Stats.vnr"),
        crlfBytes(QStringLiteral("directory \"script\\text\"\nfile SCRIPT \"Mission.slo\"\n"
                                 "file SCRIPT \"Gone.slo\"\ndirectory \"audio\"\n"
                                 "file WAV \"gone.wav\"\n")));
    const ProgramRun run = runProgram(kPacker, {}, folder.root());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("\"script/text/Gone.slo\""));
    EXPECT_TRUE(run.err.contains("\"audio/gone.wav\""));
    EXPECT_EQ(readBytes(folder.archive()), "older archive");
    EXPECT_FALSE(QFileInfo::exists(folder.archive() + QStringLiteral(".part")));
}

TEST(MakeVnp, ListsThatPointOutsideTheFolderOrNoListsAtAllFail)
{
    OutputFolder folder;
    ProgramRun run = runProgram(kPacker, {}, folder.root());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("no resource lists"));

    writeBytes(folder.dir.filePath("secret.txt"), "outside");
    writeBytes(
        folder.file("vnr/Stats.vnr"), crlfBytes("directory \"..\"\nfile X \"secret.txt\"\n"));
    run = runProgram(kPacker, {}, folder.root());
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("leaves the output folder")) << run.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(folder.archive()));
}

} // namespace
