// Project files: each folder under tests/data/project_file is loaded over the
// catalogues beside it, dumped and compared with its golden dump, then saved
// and compared byte for byte with the input or its resaved.vnsc.
#include "workspace_case.h"

#include <QTemporaryDir>

using namespace tarvo;

GOLDEN_CASE_FOLDERS(ProjectFileCases, "project_file");
INSTANTIATE_TEST_SUITE_P(Hostile, ProjectFileCases,
    testing::ValuesIn(golden::hostileCases(QStringLiteral("project_file"))), golden::caseName);

TEST(ProjectFile, ShippedSampleComesBackByteForByte)
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
