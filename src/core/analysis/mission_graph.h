#pragma once

#include "analysis/mission_analysis.h"

#include <QByteArray>

namespace tarvo::analysis {

// A node of the mission map: an event, a timer, a variable or an end of the
// mission. `id` is the script's name ("event3", "Timer0", "flag[2]") or
// "win"/"lose"; `name` is the author's.
struct GraphNode
{
    QString id;
    QString kind; // "event", "timer", "flag", "number", "group", "end"
    QString name;
    QString trigger; // events and timers: the header's trigger as script text
    int index = -1; // event or timer position, or the variable's position in its row
    int row = -1; // a variable's list row
    bool enabled = true; // false for a switched-off event
    bool canRun = true; // false for an event of the script that can never run
};

// An edge: cause on the left, effect on the right. "arms"/"disarms" go from
// the acting event to the event (`via` the timer it is given, if any);
// "writes" from the event to the variable; "reads" from the variable to the
// event; "ends" from the event to "win" or "lose".
struct GraphEdge
{
    QString from;
    QString to;
    QString kind;
    QString via;
    QString viaName; // the timer's name, kept for parts of the graph without it

    friend bool operator==(const GraphEdge&, const GraphEdge&) = default;
};

struct MissionGraph
{
    QList<GraphNode> nodes; // events, timers, variables, then the ends
    QList<GraphEdge> edges;

    int nodeIndex(const QString& id) const;
};

MissionGraph missionGraph(const Project& project, const MissionAnalysis& analysis);

// The part of `graph` within `steps` edges of node `centre`, edges followed
// either way: what the map's focus mode shows.
MissionGraph graphAround(const MissionGraph& graph, const QString& centre, int steps);

// The graph for Graphviz, left to right, coloured by edge kind.
QByteArray graphDot(const MissionGraph& graph);
// {"nodes":[{"id","kind","name",...}],"edges":[{"from","to","kind",...}]}.
QByteArray graphJson(const MissionGraph& graph);

// Colours shared by the DOT text, the map and its legend.
QString edgeColour(const QString& kind);

} // namespace tarvo::analysis
