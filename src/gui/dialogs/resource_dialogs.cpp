#include "dialogs/resource_dialogs.h"

#include "dialogs/messages_dialog.h"
#include "dialogs/qt_sound_player.h"
#include "dialogs/sounds_dialog.h"
#include "dialogs/variables_dialog.h"

namespace tarvo::gui {

void showSoundsDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    // The player lives only as long as the dialog: nothing keeps playing once
    // it is closed.
    QtSoundPlayer player;
    SoundsDialog dialog(document, player, parent);
    dialog.setReferenceFinder(finder);
    dialog.exec();
}

void showMessagesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    MessagesDialog dialog(document, parent);
    dialog.setReferenceFinder(finder);
    dialog.exec();
}

void showVariablesDialog(ProjectDocument& document, QWidget* parent, const ReferenceFinder& finder)
{
    VariablesDialog dialog(document, parent);
    dialog.setReferenceFinder(finder);
    dialog.exec();
}

} // namespace tarvo::gui
