// Limits that the project file's 16-bit counts and IDs imply, met by files
// generated here: each gives a clear FileError naming file and line, or loads
// into a project that the routines after the load can still use.
#include "catalogue/reference_markers.h"
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QDirIterator>
#include <gtest/gtest.h>
#include <optional>

using namespace tarvo;

namespace {

const char* const kConditions = "<c>\n<s>;Count\n<r>;0;1\n<f>;Player;who;0;5\n";
const char* const kActions = "<j>|0|Numbers|2|integ[&&0]|INT\n<g>|0|a:A|b:B|c:C|d:D|e:E|\n"
                             "<j>|5|Players|1|player&&0|INT\n<g>|5|0:P1|1:P2|\n"
                             "<j>|7|Groups|2|Group[&&0]|GROUP\n"
                             "<c>\n<s>;Say\n<r>;none\n<f>;Text;what;0;15;1\n<i>|2|say(&&0);|\n";

constexpr const char* kEventLine = "<ev>|E|0|0||||0|0|0|0|0|0|False|0";

struct Fixture
{
    Fixture()
        : folder(QString::fromUtf8(kConditions), QString::fromUtf8(kActions))
        , workspace(folder.path(), prompter)
    {
    }

    // Loads raw bytes; returns the error, or nothing when the load succeeded.
    std::optional<FileError> load(const QByteArray& bytes)
    {
        path = folder.file(QStringLiteral("big.vnsc"));
        writeBytes(path, bytes);
        try {
            LoadProject(workspace, path);
        } catch (const FileError& error) {
            return error;
        }
        return std::nullopt;
    }

    TestProgramFolder folder;
    ScriptedPrompter prompter;
    Workspace workspace;
    QString path;
};

// `count` copies of `line`, each ended by CR LF, after `head`.
QByteArray repeated(const QByteArray& head, const QByteArray& line, int count)
{
    QByteArray bytes = head;
    bytes.reserve(head.size() + (line.size() + 2) * count);
    for (int i = 0; i < count; ++i)
        bytes += line + "\r\n";
    return bytes;
}

} // namespace

TEST(ProjectFileLimits, NumbersBeyondSixteenBitsNameTheirLine)
{
    struct Case
    {
        QByteArray text;
        int line;
        const char* part;
    };
    const Case cases[] = {
        {"<gl>|A\r\n<md>|32768|x\r\n", 2, "16-bit"},
        {"<md>|-32769|x\r\n", 1, "16-bit"},
        {"<ev>|E|0|0||||0|0|0|99999|0|0|False|0\r\n", 1, "16-bit"},
        {"<ev>|E|70000|0||||0|0|0|0|0|0|False|0\r\n", 1, "16-bit"},
        {"<vg>|0|True|40000|Numbers\r\n", 1, "16-bit"},
        {"<vg>|0|True|-3|Numbers\r\n", 1, "negative count"},
        {"<vg>|65536|True|0|X\r\n", 1, "16-bit"},
        {"<vg>|-1|True|0|X\r\n", 1, "row -1"},
        {"<vg>|7|True|1|G\r\n<vv>|a|b|c|1e9\r\n", 2, "16-bit"},
        {"<ti>|1\r\n<ta>|T|0|0|||1|0|0|123456789012345678901234567890\r\n", 2, "16-bit"},
        {"<sd>|a|1|b|c\r\n<sd>|a|nan|b|c\r\n", 2, "not a number"},
        {"<sd>|a|1e999|b|c\r\n", 1, "16-bit"},
    };
    for (const Case& c : cases) {
        Fixture f;
        const std::optional<FileError> error = f.load(c.text);
        ASSERT_TRUE(error.has_value()) << c.text.constData();
        EXPECT_EQ(error->line(), c.line) << error->message().toStdString();
        EXPECT_EQ(error->file(), f.path);
        EXPECT_TRUE(error->sentence().contains(QLatin1String(c.part)))
            << error->message().toStdString();
    }
}

TEST(ProjectFileLimits, CountsStopAtTheLastSixteenBitValue)
{
    {
        // 32767 messages fit; the IDs that come after them do not.
        Fixture f;
        const QByteArray messages = repeated({}, "<md>|32767|m", 32767);
        EXPECT_FALSE(f.load(messages).has_value());
        EXPECT_EQ(f.workspace.project.messageCount, 32767);
        EXPECT_THROW(UpperMsgID(f.workspace.project), DataError);
    }
    {
        Fixture f;
        const std::optional<FileError> error
            = f.load(repeated("<gl>|A\r\n", "<sd>|a|0|b|c", 32768));
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->line(), 32769);
        EXPECT_TRUE(error->sentence().contains(QLatin1String("too many sounds")));
    }
    {
        // End lines raise the counts of one event and of the timers.
        Fixture f;
        const std::optional<FileError> error = f.load(
            repeated(QByteArray(kEventLine) + "\r\n", "<cn>|0|0||0|0|False\r\n<ce>", 32768));
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->line(), 1 + 2 * 32768);
        EXPECT_TRUE(error->sentence().contains(QLatin1String("conditions in one event")));
    }
    {
        Fixture f;
        const std::optional<FileError> error
            = f.load(repeated({}, "<ti>|1\r\n<ta>|T|0|0||||0|0|0|0\r\n<te>", 32768));
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->line(), 3 * 32768);
        EXPECT_TRUE(error->sentence().contains(QLatin1String("too many timers")));
    }
}

