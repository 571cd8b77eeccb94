// Limits of the 16-bit counts and of line lengths, met by files too large to
// keep as data: each load stops at the first line too many with a FileError
// naming it, or gives counts that tell the truth.
#include "catalogue/catalogue_lint.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/reference_markers.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "text/text_file.h"

#include <functional>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

enum File { ProjectFile, Conditions, Actions };

struct Row
{
    const char* name;
    File file;
    std::function<QByteArray()> bytes;
    int line; // 0: the load succeeds
    const char* part;
    std::function<void(const Workspace&)> check = [](const Workspace&) {};
};

// `head`, then `count` times `line` with CR LF.
QByteArray times(int count, const QByteArray& line, const QByteArray& head = {})
{
    return head + (line + "\r\n").repeated(count);
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
    {"MessagesUpToAndSoundsPastTheLastCount", ProjectFile,
        [] { return times(32768, "<sd>|a|0|b|c", times(32767, "<md>|32767|m")); }, 2 * 32767 + 1,
        "too many sounds",
        [](const Workspace& w) { EXPECT_THROW(UpperMsgID(w.project), DataError); }},
    {"ConditionsOfOneEventPastTheLastCount", ProjectFile,
        [] { return times(32768, "<cn>|0|0||0|0|False\r\n<ce>", kEvent); }, 1 + 2 * 32768,
        "conditions in one event"},
    {"TimersPastTheLastCount", ProjectFile,
        [] { return times(32768, "<ti>|1\r\n<ta>|T|0|0||||0|0|0|0\r\n<te>"); }, 3 * 32768,
        "too many timers"},
    {"EventsPastTheLastCountKeepWhatWasRead", ProjectFile,
        [] { return times(40000, kEvent + "<ee>", "<gl>|Many\r\n"); }, 2 + 2 * 32767,
        "too many events",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.events.size(), 32767);
            EXPECT_EQ(w.project.name, u"Many");
        }},
    {"LinesOfMegabytesLoadAndSave", ProjectFile, // the first without a tag, skipped
        [] { return kHuge + "\r\n<gl>|" + kHuge + "\r\n<md>|0|" + kHuge + "\r\n"; }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(
                w.project.name.size() + w.project.messages.at(0).text.size(), 2 * kHuge.size());
            EXPECT_GT(projectFileBytes(w.project).size(), 2 * kHuge.size());
        }},
    {"MillionsOfSeparatorsAreEmptyFields", ProjectFile,
        [] { return "<ev>" + QByteArray(2 * 1024 * 1024, '|') + "\r\n"; }, 1, "not a number"},
    {"RowCountFarLargerThanItsLines", ProjectFile,
        [] { return QByteArray("<vg>|7|True|30000|G\r\n<vv>|A|a||0\r\n<vv>|Scouts|Group[1]||7"); },
        0, "",
        [](const Workspace& w) { // everything that walks the row stays inside it
            EXPECT_EQ(comboItemsFromList(w.project.tables, 7).size(), 8);
            EXPECT_EQ(ResolveReferences(w.project.tables, "&&7$$7§", ResolveForm::A), "Group[1]");
            EXPECT_EQ(DecodeReferences(w.project.tables, "&&7$$7§ go", w.prompter), "Scouts go");
        }},
    {"KindsAndCodeLinesUpToTheLastCount", Conditions,
        [] { return times(32767, "<c>") + "<i>|2|" + QByteArray("x|").repeated(32767); }, 0, "",
        [](const Workspace& w) { EXPECT_EQ(w.conditionCatalogue.at(32766).CodeLineCount, 32767); }},
    {"KindsPastTheLastCount", Conditions, [] { return times(40000, "<c>", "//\r\n"); }, 32769,
        "32767 kinds"},
    {"CodeLinesPastTheLastCount", Conditions,
        [] { return "<c>\r\n<i>|2|" + QByteArray("x|").repeated(40000); }, 2, "32767"},
    {"ItemsOfTwoLinesAddUpPastTheLastCount", Actions,
        [] { return "<j>|3|Things|2|thing[&&0]|INT\r\n" + items(20000) + items(20000); }, 3,
        "too many items"},
    {"TwentyThousandItemsFit", Actions, [] { return items(20000); }, 0, "",
        [](const Workspace& w) {
            EXPECT_EQ(w.project.tables[3].Texts.at(19999), u"Item 19999");
            EXPECT_EQ(NextFreeID(w.project.tables, 3), 20000);
        }},
    {"CatalogueLinesOfMegabytes", Conditions,
        [] { return "<c>\r\n<s>;" + kHuge + "\r\n<d>;" + kHuge + "\r\n" + kHuge; }, 0, "",
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
        TestProgramFolder folder(QStringLiteral("<c>\n<s>;Count\n<r>;0;1\n<f>;P;who;0;5\n"), {});
        const char* const names[] = {"big.vnsc", "temp.txt", "temp2.txt"};
        const QString path = folder.file(QLatin1String(names[row.file]));
        writeBytes(path, row.bytes());
        ScriptedPrompter prompter;
        Workspace workspace(folder.path(), prompter);
        try {
            if (row.file == ProjectFile)
                LoadProject(workspace, path);
            else
                ResetProject(workspace);
            EXPECT_EQ(row.line, 0) << "the file loaded";
        } catch (const FileError& error) {
            EXPECT_EQ(error.file(), path);
            EXPECT_EQ(error.line(), row.line) << error.message().toStdString();
            EXPECT_TRUE(row.line && error.sentence().contains(QLatin1String(row.part)))
                << error.message().toStdString();
        }
        row.check(workspace);
        if (row.file == ProjectFile)
            continue;
        // The lint names the same line the reader stops at.
        const QList<CatalogueFinding> findings
            = lintCatalogues({names[1], text::readTextLines(folder.file(names[1]))},
                {names[2], text::readTextLines(folder.file(names[2]))});
        int stop = 0;
        for (const CatalogueFinding& finding : findings) {
            if (finding.stopsLoad && finding.file == QLatin1String(names[row.file])) {
                stop = finding.line;
                break;
            }
        }
        EXPECT_EQ(stop, row.line) << "lint";
    }
}
