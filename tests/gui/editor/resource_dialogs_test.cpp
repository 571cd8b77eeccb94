// The sounds, messages and variables dialogs over a loaded project: opening
// and closing one that changed nothing leaves the history alone, and each
// list follows the document, so undo and redo while a dialog is open show.
#include "catalogue/workspace.h"
#include "dialogs/messages_dialog.h"
#include "dialogs/sounds_dialog.h"
#include "dialogs/variables_dialog.h"
#include "document/project_document.h"
#include "document/project_file.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "ui/sound_player.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>
#include <memory>

using namespace tarvo;

namespace {

class SilentPlayer : public SoundPlayer
{
public:
    void play(const QString&) override { }
    void stop() override { }
};

struct Fixture
{
    Fixture()
    {
        ResetProject(workspace);
        LoadProject(workspace, sampleDir() + "/Demo.vnsc");
    }
    ScriptedPrompter prompter;
    Workspace workspace {sourceProgramDir(), prompter};
    ProjectDocument document {workspace};
    SilentPlayer player;
};

// One dialog: how it is opened, the list that shows its items, and one
// change through its own button (the answer it needs given beforehand).
struct DialogRow
{
    const char* name;
    std::function<std::unique_ptr<QDialog>(Fixture&)> open;
    const char* list;
    const char* button;
    std::function<void(Fixture&, QDialog&)> prepare;
};

const DialogRow kDialogs[] = {
    {"sounds", [](Fixture& p) { return std::make_unique<gui::SoundsDialog>(p.document, p.player); },
        "List1", "Command1",
        [](Fixture& p, QDialog&) { p.prompter.fileNames << QStringLiteral("/snd/horn.wav"); }},
    {"messages", [](Fixture& p) { return std::make_unique<gui::MessagesDialog>(p.document); },
        "List1", "Command1",
        [](Fixture&, QDialog& d) {
            d.findChild<QLineEdit*>("Text1")->setText(QStringLiteral("Hold the bridge"));
        }},
    {"variables", [](Fixture& p) { return std::make_unique<gui::VariablesDialog>(p.document); },
        "List2", "Command2",
        [](Fixture& p, QDialog&) { p.prompter.inputs << QStringLiteral("Scouts"); }},
};

QStringList lines(const QListWidget* list)
{
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

} // namespace

TEST(ResourceDialogsTest, ClosingADialogThatChangedNothingRecordsNoStep)
{
    for (const DialogRow& row : kDialogs) {
        SCOPED_TRACE(row.name);
        Fixture p;
        QSignalSpy history(&p.document, &ProjectDocument::historyChanged);
        row.open(p)->accept();
        EXPECT_FALSE(p.document.canUndo());
        EXPECT_EQ(history.count(), 0);
        EXPECT_FALSE(p.document.isModified());
    }
}

TEST(ResourceDialogsTest, ListsFollowUndoAndRedoWhileOpen)
{
    for (const DialogRow& row : kDialogs) {
        SCOPED_TRACE(row.name);
        Fixture p;
        const std::unique_ptr<QDialog> dialog = row.open(p);
        auto* list = dialog->findChild<QListWidget*>(row.list);
        const QStringList before = lines(list);
        row.prepare(p, *dialog);
        dialog->findChild<QPushButton*>(row.button)->click();
        const QStringList after = lines(list);
        ASSERT_EQ(after.size(), before.size() + 1);
        p.document.undo();
        EXPECT_EQ(lines(list), before);
        p.document.redo();
        EXPECT_EQ(lines(list), after);
        dialog->accept();
        EXPECT_EQ(p.document.undoLabel().isEmpty(), false);
        p.document.undo();
        EXPECT_FALSE(p.document.canUndo()); // closing added no step of its own
    }
}
