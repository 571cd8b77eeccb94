// A recompile writes over the files the previous compile left instead of
// deleting and creating them again. Whatever those files hold, the tree must
// come out as a fresh compile writes it, and nothing outside the tree may
// change through them.
#include "compile_fixture.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace tarvo;
using namespace compile_test;

namespace {

void expectFreshTree(const QString& root)
{
    const QString expected = ProgramFolder::caseDir("full") + QStringLiteral("/expected");
    for (const QString& file : filesBelow(expected)) {
        SCOPED_TRACE(file.toStdString());
        EXPECT_EQ(readBytes(root + u'/' + file), readBytes(expected + u'/' + file));
    }
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/boom.wav")), tinyWav(6, 'a'));
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/Wind.WAV")), tinyWav(9, 'k'));
    EXPECT_EQ(filesBelow(root).size(), 9);
}

TEST(OutputReuse, OldFilesOfEveryShapeAreWrittenOverToTheFreshBytes)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QString root = folder.root("Full");

    // Longer, shorter, same size with other bytes, empty, read-only.
    writeBytes(root + QStringLiteral("/vnr/Stats.vnr"), QByteArray(5000, 'x'));
    writeBytes(root + QStringLiteral("/script/text/Full.slo"), "short");
    QByteArray wav = tinyWav(6, 'a');
    wav[wav.size() - 1] = 'z';
    writeBytes(root + QStringLiteral("/audio/Extra/boom.wav"), wav);
    writeBytes(root + QStringLiteral("/messages/strings/GenStrings.txt"), QByteArray());
    const QString values = root + QStringLiteral("/script/data/Full.vlo");
    ASSERT_TRUE(QFile::setPermissions(values, QFileDevice::ReadOwner));

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    // Only the action of an unknown form: kept folders are not reported.
    EXPECT_EQ(outcome.warnings.size(), 1) << outcome.warnings.join(u'\n').toStdString();
    expectFreshTree(root);
}

TEST(OutputReuse, AFailedCopyLeavesNoOldCopyBehind)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QString root = folder.root("Full");
    ASSERT_TRUE(QFile::remove(folder.dir() + QStringLiteral("/sounds/Wind.WAV")));
    ASSERT_TRUE(QFile::remove(folder.sourceDir() + QStringLiteral("/Stats.vnr")));

    const CompileOutcome outcome = CompileProject(loaded.workspace, noPacker());
    ASSERT_TRUE(outcome.done()) << outcome.message.toStdString();
    EXPECT_FALSE(QFileInfo::exists(root + QStringLiteral("/audio/Extra/Wind.WAV")));
    EXPECT_EQ(readBytes(root + QStringLiteral("/audio/Extra/boom.wav")), tinyWav(6, 'a'));
    // The list without its template holds the appended lines only.
    EXPECT_TRUE(readBytes(root + QStringLiteral("/vnr/Stats.vnr")).startsWith("\r\ndirectory"));
    EXPECT_EQ(outcome.warnings.filter("Could not copy").size(), 2)
        << outcome.warnings.join(u'\n').toStdString();
}

#ifdef Q_OS_UNIX
TEST(OutputReuse, AnOldFileWithASecondNameIsReplacedNotWrittenThrough)
{
    ProgramFolder folder("full");
    LoadedWorkspace loaded(folder, "Full.vnsc");
    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    const QString root = folder.root("Full");
    const QString outside = folder.dir() + QStringLiteral("/outside.txt");
    writeBytes(outside, "precious");
    for (const char* file : {"/vnr/Stats.vnr", "/audio/Extra/boom.wav", "/script/text/Full.slo"}) {
        const QString path = root + QLatin1String(file);
        ASSERT_TRUE(QFile::remove(path));
        ASSERT_EQ(
            ::link(QFile::encodeName(outside).constData(), QFile::encodeName(path).constData()), 0);
    }

    ASSERT_TRUE(CompileProject(loaded.workspace, noPacker()).done());
    EXPECT_EQ(readBytes(outside), "precious");
    expectFreshTree(root);
}
#endif

} // namespace
