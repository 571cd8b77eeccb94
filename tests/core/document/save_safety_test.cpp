// Every way a save can fail leaves the previous file exactly as it was and
// the project where it was, and says why: a text the file cannot hold is
// named by its item and field, a file system failure by the system's reason.
// The file system failures are real ones where the machine allows them.
#include "base/program_folder.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDirIterator>
#include <QProcess>
#include <functional>
#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>
#endif

using namespace tarvo;

namespace {

const QByteArray kOldFile = "<gl>|Previous\r\n<scm>|the work of yesterday\r\n";

// The project of the full project case, and a folder with its previous file.
struct Fixture
{
    Fixture()
    {
        const QString data = testDataDir() + "/project_file/";
        for (const char* name : {"temp.txt", "temp2.txt"})
            writeBytes(program.file(name), readBytes(data + name));
        LoadProject(workspace, data + "full_project/input.vnsc");
        writeBytes(target, kOldFile);
        p.filePath = target;
        p.hasFile = false;
    }

    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            files[path] = readBytes(path);
        }
        return files;
    }

    TestProgramFolder program {{}, {}};
    ScriptedPrompter prompter;
    Workspace workspace {program.path(), prompter};
    Project& p = workspace.project;
    QString folder = program.file("projects");
    QString target = folder + "/mission.vnsc";
    QString says; // what the message must hold, when the row cannot know it beforehand
    std::function<void()> undo = [] {};
};

struct Row
{
    const char* name;
    std::function<QString(Fixture&)> spoil; // gives why the row cannot run here, or ""
    QString says; // the sentence for a text; "" for a system's reason
};

#define SPOIL(change) [](Fixture& f) { return change, QString(); }

const QString kL = QStringLiteral("Ł");
const QString kNot1252 = QStringLiteral(
    " holds the character \"Ł\" (U+0141), which the Windows-1252 code page cannot hold");
const QString kBar = " holds the character \"|\", which separates the fields of a project file";
const QString kBreak = " holds a line break, which a project file cannot keep there";
const QString kEvent = " of event 0 (\"E0\")";

