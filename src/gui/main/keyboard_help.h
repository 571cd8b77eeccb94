// The text of Help > Keyboard Shortcuts.
#pragma once

#include <QString>

class QMenuBar;

namespace tarvo::gui {

// Every menu item that has a key, read from the menus themselves so that the
// list cannot fall behind them, then the keys of the lists and pages.
QString keyboardShortcutsText(const QMenuBar& menuBar);

} // namespace tarvo::gui
