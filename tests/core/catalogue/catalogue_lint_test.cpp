// The catalogue lint: each folder under tests/data/catalogue_lint holds a
// temp.txt and a temp2.txt with planted problems and the report they must
// give. The editor's own reader must stop exactly where the lint says it
// stops first, and the shipped catalogues must come out clean.
#include "case_files.h"
#include "catalogue/catalogue_lint.h"
#include "catalogue/catalogue_loader.h"
#include "base/file_error.h"
#include "catalogue/workspace.h"
#include "test_paths.h"
#include "text/text_file.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace tarvo;

namespace {

QStringList lintFolders()
{
    const QDir root(testDataDir() + QStringLiteral("/catalogue_lint"));
    QStringList folders;
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        folders.append(root.filePath(name));
    return folders;
}

QList<CatalogueFinding> lintFolder(const QString& folder)
{
    return lintCatalogues({QStringLiteral("temp.txt"), text::readTextLines(folder + "/temp.txt")},
        {QStringLiteral("temp2.txt"), text::readTextLines(folder + "/temp2.txt")});
}

// The line the reader stops at, 0 when it reads the whole file.
template <typename Read> int readerStop(Read read)
{
    try {
        read();
    } catch (const FileError& error) {
        return error.line();
    }
    return 0;
}

int lintStop(const QList<CatalogueFinding>& findings, const QString& file)
{
    for (const CatalogueFinding& finding : findings) {
        if (finding.file == file && finding.stopsLoad)
            return finding.line;
    }
    return 0;
}

class CatalogueLintCases : public testing::TestWithParam<QString>
{
};

TEST_P(CatalogueLintCases, ReportEveryPlantedProblem)
{
    const QString folder = GetParam();
    const QList<CatalogueFinding> findings = lintFolder(folder);
    QString report;
    for (const CatalogueFinding& finding : findings)
        report += findingLine(finding) + u'\n';
    expectAsWritten(folder, report);

    EXPECT_EQ(lintStop(findings, "temp.txt"),
        readerStop([&] { readConditionCatalogue(folder + "/temp.txt"); }));
    ReferenceListTable tables;
    EXPECT_EQ(lintStop(findings, "temp2.txt"),
        readerStop([&] { readActionCatalogue(folder + "/temp2.txt", tables); }));
}

INSTANTIATE_TEST_SUITE_P(Folders, CatalogueLintCases, testing::ValuesIn(lintFolders()),
    [](const testing::TestParamInfo<QString>& info) {
        return QDir(info.param).dirName().toStdString();
    });

// The shipped action catalogue keeps one half-built call on purpose (its
// description says what comes of it); nothing else is reported.
TEST(CatalogueLint, ShippedAndTestCataloguesAreClean)
{
    for (const QString& dir : {sourceProgramDir(), testDataDir() + "/gui/program"}) {
        for (const CatalogueFinding& finding : lintProgramCatalogues(ProgramPaths {dir})) {
            if (!finding.sentence.contains("is written as a half-built call"))
                ADD_FAILURE() << findingLine(finding).toStdString();
        }
    }
}

TEST(CatalogueLint, AFileThatCannotBeReadIsAFileError)
{
    EXPECT_THROW(
        lintProgramCatalogues(ProgramPaths {testDataDir() + "/no such folder"}), FileError);
}

} // namespace
