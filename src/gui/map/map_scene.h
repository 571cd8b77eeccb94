#pragma once

#include "analysis/mission_graph.h"
#include "graph_layout.h"

#include <QGraphicsScene>
#include <QHash>

namespace tarvo::gui {

// The item data key that holds a node's id ("event3", "flag[0]", "win").
constexpr int kNodeIdRole = 0;

// Fills `scene` with the nodes and edges of `graph` where `layout` placed
// them: boxes with the trigger in small text for events, other shapes for
// timers, variables and the ends; edges coloured by kind with their labels.
// Returns each node's item by id, for selecting and finding.
QHash<QString, QGraphicsItem*> drawMissionMap(
    QGraphicsScene& scene, const analysis::MissionGraph& graph, const layout::GraphLayout& layout);

// Marks `id` as the selected node (a thick frame); an empty id clears it.
void markSelectedNode(const QHash<QString, QGraphicsItem*>& nodes, const QString& id);

} // namespace tarvo::gui
