// `tarvo-cli compile` on project files made to reach outside the output
// root: through the project name, through sound file names, and through
// links planted in the output tree. Each run either refuses with exit 1 and
// a message naming the value, or compiles inside the root; files planted
// around the root keep their bytes and nothing new appears beside them.
#include "cli_test_support.h"
#include "program_folder.h"
#include "test_paths.h"

#include <QMap>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace cli_test;

namespace {

const QString kCli = QStringLiteral(TARVO_CLI_PATH);
const QByteArray kPlanted = "planted here before the compile\r\n";
const QByteArray kEvent = "<ev>|Start|0|0||||0|0|0|0|0|0|False|0\r\n<ee>\r\n";

// A program folder with the built catalogues and templates inside a folder
// that also holds files the compile must never touch.
struct Sandbox
{
    Sandbox()
    {
        QDir().mkpath(program());
        for (const char* name : {"temp.txt", "temp2.txt"})
            QFile::copy(builtProgramDir() + u'/' + QLatin1String(name),
                program() + u'/' + QLatin1String(name));
        copyTree(
            builtProgramDir() + QStringLiteral("/Source"), program() + QStringLiteral("/Source"));
        for (const QString& path : planted())
            writeBytes(path, kPlanted);
        writeBytes(dir.filePath(QStringLiteral("project/boom.wav")), "RIFF boom");
    }

    QString program() const { return dir.filePath(QStringLiteral("program")); }
    QString projects() const { return program() + QStringLiteral("/Projects"); }
    QString outside() const { return dir.filePath(QStringLiteral("outside")); }

    QStringList planted() const
    {
        return {outside() + QStringLiteral("/precious.txt"),
            outside() + QStringLiteral("/script/text/Start.slo"),
            outside() + QStringLiteral("/audio/Extra/boom.wav"),
            program() + QStringLiteral("/victim.txt"), program() + QStringLiteral("/Escaped.vlo"),
            projects() + QStringLiteral("/Neighbour/keep.txt"),
            projects() + QStringLiteral("/Neighbour/script/data/Neighbour.vlo")};
    }

    // Every file and folder with its bytes, except those below `root`.
    QMap<QString, QByteArray> snapshot(const QString& root = {}) const
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(dir.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
            QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            if (!root.isEmpty() && (path == root || path.startsWith(root + u'/')))
                continue;
            files.insert(path, it.fileInfo().isFile() ? readBytes(path) : QByteArray("<dir>"));
        }
        return files;
    }

    ProgramRun compile(const QByteArray& projectFile) const
    {
        const QString path = dir.filePath(QStringLiteral("project/hostile.vnsc"));
        writeBytes(path, projectFile);
        return runProgram(kCli,
            {QStringLiteral("compile"), path, QStringLiteral("--program-dir"), program(),
                QStringLiteral("--no-pack")});
    }

    QTemporaryDir dir;
};

// The sound line and the saved sound list row that a save writes for one
// sound, with any name.
QByteArray sound(const QByteArray& name)
{
    return "<sd>|" + name + "|0|boom.wav|" + name + "\r\n<vg>|14|True|1|Sounds\r\n<vv>|" + name
        + "|\"" + name + "\"|" + name + "|0\r\n";
}

struct Refusal
{
    const char* label;
    QByteArray projectFile;
    const char* named; // the value the message must name
};

} // namespace

