#pragma once

class QWidget;

namespace tarvo {
struct Workspace;
}

// The modal dialogs of the Resources menu. Each edits the workspace's project
// in place and, where its rows mirror the project, refills them on close.
namespace tarvo::gui {

void showSoundsDialog(Workspace& workspace, QWidget* parent);
void showMessagesDialog(Workspace& workspace, QWidget* parent);
void showVariablesDialog(Workspace& workspace, QWidget* parent);

} // namespace tarvo::gui
