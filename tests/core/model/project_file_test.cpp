#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

const char* const kConditions = "<c>\n<s>;Cond A\n<r>;0;-1\n<f>;P;h;1;1\n<f>;Q;h;1;-1\n"
                                "<c>\n<s>;Cond B\n<r>;1;17\n<i>|2|x|\n";
const char* const kActions = "<j>|0|Numbers|2|integ[&&0]|INT\n<g>|0|a:A|b:B|c:C|d:D|e:E|\n"
                             "<j>|1|Players|0||INT\n<g>|1|0:P1|1:P2|\n"
                             "<j>|7|Groups|2|Group[&&0]|GROUP\n"
                             "<j>|14|Sounds|2|sound[&&0]|SOUND\n"
                             "<c>\n<s>;Act\n<r>;none\n<f>;P;h;1;1;0\n<i>|2|do(&&0);|\n";

// A project folder with small catalogues, a workspace on it and a place for files.
struct Fixture
{
    Fixture()
        : folder(QString::fromUtf8(kConditions), QString::fromUtf8(kActions))
        , workspace(folder.path(), prompter)
    {
        ResetProject(workspace);
    }

    QString load(const QString& text)
    {
        const QString path = folder.file(QStringLiteral("in.vnsc"));
        writeBytes(path, crlfBytes(text));
        LoadProject(workspace, path);
        return path;
    }

    FileError loadFailure(const QString& text)
    {
        try {
            load(text);
        } catch (const FileError& error) {
            return error;
        }
        ADD_FAILURE() << "the load did not fail";
        return FileError(QString(), 0, QString());
    }

    QByteArray save()
    {
        const QString path = folder.file(QStringLiteral("out.vnsc"));
        SaveProject(workspace.project, path);
        return readBytes(path);
    }

    TestProgramFolder folder;
    ScriptedPrompter prompter;
    Workspace workspace;
};

const char* const kFullProject = "<gl>|Mission\n"
                                 "<scm>|First line\n<scm>|second line\n"
                                 "<sn>|1\n<sd>|boom.wav|3|/snd/boom.wav|boom.wav\n"
                                 "<ms>|2\n<md>|0|Hello\n<md>|4|Bye §\n"
                                 "<ti>|1\n\t<tcom>|tc\n\t<ta>|T|1|1|50|||-1|0|0|7\n<te>\n"
                                 "<ev>|E0|5|2|&&7$$0§|&&1$$1§||7|1|0|2|1|0|False|2\n"
                                 "\t<ecom>|a\n<ecom>|b\n"
                                 "\t<cn>|0|0|&&0$$2§|2|-1|False\n"
                                 "\t\t\t<ccom>|\n"
                                 "\t\t<cf>|&&1$$0§|1\n\t\t<cf>|5|-1\n"
                                 "\t<ce>\n"
                                 "\t<cn>|1|1||0|17|True\n"
                                 "\t\t\t<ccom>|why\n"
                                 "\t<ce>\n"
                                 "\t<ac>|0|txt|True\n"
                                 "\t\t\t<acom>|\n"
                                 "\t\t<af>|&&1$$1§|1\n"
                                 "\t<ae>\n"
                                 "<ee>\n\n"
                                 "<ev>|E1|3|0||||-1|0|0|0|0|1|True|0\n\t<ecom>|\n<ee>\n\n"
                                 "<vg>|0|True|6|Numbers\n<vv>|A|a|a|0\n<vv>|B|b|b|1\n<vv>|C|c|c|2\n"
                                 "<vv>|D|d|d|3\n<vv>|E|e|e|4\n<vv>|Score|integ[0]|12|5\n"
                                 "<vg>|7|True|1|Groups\n<vv>|G|Group[0]||0\n"
                                 "<vg>|14|True|1|Sounds\n<vv>|boom.wav|sound[0]|boom.wav|3\n";

} // namespace

TEST(ProjectFileRoundTrip, FullProjectComesBackByteForByte)
{
    Fixture f;
    f.load(QString::fromUtf8(kFullProject));
    EXPECT_EQ(f.save(), crlfBytes(QString::fromUtf8(kFullProject)));
}