TEST(ProjectFileLimits, HundredThousandEventsStopAtTheFirstOneTooMany)
{
    Fixture f;
    const QByteArray block = QByteArray(kEventLine) + "\r\n\t<ecom>|c\r\n<ee>\r\n";
    QByteArray bytes = "<gl>|Many\r\n";
    bytes.reserve(bytes.size() + block.size() * 100000);
    for (int i = 0; i < 100000; ++i)
        bytes += block;
    const std::optional<FileError> error = f.load(bytes);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->line(), 1 + 3 * 32767 + 1);
    EXPECT_TRUE(error->sentence().contains(QLatin1String("too many events")));
    // What was read stays readable, as after any failed load.
    EXPECT_EQ(f.workspace.project.events.size(), 32767);
    EXPECT_EQ(f.workspace.project.name, QStringLiteral("Many"));
}

TEST(ProjectFileLimits, LinesOfSeveralMegabytes)
{
    const QByteArray huge(6 * 1024 * 1024, 'x');
    {
        Fixture f;
        EXPECT_FALSE(f.load("<gl>|" + huge + "\r\n<md>|0|" + huge + "\r\n").has_value());
        EXPECT_EQ(f.workspace.project.name.size(), huge.size());
        EXPECT_EQ(f.workspace.project.messages.at(0).text.size(), huge.size());
        QByteArray saved;
        ASSERT_NO_THROW(saved = projectFileBytes(f.workspace.project));
        EXPECT_GT(saved.size(), 2 * huge.size());
    }
    {
        // Millions of separators: millions of empty fields, the first of
        // which is not the number the tag needs.
        Fixture f;
        const std::optional<FileError> error
            = f.load("<gl>|A\r\n<ev>" + QByteArray(2 * 1024 * 1024, '|') + "\r\n");
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->line(), 2);
        EXPECT_TRUE(error->sentence().contains(QLatin1String("not a number")));
    }
    {
        // A long line without ">" is skipped, and so is everything short.
        Fixture f;
        EXPECT_FALSE(f.load(huge + "\r\n<gl>|B\r\n\r\n\r\n<g>\r\n").has_value());
        EXPECT_EQ(f.workspace.project.name, QStringLiteral("B"));
    }
}

TEST(ProjectFileLimits, ListCountFarLargerThanItsLines)
{
    Fixture f;
    ASSERT_FALSE(f.load("<vg>|7|True|30000|Groups\r\n<vv>|Tanks|Group[0]||0\r\n"
                        "<vv>|Scouts|Group[1]||7\r\n<vg>|17|True|5|Flags\r\n")
                     .has_value());
    const Project& project = f.workspace.project;
    EXPECT_EQ(project.tables[7].ItemCount, 30000);
    EXPECT_EQ(project.tables[7].Texts.at(1), QStringLiteral("Scouts"));
    // Everything that walks the row stays inside it.
    EXPECT_EQ(NextVariableID(project, 7), 8);
    EXPECT_EQ(comboItemsFromList(project.tables, 7).size(), 8);
    EXPECT_EQ(ResolveReferences(project.tables, QStringLiteral("&&7$$7§"), ResolveForm::A),
        QStringLiteral("Group[1]"));
    EXPECT_EQ(DecodeReferences(project.tables, QStringLiteral("&&7$$7§ go"), f.prompter),
        QStringLiteral("Scouts go"));
    // A save writes every slot the count claims and loads again.
    const QString again = f.folder.file(QStringLiteral("again.vnsc"));
    ASSERT_NO_THROW(SaveProject(f.workspace.project, again));
    Fixture reloaded;
    ASSERT_FALSE(reloaded.load(readBytes(again)).has_value());
    EXPECT_EQ(reloaded.workspace.project.tables[7].ItemCount, 30000);
}

TEST(ProjectFileLimits, RepeatedRecordsWithoutEnds)
{
    {
        // Conditions without "<ce>" overwrite one slot; their arguments grow
        // past the catalogue's count but only the catalogue's are saved.
        Fixture f;
        const QByteArray head = QByteArray(kEventLine) + "\r\n<cn>|0|0||0|0|False\r\n";
        ASSERT_FALSE(
            f.load(repeated(head, "<cf>|&&5$$1§|5", 50000) + "<ce>\r\n<ee>\r\n").has_value());
        const EventRecord& event = f.workspace.project.events.at(0);
        EXPECT_EQ(event.conditionCount, 1);
        EXPECT_EQ(event.conditions.at(0).Args.size(), 50000);
        QByteArray saved;
        ASSERT_NO_THROW(saved = projectFileBytes(f.workspace.project));
        EXPECT_EQ(saved.count("<cf>|"), 1);
    }
    {
        // End-of-event lines without events are refused at the first one.
        Fixture f;
        const std::optional<FileError> error = f.load(repeated("<gl>|A\r\n", "<ee>", 40000));
        ASSERT_TRUE(error.has_value());
        EXPECT_EQ(error->line(), 2);
    }
}

// Inputs that once broke a reader, kept from the fuzzers and from hostile
// files: each loads or fails with a FileError, never worse.
TEST(ProjectFileLimits, KeptHostileProjectsLoadOrFailCleanly)
{
    const QString dir = testDataDir() + QStringLiteral("/hostile/project_file");
    int seen = 0;
    for (QDirIterator it(dir, QDir::Files); it.hasNext();) {
        const QString path = it.next();
        Fixture f;
        SCOPED_TRACE(path.toStdString());
        std::optional<FileError> error = f.load(readBytes(path));
        if (error) {
            EXPECT_FALSE(error->sentence().isEmpty());
        }
        EXPECT_NO_THROW(projectFileBytes(f.workspace.project))
            << "after a load of " << path.toStdString();
        ++seen;
    }
    EXPECT_GT(seen, 0) << "no kept inputs in " << dir.toStdString();
}
