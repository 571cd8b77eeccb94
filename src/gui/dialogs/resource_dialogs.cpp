#include "dialogs/resource_dialogs.h"

#include "dialogs/messages_dialog.h"
#include "dialogs/qt_sound_player.h"
#include "dialogs/sounds_dialog.h"
#include "dialogs/variables_dialog.h"
#include "records/reference_list.h"
#include "resources/resource_removal.h"

#include <QListWidget>
#include <QTabWidget>

namespace tarvo::gui {

namespace {

void selectLine(QDialog& dialog, const char* list, int position)
{
    auto* lines = dialog.findChild<QListWidget*>(QLatin1String(list));
    if (lines && position >= 0 && position < lines->count())
        lines->setCurrentRow(position);
}

} // namespace

void syncLines(QListWidget* list, const QStringList& lines)
{
    const int current = list->currentRow();
    while (list->count() > lines.size())
        delete list->takeItem(list->count() - 1);
    for (int i = 0; i < lines.size(); ++i) {
        if (i == list->count())
            list->addItem(lines.at(i));
        else if (list->item(i)->text() != lines.at(i))
            list->item(i)->setText(lines.at(i));
    }
    const int wanted = current < 0 ? -1 : selectionAfterRemoval(current, list->count());
    // Taking the current line away may have left its successor current but
    // not selected.
    if (list->currentRow() != wanted || (wanted >= 0 && !list->item(wanted)->isSelected()))
        showLine(list, wanted);
}

void showLine(QListWidget* list, int line)
{
    list->setCurrentRow(line);
    if (line < 0)
        list->clearSelection();
}

void showSoundsDialog(
    ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder, int position)
{
    // The player lives only as long as the dialog: nothing keeps playing once
    // it is closed.
    QtSoundPlayer player;
    SoundsDialog dialog(document, player, parent);
    dialog.setReferenceFinder(finder);
    selectLine(dialog, "List1", position);
    dialog.exec();
}

void showMessagesDialog(
    ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder, int position)
{
    MessagesDialog dialog(document, parent);
    dialog.setReferenceFinder(finder);
    selectLine(dialog, "List1", position);
    dialog.exec();
}

void showVariablesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder,
    int row, int position)
{
    VariablesDialog dialog(document, parent);
    dialog.setReferenceFinder(finder);
    // Flags, groups and numbers each have their page and list.
    const int page = row == row::Flags ? 0 : row == row::Groups ? 1 : row == row::Integers ? 2 : -1;
    if (page >= 0) {
        if (auto* tabs = dialog.findChild<QTabWidget*>())
            tabs->setCurrentIndex(page);
        static const char* const lists[] = {"List1", "List2", "List3"};
        selectLine(dialog, lists[page], position);
    }
    dialog.exec();
}

void showSoundsDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    showSoundsDialog(document, parent, finder, -1);
}

void showMessagesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    showMessagesDialog(document, parent, finder, -1);
}

void showVariablesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    showVariablesDialog(document, parent, finder, -1, -1);
}

} // namespace tarvo::gui
