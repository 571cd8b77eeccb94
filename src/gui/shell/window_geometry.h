// Putting a main window back where it was between runs.
#pragma once

#include <QByteArray>

class QWidget;

namespace tarvo::gui {

// QWidget::restoreGeometry, then the stored place exactly. Qt moves a window
// whose client area starts less than a title bar's height from the top of the
// screen down by that height; with no window manager (no title bar at all)
// the window came back lower on every start.
void restoreWindowGeometry(QWidget& window, const QByteArray& stored);

} // namespace tarvo::gui