TEST(HostileCompile, PathsInTheProjectAreRefusedBeforeAnythingChanges)
{
    Sandbox box;
    const QByteArray absolute = QFile::encodeName(box.outside());
    const Refusal refusals[] = {
        {"parent", "<gl>|..\r\n" + kEvent, "\"..\""},
        {"up and aside", "<gl>|../Escaped\r\n" + kEvent, "../Escaped"},
        {"backslashes", "<gl>|..\\..\\outside\r\n" + kEvent, "..\\..\\outside"},
        {"absolute", "<gl>|" + absolute + "\r\n" + kEvent, absolute.constData()},
        {"drive", "<gl>|C:\\Windows\r\n" + kEvent, "C:\\Windows"},
        {"drive relative", "<gl>|C:Escaped\r\n" + kEvent, "C:Escaped"},
        {"here", "<gl>|.\r\n" + kEvent, "\".\""},
        {"subfolder", "<gl>|Neighbour/script\r\n" + kEvent, "Neighbour/script"},
        {"sound upwards", "<gl>|Safe\r\n" + sound("../../../outside/precious.txt") + kEvent,
            "../../../outside/precious.txt"},
        {"sound backslashes", "<gl>|Safe\r\n" + sound("..\\..\\victim.txt") + kEvent,
            "..\\..\\victim.txt"},
        {"sound absolute", "<gl>|Safe\r\n" + sound(absolute + "/precious.txt") + kEvent,
            "/precious.txt"},
        {"sound drive", "<gl>|Safe\r\n" + sound("C:\\boom.wav") + kEvent, "C:\\boom.wav"},
        {"sound parent", "<gl>|Safe\r\n" + sound("..") + kEvent, "\"..\""},
    };
    const QMap<QString, QByteArray> before = box.snapshot();
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.label);
        const ProgramRun run = box.compile(refusal.projectFile);
        EXPECT_EQ(run.exitCode, 1) << run.out.toStdString() << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QString::fromLocal8Bit(refusal.named)))
            << run.err.toStdString();
        EXPECT_TRUE(run.err.contains(QLatin1String("Nothing was changed")))
            << run.err.toStdString();
        EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
        QMap<QString, QByteArray> after = box.snapshot();
        after.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
        QMap<QString, QByteArray> expected = before;
        expected.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
        EXPECT_EQ(after.keys(), expected.keys());
        EXPECT_TRUE(after == expected);
    }
}

TEST(HostileCompile, OddButPlainNamesCompileInsideTheirRoot)
{
    // Names that look alarming but are one plain folder name each.
    for (const QByteArray& name :
        {QByteArray("..."), QByteArray(" Spaced name "), QByteArray("$HOME"), QByteArray("~")}) {
        Sandbox box;
        SCOPED_TRACE(name.constData());
        const QString root = box.projects() + u'/' + QString::fromLatin1(name);
        const QMap<QString, QByteArray> before = box.snapshot();
        const ProgramRun run = box.compile("<gl>|" + name + "\r\n" + sound("boom.wav") + kEvent);
        EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
        EXPECT_TRUE(QFileInfo::exists(root + QStringLiteral("/script/text/")
            + QString::fromLatin1(name) + QStringLiteral(".slo")));
        EXPECT_EQ(
            readBytes(root + QStringLiteral("/audio/Extra/boom.wav")), QByteArray("RIFF boom"));
        QMap<QString, QByteArray> after = box.snapshot(root);
        after.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
        after.remove(box.projects()); // made by the compile when missing
        QMap<QString, QByteArray> expected = before;
        expected.remove(box.projects());
        EXPECT_TRUE(after == expected);
    }
}

TEST(HostileCompile, CompilingIntoAFolderWithOtherFilesKeepsThem)
{
    // A project named like a folder already there: its own directories are
    // rebuilt, files lying directly in it survive.
    Sandbox box;
    const QString root = box.projects() + QStringLiteral("/Neighbour");
    const ProgramRun run = box.compile("<gl>|Neighbour\r\n" + kEvent);
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(readBytes(root + QStringLiteral("/keep.txt")), kPlanted);
    EXPECT_NE(readBytes(root + QStringLiteral("/script/data/Neighbour.vlo")), kPlanted);
}

TEST(HostileCompile, KeptHostileProjectsCompileOrFailWithAMessage)
{
    const QString dir = testDataDir() + QStringLiteral("/hostile/project_file");
    int seen = 0;
    for (QDirIterator it(dir, QDir::Files); it.hasNext();) {
        const QString path = it.next();
        SCOPED_TRACE(path.toStdString());
        Sandbox box;
        const QMap<QString, QByteArray> before = box.snapshot();
        const ProgramRun run = box.compile(readBytes(path));
        // A crash shows as -1 (or 134 for an abort), a refusal as 1.
        EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.exitCode;
        if (run.exitCode == 1) {
            EXPECT_FALSE(run.err.trimmed().isEmpty());
        }
        for (const QString& planted : box.planted())
            EXPECT_EQ(readBytes(planted), kPlanted) << planted.toStdString();
        ++seen;
    }
    EXPECT_GT(seen, 0);
}

