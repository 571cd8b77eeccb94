#include "analysis/mission_graph.h"

#include "base/checked.h"
#include "script/script_names.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace tarvo::analysis {

namespace {

QString eventId(int event)
{
    return QStringLiteral("event") + QString::number(event);
}

QString endId(MissionEnd end)
{
    return end == MissionEnd::Win ? QStringLiteral("win") : QStringLiteral("lose");
}

QString quotedDot(const QString& text)
{
    QString escaped = text;
    escaped.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    escaped.replace(u'\n', QStringLiteral("\\n"));
    return u'"' + escaped + u'"';
}

QString nodeAttributes(const GraphNode& node)
{
    QString label = node.name.isEmpty() ? node.id : node.name;
    QString shape = QStringLiteral("box");
    QString extra;
    if (node.kind == QLatin1String("event")) {
        label += u'\n' + (node.enabled ? node.trigger : QStringLiteral("switched off"));
        extra = QStringLiteral(", style=\"rounded,filled\", fillcolor=\"%1\"")
                    .arg(node.enabled ? QStringLiteral("#ffffff") : QStringLiteral("#dddddd"));
        if (!node.enabled)
            extra += QStringLiteral(", fontcolor=\"#888888\", color=\"#aaaaaa\"");
        else if (!node.canRun)
            extra += QStringLiteral(", color=\"#c62828\", penwidth=2, xlabel=\"never runs\"");
    } else if (node.kind == QLatin1String("timer")) {
        label += u'\n' + node.trigger;
        shape = QStringLiteral("octagon");
    } else if (node.kind == QLatin1String("flag")) {
        shape = QStringLiteral("diamond");
    } else if (node.kind == QLatin1String("number")) {
        shape = QStringLiteral("ellipse");
    } else if (node.kind == QLatin1String("group")) {
        shape = QStringLiteral("folder");
    } else if (node.kind == QLatin1String("end")) {
        shape = QStringLiteral("doublecircle");
        extra = QStringLiteral(", style=filled, fillcolor=\"%1\"")
                    .arg(node.id == QLatin1String("win") ? QStringLiteral("#c8e6c9")
                                                         : QStringLiteral("#ffcdd2"));
    }
    return QStringLiteral("label=%1, shape=%2").arg(quotedDot(label), shape) + extra;
}

} // namespace

int MissionGraph::nodeIndex(const QString& id) const
{
    for (int i = 0; i < nodes.size(); ++i)
        if (nodes.at(i).id == id)
            return i;
    return -1;
}

QString edgeColour(const QString& kind)
{
    if (kind == QLatin1String("arms"))
        return QStringLiteral("#2e7d32");
    if (kind == QLatin1String("disarms"))
        return QStringLiteral("#c62828");
    if (kind == QLatin1String("writes"))
        return QStringLiteral("#1565c0");
    if (kind == QLatin1String("reads"))
        return QStringLiteral("#7b1fa2");
    return QStringLiteral("#ef6c00");
}

MissionGraph missionGraph(const Project& project, const MissionAnalysis& analysis)
{
    MissionGraph graph;
    const script::ScriptNames names(project);
    const int eventCount = int(analysis.events.size());
    for (int e = 0; e < eventCount; ++e) {
        const EventAnalysis& event = analysis.events[size_t(e)];
        GraphNode node;
        node.id = eventId(e);
        node.kind = QStringLiteral("event");
        node.name = project.events.at(e).name;
        node.index = e;
        node.enabled = event.inScript;
        node.canRun = event.canRun;
        node.trigger = (QStringList {event.facts.trigger} + event.facts.triggerArguments)
                           .join(QStringLiteral(", "));
        graph.nodes.append(node);
    }
    for (int t = 0; t < heldCount(project.timerCount, project.timers); ++t) {
        GraphNode node;
        node.id = QStringLiteral("Timer") + QString::number(t);
        node.kind = QStringLiteral("timer");
        node.name = project.timers.at(t).name;
        node.index = t;
        graph.nodes.append(node);
    }
    for (const VariableAnalysis& variable : analysis.variables) {
        GraphNode node;
        node.id = variable.code;
        node.kind = variableKindWord(variable.kind);
        node.name = variable.name;
        node.index = variable.position;
        node.row = variable.row;
        graph.nodes.append(node);
    }
    bool endsIn[2] = {false, false};

    QHash<QString, QList<int>> readers;
    for (const VariableAnalysis& variable : analysis.variables)
        readers.insert(variable.code, variable.readers);
    const auto isVariable = [&](const QString& code) { return readers.contains(code); };
    QSet<QString> edgeKeys;
    const auto addEdge = [&](GraphEdge edge) {
        const QString key = edge.from + u'\n' + edge.to + u'\n' + edge.kind + u'\n' + edge.via;
        if (!edgeKeys.contains(key)) {
            edgeKeys.insert(key);
            graph.edges.append(std::move(edge));
        }
    };
    for (int e = 0; e < eventCount; ++e) {
        const EventAnalysis& event = analysis.events[size_t(e)];
        if (!event.inScript)
            continue;
        // A timer is linked to the events whose header uses it.
        const int headerTimer = names.timerIndex(event.facts.trigger);
        if (headerTimer >= 0)
            addEdge({event.facts.trigger, eventId(e), QStringLiteral("arms"), {}, {}});
        for (const Arming& arming : event.facts.arms) {
            if (arming.target < 0 || arming.target >= eventCount
                || !analysis.events[size_t(arming.target)].inScript)
                continue;
            const QString via = names.timerIndex(arming.trigger) >= 0 ? arming.trigger : QString();
            addEdge({eventId(e), eventId(arming.target),
                arming.disarms() ? QStringLiteral("disarms") : QStringLiteral("arms"), via,
                via.isEmpty() ? QString() : names.authorName(via)});
        }
        for (const QString& code : event.facts.writes)
            if (isVariable(code))
                addEdge({eventId(e), code, QStringLiteral("writes"), {}, {}});
        for (const QString& code : event.facts.reads)
            if (isVariable(code))
                addEdge({code, eventId(e), QStringLiteral("reads"), {}, {}});
        for (const MissionEnd end : event.facts.ends) {
            for (const MissionEnd result : {MissionEnd::Win, MissionEnd::Lose}) {
                if (end != result && end != MissionEnd::Either)
                    continue;
                endsIn[result == MissionEnd::Win ? 0 : 1] = true;
                addEdge({eventId(e), endId(result), QStringLiteral("ends"), {}, {}});
            }
        }
    }
    for (const MissionEnd result : {MissionEnd::Win, MissionEnd::Lose}) {
        if (!endsIn[result == MissionEnd::Win ? 0 : 1])
            continue;
        GraphNode node;
        node.id = endId(result);
        node.kind = QStringLiteral("end");
        node.name = node.id;
        graph.nodes.append(node);
    }
    return graph;
}

