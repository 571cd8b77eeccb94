#pragma once

class QWidget;

namespace tarvo::gui {

// The key to the mission map: the colour of each edge kind and the shape of
// each node kind, in one line of small text.
QWidget* makeMapLegend(QWidget* parent);

} // namespace tarvo::gui
