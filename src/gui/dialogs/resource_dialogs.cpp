#include "dialogs/resource_dialogs.h"

#include "dialogs/messages_dialog.h"
#include "dialogs/qt_sound_player.h"
#include "dialogs/sounds_dialog.h"
#include "dialogs/variables_dialog.h"

namespace tarvo::gui {

void showSoundsDialog(Workspace& workspace, QWidget* parent)
{
    // The player lives only as long as the dialog: nothing keeps playing once
    // it is closed.
    QtSoundPlayer player;
    SoundsDialog dialog(workspace, player, parent);
    dialog.exec();
}

void showMessagesDialog(Workspace& workspace, QWidget* parent)
{
    MessagesDialog dialog(workspace, parent);
    dialog.exec();
}

void showVariablesDialog(Workspace& workspace, QWidget* parent)
{
    VariablesDialog dialog(workspace, parent);
    dialog.exec();
}

} // namespace tarvo::gui
