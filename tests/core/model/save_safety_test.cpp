// Every way a save can fail leaves the previous file exactly as it was and
// the project where it was, and says why: a text the file cannot hold is
// named by its item and field, a file system failure by the system's reason.
// The file system failures are real ones where the machine allows them;
// tests run as root here, and root writes into read-only folders, so the
// folder is made immutable instead.
#include "model/project_file.h"
#include "program_folder.h"
#include "project_builder.h"

#include <QDirIterator>
#include <functional>
#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

using namespace tarvo;

namespace {

const QByteArray kOldFile = "<gl>|Previous\r\n<scm>|the work of yesterday\r\n<sn>|0\r\n";

struct Fixture
{
    Fixture()
    {
        b.addEvent(QStringLiteral("E"));
        b.addCondition(
            0, QStringLiteral("Count"), {QStringLiteral("&&5$$1§"), QStringLiteral("3")});
        b.addAction(0, QStringLiteral("Say"), {QStringLiteral("hello")});
        b.addTimer(QStringLiteral("T"));
        b.addSound(QStringLiteral("/snd/a.wav"));
        b.addItem(row::Groups, QStringLiteral("G"), 0, QStringLiteral("Group[0]"));
        for (int i = 0; i < 200; ++i)
            b.addMessage(QStringLiteral("Message number %1 of the campaign").arg(i));
        QDir().mkpath(folder);
        writeBytes(target, kOldFile);
        p.filePath = target;
        p.hasFile = true;
    }

    QMap<QString, QByteArray> snapshot() const
    {
        QMap<QString, QByteArray> files;
        for (QDirIterator it(
                 folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
             it.hasNext();) {
            const QString path = it.next();
            files[path] = readBytes(path);
        }
        return files;
    }

    TestProgramFolder program {
        QStringLiteral("<c>\n<s>;Count\n<r>;0;1\n<f>;P;who;0;5\n<f>;N;n;0;-1\n"),
        QStringLiteral("<j>|5|Players|1|player&&0|INT\n<g>|5|0:P1|1:P2|\n"
                       "<j>|7|Groups|2|Group[&&0]|GROUP\n"
                       "<c>\n<s>;Say\n<r>;none\n<f>;Text;what;0;15;1\n<i>|2|say(&&0);|\n")};
    ProjectBuilder b {program.path()};
    Project& p = b.project();
    QString folder = program.file(QStringLiteral("projects"));
    QString target = folder + QStringLiteral("/mission.vnsc");
    QString says; // what the message must hold, when the row cannot know it beforehand
    std::function<void()> undo = [] {};
};

struct Row
{
    const char* name;
    // Spoils the project or the disk; returns why the row cannot run here, or "".
    std::function<QString(Fixture&)> spoil;
    QString says; // the sentence for a text; "" for a system's reason
};

QString set(QString& field, const QString& value)
{
    field = value;
    return {};
}

const QString kL = QStringLiteral("Ł");
const QString kNot1252 = QStringLiteral(" holds the character \"Ł\" (U+0141), which the "
                                        "Windows-1252 code page cannot hold");
const QString kBar
    = QStringLiteral(" holds the character \"|\", which separates the fields of a project file");
const QString kBreak
    = QStringLiteral(" holds a line break, which a project file cannot keep there");

#ifdef Q_OS_LINUX
// Nobody, root included, may create, rename or remove anything in an
// immutable folder.
bool setImmutable(const QString& path, bool on)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY);
    int flags = 0;
    bool done = fd >= 0 && ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    flags = on ? (flags | FS_IMMUTABLE_FL) : (flags & ~FS_IMMUTABLE_FL);
    done = done && ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    if (fd >= 0)
        ::close(fd);
    return done;
}
#endif

