#pragma once

#include <QStringList>
#include <functional>

class QListWidget;
class QWidget;

namespace tarvo {
class ProjectDocument;
}

// The modal dialogs of the Resources menu. Each change they make is one core
// command on the project document; their lists follow the document's change
// signal, so an undo while one is open shows too.
namespace tarvo::gui {

// Brings `list` to `lines` in place. The current line stays where it still
// exists, else the last line becomes current (none for an empty list); a
// current line that did not move sends no signal.
void syncLines(QListWidget* list, const QStringList& lines);
// Makes `line` current and selected; -1 leaves no line current or selected.
void showLine(QListWidget* list, int line);

// "Find References" in a dialog: the places that refer to the item at
// `position` of list row `row` are listed by the main window.
using ReferenceFinder = std::function<void(int row, int position)>;

void showSoundsDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder);
void showMessagesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder);
void showVariablesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder);

// The same, opened on an item: `position` (and for the variables `row`:
// flags, groups or numbers) is selected as a click on its line selects it.
void showSoundsDialog(
    ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder, int position);
void showMessagesDialog(
    ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder, int position);
void showVariablesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder,
    int row, int position);

} // namespace tarvo::gui
