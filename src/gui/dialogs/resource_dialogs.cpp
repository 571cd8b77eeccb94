#include "dialogs/resource_dialogs.h"

// Placeholder until the dialogs land; replaced by their real implementations.
namespace tarvo::gui {

void showSoundsDialog(Workspace&, QWidget*) { }
void showMessagesDialog(Workspace&, QWidget*) { }
void showVariablesDialog(Workspace&, QWidget*) { }

} // namespace tarvo::gui