TEST(ProjectFileRoundTrip, FieldsLandWhereTheyBelong)
{
    Fixture f;
    f.load(QString::fromUtf8(kFullProject));
    const Project& p = f.workspace.project;
    EXPECT_EQ(p.name, u"Mission");
    EXPECT_EQ(p.scriptComment, u"First line\r\nsecond line");
    EXPECT_TRUE(p.hasFile);
    ASSERT_EQ(p.soundCount, 1);
    EXPECT_EQ(p.sounds[0].thirdText, u"boom.wav");
    EXPECT_EQ(p.sounds[0].id, 3);
    EXPECT_EQ(p.sounds[0].secondText, u"/snd/boom.wav");
    ASSERT_EQ(p.messageCount, 2);
    EXPECT_EQ(p.messages[1].text, u"Bye §");
    ASSERT_EQ(p.timerCount, 1);
    EXPECT_EQ(p.timers[0].comment, u"tc");
    EXPECT_EQ(p.timers[0].id, 7);
    ASSERT_EQ(p.eventCount, 2);
    const EventRecord& e = p.events[0];
    EXPECT_EQ(e.comment, u"a\r\nb");
    EXPECT_EQ(e.triggerKind, 5);
    EXPECT_EQ(e.triggerArgTexts[1], u"&&1$$1§");
    EXPECT_EQ(e.triggerArgTypes[0], 7);
    ASSERT_EQ(e.conditionCount, 2);
    EXPECT_EQ(e.conditions[0].Title, u"Cond A");
    EXPECT_EQ(e.conditions[0].operatorIndex, 2);
    EXPECT_EQ(e.conditions[0].Args[0].Value, u"&&1$$0§");
    EXPECT_EQ(e.conditions[1].negation, 1);
    EXPECT_TRUE(e.conditions[1].inactive);
    EXPECT_EQ(e.conditions[1].CodeMode, 2);
    EXPECT_EQ(e.conditions[1].comment, u"why");
    ASSERT_EQ(e.actionCount, 1);
    EXPECT_EQ(e.actions[0].text, u"txt");
    EXPECT_TRUE(e.actions[0].inactive);
    EXPECT_TRUE(p.events[1].disabled);
    EXPECT_EQ(p.tables[0].RawCodes[5], u"12");
    // The rows that mirror the project follow the loaded records.
    EXPECT_EQ(p.tables[12].Texts, (QStringList {QStringLiteral("E0"), QStringLiteral("E1")}));
    EXPECT_EQ(
        p.tables[12].Codes, (QStringList {QStringLiteral("event0"), QStringLiteral("event1")}));
    EXPECT_EQ(p.tables[13].Codes, QStringList {QStringLiteral("Timer0")});
    EXPECT_EQ(p.tables[15].Ids, (QList<qint16> {0, 4}));
}

TEST(ProjectFileRoundTrip, ShippedSampleComesBackByteForByte)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    const QString sample = sampleDir() + QStringLiteral("/Demo.vnsc");
    LoadProject(workspace, sample);
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("Demo.vnsc"));
    SaveProject(workspace.project, out);
    EXPECT_EQ(readBytes(out), readBytes(sample));
    EXPECT_TRUE(prompter.prompts.isEmpty());
}

TEST(ProjectFileQuirks, CommentsTabsAndCounts)
{
    Fixture f;
    f.load(QStringLiteral("<gl>|N\n<scm>|x|y\n<ti>|0\n"
                          "<ev>|Ta\tb|0|1|5|||-1|0|0|3|0|0|False|1\n<ecom>|\n<ee>\n"));
    const Project& p = f.workspace.project;
    EXPECT_EQ(p.scriptComment, u"x"); // text after a "|" is lost
    EXPECT_EQ(p.events[0].name, u"Tab"); // tabs are gone
    EXPECT_EQ(p.events[0].conditionCount, 3); // kept: no "<ce>" replaced it
    EXPECT_EQ(p.events[0].comment, u"");
}

TEST(ProjectFileQuirks, EmptyCommentIsOneTagLine)
{
    Fixture f;
    const QString text = QString::fromLatin1(f.save());
    EXPECT_TRUE(text.startsWith(u"<gl>|\r\n<scm>|\r\n<sn>|0\r\n<ms>|0\r\n<ti>|0\r\n<vg>|0|True|5|"))
        << text.toStdString();
}

TEST(ProjectFileQuirks, TriggerArgumentCountIsWrittenTwice)
{
    Fixture f;
    EventRecord event;
    event.name = QStringLiteral("E");
    event.triggerArgCount = 2;
    f.workspace.project.events.append(event);
    f.workspace.project.eventCount = 1;
    const QString text = QString::fromLatin1(f.save());
    EXPECT_TRUE(text.contains(u"<ev>|E|0|2||||0|0|0|0|0|0|False|2\r\n\t<ecom>|\r\n<ee>\r\n\r\n"));
}

TEST(ProjectFileQuirks, OneTimerLoadsTwoDoNot)
{
    Fixture f;
    f.load(QStringLiteral("<ti>|1\n<tcom>|\n<ta>|A|0|1|5|||-1|0|0|0\n<te>\n"));
    EXPECT_EQ(f.workspace.project.timerCount, 1);

    f.workspace.project.timers.append(f.workspace.project.timers[0]);
    f.workspace.project.timerCount = 2;
    const QByteArray twoTimers = f.save();
    writeBytes(f.folder.file(QStringLiteral("two.vnsc")), twoTimers);
    try {
        LoadProject(f.workspace, f.folder.file(QStringLiteral("two.vnsc")));
        FAIL() << "two timers loaded";
    } catch (const FileError& error) {
        EXPECT_EQ(error.line(), 9); // the second timer's "<tcom>" line
        EXPECT_TRUE(error.sentence().contains(u"one timer per")) << error.message().toStdString();
    }
}