TEST(HostileCompile, KeptHostileCataloguesCompileOrFailWithAMessage)
{
    int seen = 0;
    for (const char* kind : {"condition_catalogue", "action_catalogue"}) {
        const QString dir = testDataDir() + QStringLiteral("/hostile/") + QLatin1String(kind);
        const QString name = QLatin1String(kind) == QLatin1String("condition_catalogue")
            ? QStringLiteral("temp.txt")
            : QStringLiteral("temp2.txt");
        for (QDirIterator it(dir, QDir::Files); it.hasNext();) {
            const QString path = it.next();
            SCOPED_TRACE(path.toStdString());
            Sandbox box;
            QFile::remove(box.program() + u'/' + name);
            writeBytes(box.program() + u'/' + name, readBytes(path));
            const ProgramRun run = box.compile("<gl>|Safe\r\n" + sound("boom.wav") + kEvent);
            EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.exitCode;
            if (run.exitCode == 1) {
                EXPECT_TRUE(run.err.contains(name)) << run.err.toStdString();
            }
            for (const QString& planted : box.planted())
                EXPECT_EQ(readBytes(planted), kPlanted) << planted.toStdString();
            ++seen;
        }
    }
    EXPECT_GT(seen, 0);
}

// The file system ends a name at a NUL character, so a project named
// "Other.txt", NUL, "x" would write its whole tree into the file "Other.txt"
// that lies beside its output root.
TEST(HostileCompile, NameWithANulCharacterIsRefused)
{
    Sandbox box;
    const QString neighbour = box.projects() + QStringLiteral("/Other.txt");
    writeBytes(neighbour, kPlanted);
    const ProgramRun run = box.compile(QByteArray("<gl>|Other.txt\0x\r\n", 18) + kEvent);
    EXPECT_EQ(run.exitCode, 1) << run.out.toStdString();
    EXPECT_TRUE(run.err.contains(QLatin1String("Nothing was changed"))) << run.err.toStdString();
    EXPECT_EQ(readBytes(neighbour), kPlanted);
    for (const QString& planted : box.planted())
        EXPECT_EQ(readBytes(planted), kPlanted) << planted.toStdString();
}

#ifdef Q_OS_UNIX

TEST(HostileCompile, LinksInTheOutputTreeAreNeverFollowed)
{
    struct Link
    {
        const char* at; // below the output root
        const char* to; // below the sandbox's "outside" folder
    };
    const Link links[] = {
        {"script", "script"},
        {"script/text", "script/text"},
        {"script/text/Start.slo", "script/text/Start.slo"},
        {"vnr", ""},
        {"audio", "audio"},
        {"audio/Extra", "audio/Extra"},
        {"messages", ""},
        {"messages/strings", ""},
    };
    for (const Link& link : links) {
        Sandbox box;
        SCOPED_TRACE(link.at);
        const QString root = box.projects() + QStringLiteral("/Start");
        const QString at = root + u'/' + QLatin1String(link.at);
        QDir().mkpath(QFileInfo(at).absolutePath());
        ASSERT_TRUE(QFile::link(box.outside() + u'/' + QLatin1String(link.to), at));
        const QMap<QString, QByteArray> before = box.snapshot(root);

        const ProgramRun run = box.compile(
            "<gl>|Start\r\n" + sound("boom.wav") + "<ms>|1\r\n<md>|0|Hello\r\n" + kEvent);
        EXPECT_TRUE(run.exitCode == 0 || run.exitCode == 1) << run.err.toStdString();
        EXPECT_FALSE(run.err.isEmpty() && run.exitCode != 0);
        QMap<QString, QByteArray> after = box.snapshot(root);
        after.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
        QMap<QString, QByteArray> expected = before;
        expected.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
        EXPECT_EQ(after.keys(), expected.keys());
        EXPECT_TRUE(after == expected);
    }
}

TEST(HostileCompile, OutputRootThatIsALinkIsRefused)
{
    Sandbox box;
    QDir().mkpath(box.projects());
    ASSERT_TRUE(QFile::link(box.outside(), box.projects() + QStringLiteral("/Linked")));
    const QMap<QString, QByteArray> before = box.snapshot();
    const ProgramRun run = box.compile("<gl>|Linked\r\n" + kEvent);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QLatin1String("Linked"))) << run.err.toStdString();
    QMap<QString, QByteArray> after = box.snapshot();
    after.remove(box.dir.filePath(QStringLiteral("project/hostile.vnsc")));
    EXPECT_TRUE(after == before);
}

#endif
