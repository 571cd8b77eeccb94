// Flag names and values live in a row the project file does not keep; the
// side file keeps what differs from the catalogue, and only that.
#include "document/project_commands.h"
#include "catalogue/side_names.h"
#include "program_folder.h"
#include "project_builder.h"
#include "test_paths.h"
#include "variables/variable_operations.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvo;

TEST(SideNames, ARenamedFlagSurvivesSaveAndOpenAndNothingElseIsWritten)
{
    QTemporaryDir dir;
    const QString program = sourceProgramDir();
    ProjectBuilder editor(program);
    const QString path = dir.filePath("Mission.vnsc");
    const QString side = dir.filePath("Mission.names");
    saveDocument(editor.document, path);
    EXPECT_FALSE(QFile::exists(side)); // nothing differs from the catalogue

    editor.prompter.inputs = {"Bridge taken"};
    ASSERT_TRUE(RenameVariable(editor.project(), editor.prompter, row::Flags, 1));
    SetFlagValue(editor.project(), 2, "TRUE");
    EXPECT_TRUE(sideNamesNote(editor.project(), row::Flags).contains("Mission.names"));
    EXPECT_TRUE(sideNamesNote(editor.project(), row::Groups).isEmpty());
    const QByteArray before = editor.bytes();
    saveDocument(editor.document, path);
    EXPECT_EQ(editor.bytes(), before); // the project file is as the format writes it
    EXPECT_EQ(readBytes(side).count('\n'), 3);

    // A line that names a row the project file keeps, or a position past the
    // row, is left out with a note.
    QFile file(side);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("0|1|Not mine|x\n17|999|Past|x\n");
    file.close();

    ProjectBuilder reader(program);
    const OpenResult opened = openProjectFile(reader.document, path);
    ASSERT_TRUE(opened.opened);
    const ReferenceList& flags = reader.project().tables[row::Flags];
    EXPECT_EQ(flags.Texts.value(1), "Bridge taken");
    EXPECT_EQ(flags.RawCodes.value(2), "TRUE");
    ASSERT_EQ(opened.notes.size(), 2);
    EXPECT_EQ(opened.notes.at(0).line(), 4);
    EXPECT_NE(reader.project().tables[row::Integers].Texts.value(1), "Not mine");

    // Renamed back, the side file goes.
    reader.prompter.inputs = {editor.workspace.catalogueRows[row::Flags].Texts.value(1)};
    ASSERT_TRUE(RenameVariable(reader.project(), reader.prompter, row::Flags, 1));
    SetFlagValue(reader.project(), 2, editor.workspace.catalogueRows[row::Flags].RawCodes.value(2));
    saveDocument(reader.document, path);
    EXPECT_FALSE(QFile::exists(side));
}