const Row kRows[] = {
    {"ProjectName", [](Fixture& f) { return set(f.p.name, kL); }, "the project name" + kNot1252},
    {"ScriptComment", [](Fixture& f) { return set(f.p.scriptComment, "a\r\nb|c"); },
        "the script comment" + kBar},
    {"EventName", [](Fixture& f) { return set(f.p.events[0].name, "Za\r\nż"); },
        "the name of event 0 (\"Za\r\nż\")" + kBreak},
    {"EventComment", [](Fixture& f) { return set(f.p.events[0].comment, kL); },
        "the comment of event 0 (\"E\")" + kNot1252},
    {"ComparedValue",
        [](Fixture& f) { return set(f.p.events[0].conditions[0].comparisonValue, "a|b"); },
        "the compared value of condition 0 of event 0 (\"E\")" + kBar},
    {"ConditionArgument",
        [](Fixture& f) { return set(f.p.events[0].conditions[0].Args[1].Value, "1\n2"); },
        "the value of argument 1 of condition 0 of event 0 (\"E\")" + kBreak},
    {"ActionText", [](Fixture& f) { return set(f.p.events[0].actions[0].text, kL); },
        "the text of action 0 of event 0 (\"E\")" + kNot1252},
    {"TimerArgument", [](Fixture& f) { return set(f.p.timers[0].triggerArgTexts[1], "|"); },
        "trigger argument 2 of timer 0 (\"T\")" + kBar},
    {"SoundPath", [](Fixture& f) { return set(f.p.sounds[0].secondText, kL); },
        "the file path of sound 0 (\"a.wav\")" + kNot1252},
    {"MessageText", [](Fixture& f) { return set(f.p.messages[199].text, kL); },
        "the text of message 199 (ID 199)" + kNot1252},
    {"ListRowName", [](Fixture& f) { return set(f.p.tables[7].ListName, "a|b"); },
        "the name of list row 7" + kBar},
    {"ListRowEntry",
        [](Fixture& f) {
            f.p.tables[5].Saved = true;
            return set(f.p.tables[5].Texts[1], kL);
        },
        "the name of entry 1 of list row 5 (\"Ł\")" + kNot1252},
    {"TargetIsAFolder",
        [](Fixture& f) {
            QFile::remove(f.target);
            writeBytes(f.target + QStringLiteral("/inside.txt"), "keep me");
            return QString();
        },
        {}},
    {"FolderIsAFile",
        [](Fixture& f) { return set(f.target, f.target + QStringLiteral("/new.vnsc")); }, {}},
#ifdef Q_OS_LINUX
    {"FolderNobodyMayWriteTo",
        [](Fixture& f) {
            if (!setImmutable(f.folder, true))
                return QStringLiteral("no immutable attribute on this file system");
            f.undo = [&f] { setImmutable(f.folder, false); };
            return QString();
        },
        {}},
    {"FullDisk",
        [](Fixture& f) {
            // A file system of its own, filled by the previous file and a filler.
            f.folder = f.program.file(QStringLiteral("disk"));
            f.target = f.folder + QStringLiteral("/mission.vnsc");
            QDir().mkpath(f.folder);
            const QByteArray path = QFile::encodeName(f.folder);
            if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=16k") != 0)
                return QStringLiteral("cannot mount a small file system here");
            f.undo = [path] { ::umount2(path.constData(), MNT_DETACH); };
            writeBytes(f.target, kOldFile);
            writeBytes(f.folder + QStringLiteral("/filler"), QByteArray(8 * 1024, 'f'));
            EXPECT_GT(projectFileBytes(f.p).size(), 8 * 1024);
            return QString();
        },
        {}},
    {"FileSizeLimit",
        [](Fixture& f) {
            const QByteArray full = projectFileBytes(f.p);
            f.says = QStringLiteral("of %1 bytes").arg(full.size());
            rlimit before {};
            ::getrlimit(RLIMIT_FSIZE, &before);
            // Past the limit a write fails with EFBIG instead of the default signal.
            const auto handler = std::signal(SIGXFSZ, SIG_IGN);
            rlimit small = before;
            small.rlim_cur = rlim_t(full.size() / 2);
            ::setrlimit(RLIMIT_FSIZE, &small);
            f.undo = [&f, before, handler, full] {
                ::setrlimit(RLIMIT_FSIZE, &before);
                std::signal(SIGXFSZ, handler);
                // The failure left nothing behind that stops the next save.
                EXPECT_NO_THROW(SaveProject(f.p, f.target));
                EXPECT_EQ(readBytes(f.target), full);
            };
            return QString();
        },
        {}},
#endif
};

class SaveFailures : public testing::TestWithParam<Row>
{
};

} // namespace

TEST_P(SaveFailures, KeepThePreviousFileAndSayWhy)
{
    Fixture f;
    const QString original = f.target;
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
    const QString failed = f.target + QStringLiteral(": not saved: ");
    // A text is named with its field and its fault, as the check before a
    // save names it; a system's reason is whatever the system says.
    if (GetParam().says.isEmpty()) {
        EXPECT_TRUE(problems.isEmpty());
        EXPECT_TRUE(message.startsWith(failed) && message.size() > failed.size()
            && message.contains(f.says))
            << message.toStdString();
    } else {
        EXPECT_EQ(message, failed + GetParam().says);
        ASSERT_EQ(problems.size(), 1);
        EXPECT_EQ(problems.at(0).sentence, GetParam().says);
    }
    EXPECT_EQ(f.snapshot(), before);
    EXPECT_EQ(f.p.filePath, original);
    EXPECT_TRUE(f.p.hasFile);
    f.undo();
}

INSTANTIATE_TEST_SUITE_P(Ways, SaveFailures, testing::ValuesIn(kRows),
    [](const testing::TestParamInfo<Row>& info) { return std::string(info.param.name); });

TEST(SaveProject, EmptyPathDoesNothing)
{
    Fixture f;
    EXPECT_NO_THROW(SaveProject(f.p, QStringLiteral("   ")));
    EXPECT_EQ(f.snapshot().value(f.target), kOldFile);
}