TEST(ProjectFileQuirks, UnsavedRowKeepsItsCatalogueItems)
{
    Fixture f;
    f.load(QStringLiteral("<vg>|1|True|1|Changed\n<vv>|X|x|x|0\n"));
    EXPECT_EQ(f.workspace.project.tables[1].ListName, u"Changed");
    Fixture g;
    g.load(QString::fromLatin1(f.save()));
    EXPECT_EQ(g.workspace.project.tables[1].ListName, u"Players");
    EXPECT_EQ(g.workspace.project.tables[1].ItemCount, 2);
}

TEST(ProjectFileQuirks, ConditionsTakeTheCatalogueOfLoadTime)
{
    Fixture f;
    f.load(
        QStringLiteral("<ev>|E|0|0||||0|0|0|1|0|0|False|0\n<cn>|1|0|v|0|-1|False\n<ce>\n<ee>\n"));
    const ConditionRecord& c = f.workspace.project.events[0].conditions[0];
    EXPECT_EQ(c.Title, u"Cond B");
    EXPECT_EQ(c.ResultB, -1); // the file's value type wins over the catalogue's
    EXPECT_EQ(c.CodeLines, QStringList {QStringLiteral("x")});
}

struct LoadFault
{
    const char* name;
    const char* text;
    int line;
    const char* sentencePart;
};

class ProjectFileFaults : public testing::TestWithParam<LoadFault>
{
};

TEST_P(ProjectFileFaults, StopAtTheFaultyLine)
{
    Fixture f;
    const FileError error = f.loadFailure(QString::fromUtf8(GetParam().text));
    EXPECT_EQ(error.line(), GetParam().line) << error.message().toStdString();
    EXPECT_TRUE(error.sentence().contains(QString::fromUtf8(GetParam().sentencePart)))
        << error.message().toStdString();
    EXPECT_TRUE(error.message().startsWith(f.folder.file(QStringLiteral("in.vnsc")) + u':'));
    EXPECT_FALSE(f.workspace.project.hasFile);
}

INSTANTIATE_TEST_SUITE_P(Faults, ProjectFileFaults,
    testing::Values(LoadFault {"MissingField", "<gl>|A\n<sd>|a|1\n", 2, "field 3 is needed"},
        LoadFault {"NotANumber", "<ms>|0\n<md>|x|text\n", 2, "\"x\" is not a number"},
        LoadFault {"NotABoolean", "<ev>|E|0|0||||0|0|0|0|0|0|Maybe|0\n", 1, "not True or False"},
        LoadFault {"ConditionKindOutOfRange",
            "<ev>|E|0|0||||0|0|0|1|0|0|False|0\n<cn>|57|0||0|0|False\n", 2,
            "condition kind 57, but the condition catalogue has 2 kinds"},
        LoadFault {"ActionKindOutOfRange", "<ev>|E|0|0||||0|0|0|0|1|0|False|0\n<ac>|-1|x|False\n",
            2, "action kind -1"},
        LoadFault {"RowOutOfRange", "<gl>|A\n\n<vg>|30|True|0|X\n", 3, "row 30"},
        LoadFault {"TooManyVariables", "<vg>|7|True|0|G\n<vv>|a|b|c|0\n<vv>|a|b|c|1\n", 3, "room"},
        LoadFault {"CommentBeforeEvent", "<ecom>|x\n", 1, "events"},
        LoadFault {"ArgumentBeforeCondition", "<ev>|E|0|0||||0|0|0|0|0|0|False|0\n<cf>|x|1\n", 2,
            "conditions"},
        LoadFault {"NumberTooLarge", "<sn>|1\n<sd>|a|40000|b|c\n", 2, "16-bit"}),
    [](const testing::TestParamInfo<LoadFault>& info) { return std::string(info.param.name); });

TEST(ProjectFileSave, UnencodableCharacterKeepsTheOldFile)
{
    Fixture f;
    const QString path = f.folder.file(QStringLiteral("keep.vnsc"));
    writeBytes(path, "old contents");
    EventRecord event;
    event.name = QStringLiteral("Zażółć");
    f.workspace.project.events.append(event);
    f.workspace.project.eventCount = 1;
    try {
        SaveProject(f.workspace.project, path);
        FAIL() << "saved";
    } catch (const FileError& error) {
        EXPECT_TRUE(error.sentence().contains(u"event 0 (\"Zażółć\")"))
            << error.message().toStdString();
        EXPECT_TRUE(error.sentence().contains(u"U+017C")) << error.message().toStdString();
    }
    EXPECT_EQ(readBytes(path), QByteArray("old contents"));
    EXPECT_FALSE(f.workspace.project.hasFile);
}

TEST(ProjectFileSave, UnwritableFolderIsAnErrorAndEmptyPathDoesNothing)
{
    Fixture f;
    const QString blocker = f.folder.file(QStringLiteral("file"));
    writeBytes(blocker, "x");
    EXPECT_THROW(
        SaveProject(f.workspace.project, blocker + QStringLiteral("/sub/p.vnsc")), FileError);
    EXPECT_NO_THROW(SaveProject(f.workspace.project, QStringLiteral("   ")));
    EXPECT_FALSE(f.workspace.project.hasFile);
}
