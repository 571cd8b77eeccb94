// `tarvo-cli compile` run as a program: the golden case without the packer,
// the shipped sample end to end with the real packer, and every way it can
// fail with its exit code and message.
#include "cli_test_support.h"
#include "program_folder.h"
#include "test_paths.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace cli_test;

namespace {

const QString kCli = QStringLiteral(TARVO_CLI_PATH);

// A program folder holding the built catalogues and templates (with the real
// packer), and the sample project with its sounds.
struct SampleFolder
{
    SampleFolder()
    {
        for (const char* name : {"temp.txt", "temp2.txt"})
            QFile::copy(
                builtProgramDir() + u'/' + QLatin1String(name), dir.filePath(QLatin1String(name)));
        copyTree(builtProgramDir() + QStringLiteral("/Source"), dir.filePath("Source"));
        QFile::setPermissions(dir.filePath("Source/MakeVNP.exe"),
            QFile::permissions(builtProgramDir() + QStringLiteral("/Source/MakeVNP.exe")));
        copyTree(sampleDir(), dir.filePath("sample"));
    }

    ProgramRun compile(const QStringList& extra = {}) const
    {
        return runProgram(
            kCli, QStringList {"compile", project(), "--program-dir", dir.path()} + extra);
    }

    QString project() const { return dir.filePath("sample/Demo.vnsc"); }
    QString root() const { return dir.filePath("Projects/Demo"); }
    QString archive() const { return root() + QStringLiteral("/Demo.vnp"); }

    QTemporaryDir dir;
};

TEST(CliCompile, GoldenCaseWithoutThePacker)
{
    QTemporaryDir dir;
    copyTree(testDataDir() + QStringLiteral("/compile/full/input"), dir.path());
    copyTree(testDataDir() + QStringLiteral("/compile/Source"), dir.filePath("Source"));
    writeBytes(dir.filePath("sounds/boom.wav"), "RIFF boom");
    writeBytes(dir.filePath("sounds/Wind.WAV"), "RIFF wind");

    const ProgramRun run = runProgram(
        kCli, {"compile", dir.filePath("Full.vnsc"), "--program-dir", dir.path(), "--no-pack"});
    const QString root = dir.filePath("Projects/Full");
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QDir::cleanPath(root) + QStringLiteral("\nDone.\n"));
    // The skipped statement of the golden case is a warning on stderr.
    EXPECT_TRUE(run.err.contains("\nwarning: event 0, action 2")) << run.err.toStdString();

    const QString expected = testDataDir() + QStringLiteral("/compile/full/expected");
    for (const QString& file : filesBelow(expected))
        EXPECT_EQ(readBytes(root + u'/' + file), readBytes(expected + u'/' + file))
            << file.toStdString();
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/Compile.bat")));
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/Wind.WAV")), "RIFF wind");
}

TEST(CliCompile, SampleCompilesEndToEndIntoAValidArchive)
{
    SampleFolder folder;
    const ProgramRun run = folder.compile();
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString() << run.out.toStdString();
    EXPECT_TRUE(run.out.endsWith("Done.\n"));
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();

    // Every content file of the tree (all but the lists and the packer's
    // own files), under its path in the tree; the sample has them all.
    QStringList content;
    for (const QString& file : filesBelow(folder.root())) {
        if (!file.startsWith("vnr/") && file.contains(u'/'))
            content.append(file);
    }
    const QStringList entries = archiveEntries(folder.archive());
    EXPECT_EQ(entries, content);
    for (const char* required : {"script/text/Demo.slo", "script/data/Demo.vlo",
             "messages/strings/GenStrings.txt", "messages/brief1-1.txt", "audio/Extra/alarm.wav"})
        EXPECT_TRUE(entries.contains(QLatin1String(required))) << required;
    for (const QString& entry : entries)
        EXPECT_EQ(archiveEntry(folder.archive(), entry), readBytes(folder.root() + u'/' + entry))
            << entry.toStdString();

    // A second compile gives the same tree, the archive rebuilt in place.
    const QStringList tree = filesBelow(folder.root());
    ASSERT_EQ(folder.compile().exitCode, 0);
    EXPECT_EQ(filesBelow(folder.root()), tree);
    EXPECT_EQ(archiveEntries(folder.archive()), entries);
}

TEST(CliCompile, AMissingSoundMakesThePackerFailAndNamesIt)
{
    SampleFolder folder;
    QFile::remove(folder.dir.filePath("sample/sounds/radio.wav"));
    const ProgramRun run = folder.compile();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("warning: Could not copy")) << run.err.toStdString();
    EXPECT_TRUE(run.err.contains("missing file \"audio/Extra/radio.wav\""))
        << run.err.toStdString();
    EXPECT_FALSE(run.out.contains("Done."));
    EXPECT_FALSE(QFileInfo::exists(folder.archive()));
    EXPECT_FALSE(QFileInfo::exists(folder.archive() + QStringLiteral(".part")));

    // Without the packer the same project is done, with the warning.
    const ProgramRun unpacked = folder.compile({"--no-pack"});
    EXPECT_EQ(unpacked.exitCode, 0);
    EXPECT_TRUE(unpacked.err.contains("radio.wav"));
}

TEST(CliCompile, AMissingPackerTemplateFails)
{
    SampleFolder folder;
    QFile::remove(folder.dir.filePath("Source/MakeVNP.exe"));
    const ProgramRun run = folder.compile();
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("MakeVNP.exe")) << run.err.toStdString();
    EXPECT_FALSE(run.out.contains("Done."));
}

TEST(CliCompile, RefusalsAndLoadErrorsExitWithOne)
{
    SampleFolder folder;
    const QString file = folder.dir.filePath("p.vnsc");
    const QStringList args = {"compile", file, "--program-dir", folder.dir.path(), "--no-pack"};

    writeBytes(file, crlfBytes("<gl>|NoEvents\n<scm>|\n"));
    ProgramRun run = runProgram(kCli, args);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.err, "Nothing to compile!\n");

    writeBytes(file, crlfBytes("<gl>|\n<ev>|E|3|0||||-1|0|0|0|0|0|False|0\n<ee>\n"));
    run = runProgram(kCli, args);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains("no name")) << run.err.toStdString();

    writeBytes(file, crlfBytes("<gl>|Bad\n<ev>|E|x\n"));
    run = runProgram(kCli, args);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(file + QStringLiteral(":2: "))) << run.err.toStdString();
}

} // namespace
