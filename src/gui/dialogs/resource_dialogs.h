#pragma once

#include <functional>

class QWidget;

namespace tarvo {
class ProjectDocument;
}

// The modal dialogs of the Resources menu. Each change they make is one step
// of the project document; where their rows mirror the project, they refill
// them on close.
namespace tarvo::gui {

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