MissionGraph graphAround(const MissionGraph& graph, const QString& centre, int steps)
{
    QHash<QString, QStringList> neighbours;
    for (const GraphEdge& edge : graph.edges) {
        neighbours[edge.from].append(edge.to);
        neighbours[edge.to].append(edge.from);
    }
    QSet<QString> kept {centre};
    QStringList ring {centre};
    for (int step = 0; step < steps && !ring.isEmpty(); ++step) {
        QStringList next;
        for (const QString& id : std::as_const(ring))
            for (const QString& other : neighbours.value(id))
                if (!kept.contains(other)) {
                    kept.insert(other);
                    next.append(other);
                }
        ring = next;
    }
    MissionGraph part;
    for (const GraphNode& node : graph.nodes)
        if (kept.contains(node.id))
            part.nodes.append(node);
    for (const GraphEdge& edge : graph.edges)
        if (kept.contains(edge.from) && kept.contains(edge.to))
            part.edges.append(edge);
    return part;
}

QByteArray graphDot(const MissionGraph& graph)
{
    QString text = QStringLiteral("digraph mission {\n  rankdir=LR;\n"
                                  "  node [fontname=\"Helvetica\", fontsize=11];\n"
                                  "  edge [fontname=\"Helvetica\", fontsize=9];\n");
    for (const GraphNode& node : graph.nodes)
        text += QStringLiteral("  %1 [%2];\n").arg(quotedDot(node.id), nodeAttributes(node));
    for (const GraphEdge& edge : graph.edges) {
        QString label = edge.kind;
        if (!edge.via.isEmpty())
            label += QStringLiteral(" via ") + edge.viaName;
        text += QStringLiteral("  %1 -> %2 [label=%3, color=\"%4\", fontcolor=\"%4\"%5];\n")
                    .arg(quotedDot(edge.from), quotedDot(edge.to), quotedDot(label),
                        edgeColour(edge.kind),
                        edge.kind == QLatin1String("disarms") ? QStringLiteral(", style=dashed")
                                                              : QString());
    }
    text += QStringLiteral("}\n");
    return text.toUtf8();
}

QByteArray graphJson(const MissionGraph& graph)
{
    QJsonArray nodes;
    for (const GraphNode& node : graph.nodes) {
        QJsonObject object {{QStringLiteral("id"), node.id}, {QStringLiteral("kind"), node.kind},
            {QStringLiteral("name"), node.name}};
        if (node.kind == QLatin1String("event")) {
            object.insert(QStringLiteral("position"), node.index + 1);
            object.insert(QStringLiteral("enabled"), node.enabled);
            if (node.enabled) {
                object.insert(QStringLiteral("trigger"), node.trigger);
                object.insert(QStringLiteral("canRun"), node.canRun);
            }
        } else if (node.kind == QLatin1String("timer")) {
            object.insert(QStringLiteral("position"), node.index + 1);
        }
        nodes.append(object);
    }
    QHash<QString, QString> namesById;
    for (const GraphNode& node : graph.nodes)
        namesById.insert(node.id, node.name);
    QJsonArray edges;
    for (const GraphEdge& edge : graph.edges) {
        QJsonObject object {{QStringLiteral("from"), edge.from}, {QStringLiteral("to"), edge.to},
            {QStringLiteral("kind"), edge.kind},
            {QStringLiteral("fromName"), namesById.value(edge.from)},
            {QStringLiteral("toName"), namesById.value(edge.to)}};
        if (!edge.via.isEmpty()) {
            object.insert(QStringLiteral("via"), edge.via);
            object.insert(QStringLiteral("viaName"), edge.viaName);
        }
        edges.append(object);
    }
    return QJsonDocument(
        QJsonObject {{QStringLiteral("nodes"), nodes}, {QStringLiteral("edges"), edges}})
        .toJson(QJsonDocument::Indented);
}

} // namespace tarvo::analysis
