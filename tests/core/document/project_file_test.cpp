// Project files: each folder under tests/data/project_file is loaded over the
// catalogues beside it, dumped and compared with its golden dump, then saved
// and compared byte for byte with the input or its resaved.vnsc.
#include "workspace_case.h"

using namespace tarvo;

GOLDEN_CASE_FOLDERS(ProjectFileCases, "project_file");

TEST(ProjectFile, ShippedSampleComesBackByteForByte)
{
    ScriptedPrompter prompter;
    Workspace workspace(sourceProgramDir(), prompter);
    LoadProject(workspace, sampleDir() + "/Demo.vnsc");
    EXPECT_EQ(projectFileBytes(workspace.project), readBytes(sampleDir() + "/Demo.vnsc"));
    EXPECT_TRUE(prompter.prompts.isEmpty());
}
