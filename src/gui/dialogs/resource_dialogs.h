#pragma once

class QWidget;

namespace tarvo {
class ProjectDocument;
}

// The modal dialogs of the Resources menu. Each change they make is one step
// of the project document; where their rows mirror the project, they refill
// them on close.
namespace tarvo::gui {

void showSoundsDialog(ProjectDocument& document, QWidget* parent);
void showMessagesDialog(ProjectDocument& document, QWidget* parent);
void showVariablesDialog(ProjectDocument& document, QWidget* parent);

} // namespace tarvo::gui