const Row kRows[] = {
    {"ProjectName", SPOIL(f.p.name = kL), "the project name" + kNot1252},
    {"ScriptComment", SPOIL(f.p.scriptComment = "a\r\nb|c"), "the script comment" + kBar},
    {"EventName", SPOIL(f.p.events[0].name = "Za\r\nż"),
        "the name of event 0 (\"Za\r\nż\")" + kBreak},
    {"ComparedValue", SPOIL(f.p.events[0].conditions[0].comparisonValue = "a|b"),
        "the compared value of condition 0" + kEvent + kBar},
    {"ConditionArgument", SPOIL(f.p.events[0].conditions[0].Args[1].Value = "1\n2"),
        "the value of argument 1 of condition 0" + kEvent + kBreak},
    {"ActionText", SPOIL(f.p.events[0].actions[0].text = kL),
        "the text of action 0" + kEvent + kNot1252},
    {"TimerArgument", SPOIL(f.p.timers[0].triggerArgTexts[1] = "|"),
        "trigger argument 2 of timer 0 (\"T\")" + kBar},
    {"SoundPath", SPOIL(f.p.sounds[0].secondText = kL),
        "the file path of sound 0 (\"first.wav\")" + kNot1252},
    {"MessageText", SPOIL(f.p.messages[1].text = kL), "the text of message 1 (ID 4)" + kNot1252},
    {"ListRowName", SPOIL(f.p.tables[7].ListName = "a|b"), "the name of list row 7" + kBar},
    {"ListRowEntry", SPOIL((f.p.tables[1].Saved = true, f.p.tables[1].Texts[1] = kL)),
        "the name of entry 1 of list row 1 (\"Ł\")" + kNot1252},
    {"TargetIsAFolder",
        SPOIL((QFile::remove(f.target), writeBytes(f.target + "/inside.txt", "keep"))), {}},
    {"FolderIsAFile", SPOIL(f.target += "/new.vnsc"), {}},
#ifdef Q_OS_LINUX
    {"FolderNobodyMayWriteTo", // root writes anywhere, so for root it is made immutable
        [](Fixture& f) {
            f.undo = [&f] {
                QProcess::execute("chattr", {"-i", f.folder});
                QFile::setPermissions(f.folder, QFile::permissions(f.program.path()));
            };
            QFile::setPermissions(f.folder, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
            const bool open
                = canCreateFilesIn(f.folder) && QProcess::execute("chattr", {"+i", f.folder}) != 0;
            return open ? "cannot make a folder unwritable here" : QString();
        },
        {}},
    {"FullDisk", // a file system of its own, filled by the previous file and a filler
        [](Fixture& f) {
            f.folder = f.program.file("disk");
            f.target = f.folder + "/mission.vnsc";
            const QByteArray path = QFile::encodeName(f.folder);
            QDir().mkpath(f.folder);
            if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=16k") != 0)
                return QStringLiteral("cannot mount a small file system here");
            f.undo = [path] { ::umount2(path.constData(), MNT_DETACH); };
            writeBytes(f.target, kOldFile);
            return writeBytes(f.folder + "/filler", QByteArray(12 * 1024, 'f')), QString();
        },
        {}},
    {"FileSizeLimit",
        [](Fixture& f) {
            const QByteArray full = projectFileBytes(f.p);
            f.says = QStringLiteral("of %1 bytes").arg(full.size());
            rlimit before {}, small {};
            ::getrlimit(RLIMIT_FSIZE, &before);
            small = {rlim_t(full.size() / 2), before.rlim_max};
            // Past the limit a write fails with EFBIG instead of the default signal.
            const auto handler = std::signal(SIGXFSZ, SIG_IGN);
            ::setrlimit(RLIMIT_FSIZE, &small);
            f.undo = [before, handler] {
                ::setrlimit(RLIMIT_FSIZE, &before);
                std::signal(SIGXFSZ, handler);
            };
            return QString();
        },
        {}},
#endif
};

using SaveFailures = testing::TestWithParam<Row>;

} // namespace

TEST_P(SaveFailures, KeepThePreviousFileAndSayWhy)
{
    Fixture f;
    const QString original = f.p.filePath;
    const QString skip = GetParam().spoil(f);
    if (!skip.isEmpty())
        GTEST_SKIP() << skip.toStdString();
    const QMap<QString, QByteArray> before = f.snapshot();
    const QList<UnsavableText> problems = unsavableTexts(f.p);
    QString message;
    try {
        SaveProject(f.p, f.target);
    } catch (const FileError& error) {
        message = error.message();
    }
    const QMap<QString, QByteArray> after = f.snapshot();
    f.undo();
    // A text is named with its field and its fault, as the check before a
    // save names it; a system's reason is whatever the system says.
    const QString failed = f.target + ": not saved: ";
    if (GetParam().says.isEmpty()) {
        EXPECT_TRUE(problems.isEmpty() && message.startsWith(failed)
            && message.size() > failed.size() && message.contains(f.says))
            << message.toStdString();
    } else {
        EXPECT_EQ(message, failed + GetParam().says);
        ASSERT_EQ(problems.size(), 1);
        EXPECT_EQ(problems.at(0).sentence, GetParam().says);
    }
    EXPECT_EQ(after, before);
    EXPECT_EQ(f.p.filePath, original);
    EXPECT_FALSE(f.p.hasFile);
}

INSTANTIATE_TEST_SUITE_P(Ways, SaveFailures, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

TEST(SaveProject, EmptyPathDoesNothingAndASaveTakesThePath)
{
    Fixture f;
    EXPECT_NO_THROW(SaveProject(f.p, "   "));
    EXPECT_EQ(f.snapshot().value(f.target), kOldFile);
    SaveProject(f.p, f.folder + "/new.vnsc");
    EXPECT_TRUE(f.p.hasFile && f.p.filePath == f.folder + "/new.vnsc");
}
