// Limits of the 16-bit counts and of line lengths, met by files too large to
// keep as data: each load stops at the first line too many with a FileError
// naming it, or gives counts that tell the truth.
#include "catalogue/catalogue_loader.h"
#include "catalogue/reference_markers.h"
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

enum class File { Project, Conditions, Actions };

struct Row
{
    const char* name;
    File file;
    std::function<QByteArray()> bytes;
    int line; // 0: the load succeeds
    const char* part;
    std::function<void(const Workspace&)> check = {};
};

// `head`, then `count` copies of `line` each ended by CR LF.
QByteArray repeated(const QByteArray& head, const QByteArray& line, int count)
{
    QByteArray bytes = head;
    bytes.reserve(head.size() + (line.size() + 2) * count);
    for (int i = 0; i < count; ++i)
        bytes += line + "\r\n";
    return bytes;
}

const QByteArray kEvent = "<ev>|E|0|0||||0|0|0|0|0|0|False|0\r\n";
const QByteArray kHuge(6 * 1024 * 1024, 'x');

QByteArray items(int count)
{
    QByteArray line = "<g>|3|";
    for (int i = 0; i < count; ++i)
        line += "c" + QByteArray::number(i) + ":Item " + QByteArray::number(i) + "|";
    return line + "\r\n";
}

const Row kRows[] = {
    {"MessagesFitButTheirNextIdDoesNot", File::Project,
        [] { return repeated({}, "<md>|32767|m", 32767); }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.messageCount, 32767);
            EXPECT_THROW(UpperMsgID(w.project), DataError);
        }},
    {"SoundsPastTheLastCount", File::Project,
        [] { return repeated("<gl>|A\r\n", "<sd>|a|0|b|c", 32768); }, 32769, "too many sounds"},
    {"ConditionsOfOneEventPastTheLastCount", File::Project,
        [] { return repeated(kEvent, "<cn>|0|0||0|0|False\r\n<ce>", 32768); }, 1 + 2 * 32768,
        "conditions in one event"},
    {"TimersPastTheLastCount", File::Project,
        [] { return repeated({}, "<ti>|1\r\n<ta>|T|0|0||||0|0|0|0\r\n<te>", 32768); }, 3 * 32768,
        "too many timers"},
    {"EventsPastTheLastCountKeepWhatWasRead", File::Project,
        [] { return repeated("<gl>|Many\r\n", kEvent + "\t<ecom>|c\r\n<ee>", 40000); },
        1 + 3 * 32767 + 1, "too many events",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.events.size(), 32767);
            EXPECT_EQ(w.project.name, u"Many");
        }},
    {"LinesOfMegabytesLoadAndSave", File::Project,
        [] { return "<gl>|" + kHuge + "\r\n<md>|0|" + kHuge + "\r\n"; }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.name.size(), kHuge.size());
            EXPECT_EQ(w.project.messages.at(0).text.size(), kHuge.size());
            EXPECT_GT(projectFileBytes(w.project).size(), 2 * kHuge.size());
        }},
    {"MillionsOfSeparatorsAreEmptyFields", File::Project,
        [] { return "<gl>|A\r\n<ev>" + QByteArray(2 * 1024 * 1024, '|') + "\r\n"; }, 2,
        "not a number"},
    {"LongLineWithoutATagIsSkipped", File::Project,
        [] { return kHuge + "\r\n<gl>|B\r\n\r\n<g>\r\n"; }, 0, "",
        [](const Workspace& w) { EXPECT_EQ(w.project.name, u"B"); }},
    {"RowCountFarLargerThanItsLines", File::Project,
        [] {
            return QByteArray("<vg>|7|True|30000|Groups\r\n<vv>|Tanks|Group[0]||0\r\n"
                              "<vv>|Scouts|Group[1]||7\r\n");
        },
        0, "",
        [](const Workspace& w) {
            // Everything that walks the row stays inside it.
            EXPECT_EQ(NextVariableID(w.project, 7), 8);
            EXPECT_EQ(comboItemsFromList(w.project.tables, 7).size(), 8);
            EXPECT_EQ(ResolveReferences(w.project.tables, "&&7$$7§", ResolveForm::A), "Group[1]");
            EXPECT_EQ(DecodeReferences(w.project.tables, "&&7$$7§ go", w.prompter), "Scouts go");
        }},
    {"KindsFitUpToTheLastCount", File::Conditions, [] { return repeated({}, "<c>", 32767); }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(conditionKindItems(w.conditionCatalogue).size(), 32768);
        }},
    {"KindsPastTheLastCount", File::Conditions,
        [] { return repeated("// many\r\n", "<c>", 40000); }, 32769, "32767 kinds"},
    {"CodeLinesFitUpToTheLastCount", File::Conditions,
        [] { return "<c>\r\n<i>|2|" + repeated({}, "x|", 32767).replace("\r\n", "") + "\r\n"; }, 0,
        "", [](const Workspace& w) { EXPECT_EQ(w.conditionCatalogue.at(0).CodeLineCount, 32767); }},
    {"CodeLinesPastTheLastCount", File::Conditions,
        [] { return "<c>\r\n<i>|2|" + repeated({}, "x|", 40000).replace("\r\n", "") + "\r\n"; }, 2,
        "32767"},
    {"ItemsOfTwoLinesAddUpPastTheLastCount", File::Actions,
        [] { return "<j>|3|Things|2|thing[&&0]|INT\r\n" + items(20000) + items(20000); }, 3,
        "too many items"},
    {"TwentyThousandItemsFit", File::Actions, [] { return items(20000); }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.tables[3].Texts.at(19999), u"Item 19999");
            EXPECT_EQ(NextFreeID(w.project.tables, 3), 20000);
        }},
    {"CatalogueLinesOfMegabytes", File::Conditions,
        [] { return "<c>\r\n<s>;" + kHuge + "\r\n<d>;" + kHuge + "\r\n" + kHuge + "\r\n"; }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(w.conditionCatalogue.at(0).Title.size(), kHuge.size());
            EXPECT_EQ(w.conditionCatalogue.at(0).Description.size(), kHuge.size() + 2);
        }},
};

} // namespace

TEST(Limits, LargeFilesStopAtTheFirstLineTooManyOrLoadWhole)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        TestProgramFolder folder(QStringLiteral("<c>\n<s>;Count\n<r>;0;1\n<f>;Player;who;0;5\n"),
            QStringLiteral("<c>\n<s>;Say\n<r>;none\n<f>;Text;what;0;15;1\n"));
        const QString path = folder.file(row.file == File::Project ? QStringLiteral("big.vnsc")
                : row.file == File::Conditions                     ? QStringLiteral("temp.txt")
                                                                   : QStringLiteral("temp2.txt"));
        writeBytes(path, row.bytes());
        ScriptedPrompter prompter;
        Workspace workspace(folder.path(), prompter);
        try {
            if (row.file == File::Project)
                LoadProject(workspace, path);
            else
                ResetProject(workspace);
            EXPECT_EQ(row.line, 0) << "the file loaded";
        } catch (const FileError& error) {
            EXPECT_EQ(error.line(), row.line) << error.message().toStdString();
            EXPECT_EQ(error.file(), path);
            EXPECT_TRUE(row.line && error.sentence().contains(QLatin1String(row.part)))
                << error.message().toStdString();
        }
        if (row.check)
            row.check(workspace);
    }
}
