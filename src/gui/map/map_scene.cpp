#include "map/map_scene.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGraphicsPathItem>
#include <QGraphicsSimpleTextItem>
#include <QPainterPath>
#include <QPen>
#include <QtMath>

namespace tarvo::gui {

namespace {

using analysis::GraphEdge;
using analysis::GraphNode;

const QColor kFrame(0x42, 0x42, 0x42);
const QColor kNeverRuns(0xc6, 0x28, 0x28);
const QColor kSwitchedOff(0xaa, 0xaa, 0xaa);

QPainterPath nodeShape(const QString& kind, const QRectF& box)
{
    QPainterPath path;
    if (kind == QLatin1String("event")) {
        path.addRoundedRect(box, 8, 8);
    } else if (kind == QLatin1String("timer")) {
        const double cut = qMin(box.width(), box.height()) * 0.3;
        path.moveTo(box.left() + cut, box.top());
        path.lineTo(box.right() - cut, box.top());
        path.lineTo(box.right(), box.top() + cut);
        path.lineTo(box.right(), box.bottom() - cut);
        path.lineTo(box.right() - cut, box.bottom());
        path.lineTo(box.left() + cut, box.bottom());
        path.lineTo(box.left(), box.bottom() - cut);
        path.lineTo(box.left(), box.top() + cut);
        path.closeSubpath();
    } else if (kind == QLatin1String("flag")) {
        path.moveTo(box.center().x(), box.top());
        path.lineTo(box.right(), box.center().y());
        path.lineTo(box.center().x(), box.bottom());
        path.lineTo(box.left(), box.center().y());
        path.closeSubpath();
    } else if (kind == QLatin1String("number") || kind == QLatin1String("end")) {
        path.addEllipse(box);
    } else {
        // A group: a folder with its tab.
        path.moveTo(box.left(), box.top() + 6);
        path.lineTo(box.left() + box.width() * 0.35, box.top() + 6);
        path.lineTo(box.left() + box.width() * 0.4, box.top());
        path.lineTo(box.right(), box.top());
        path.lineTo(box.right(), box.bottom());
        path.lineTo(box.left(), box.bottom());
        path.closeSubpath();
    }
    return path;
}

QColor fillOf(const GraphNode& node)
{
    if (node.kind == QLatin1String("event"))
        return node.enabled ? QColor(Qt::white) : QColor(0xe0, 0xe0, 0xe0);
    if (node.kind == QLatin1String("timer"))
        return QColor(0xff, 0xf8, 0xe1);
    if (node.kind == QLatin1String("end"))
        return node.id == QLatin1String("win") ? QColor(0xc8, 0xe6, 0xc9)
                                               : QColor(0xff, 0xcd, 0xd2);
    return QColor(0xe3, 0xf2, 0xfd);
}

void addCentredText(QGraphicsItem* parent, const QRectF& box, const QStringList& lines,
    const QList<QFont>& fonts, const QColor& colour)
{
    double height = 0;
    for (int i = 0; i < lines.size(); ++i)
        height += QFontMetricsF(fonts.at(i)).height();
    double y = box.center().y() - height / 2;
    for (int i = 0; i < lines.size(); ++i) {
        const QFontMetricsF metrics(fonts.at(i));
        const QString text = metrics.elidedText(lines.at(i), Qt::ElideRight, box.width() - 8);
        auto* item = new QGraphicsSimpleTextItem(text, parent);
        item->setFont(fonts.at(i));
        item->setBrush(i == 0 ? colour : QColor(0x61, 0x61, 0x61));
        item->setPos(box.center().x() - metrics.horizontalAdvance(text) / 2, y);
        y += metrics.height();
    }
}

QGraphicsItem* nodeItem(const GraphNode& node, const QRectF& box)
{
    auto* item = new QGraphicsPathItem(nodeShape(node.kind, box));
    item->setData(kNodeIdRole, node.id);
    item->setBrush(fillOf(node));
    QPen pen(kFrame, 1.2);
    if (node.kind == QLatin1String("event") && !node.enabled)
        pen.setColor(kSwitchedOff);
    else if (node.kind == QLatin1String("event") && !node.canRun)
        pen = QPen(kNeverRuns, 2.5, Qt::DashLine);
    item->setPen(pen);
    item->setData(kNodeIdRole + 1, QVariant::fromValue(pen));
    item->setZValue(2);
    item->setToolTip(node.kind == QLatin1String("event")
            ? QStringLiteral("%1 (%2)%3")
                  .arg(node.name, node.id,
                      !node.enabled      ? QStringLiteral(": switched off")
                          : !node.canRun ? QStringLiteral(": can never run")
                                         : QString())
            : QStringLiteral("%1 (%2)").arg(node.name, node.id));
    QFont nameFont;
    nameFont.setPointSizeF(9);
    QFont small = nameFont;
    small.setPointSizeF(7);
    QStringList lines {node.name.isEmpty() ? node.id : node.name};
    if (node.kind == QLatin1String("event"))
        lines << (!node.enabled ? QStringLiteral("switched off")
                : node.canRun   ? node.trigger
                                : node.trigger + QStringLiteral(" - never runs"));
    else if (node.kind == QLatin1String("timer"))
        lines << node.trigger;
    addCentredText(item, box, lines, {nameFont, small},
        node.kind == QLatin1String("event") && !node.enabled ? kSwitchedOff : QColor(Qt::black));
    return item;
}

QGraphicsItem* edgeItem(const GraphEdge& edge, const layout::RoutedEdge& routed)
{
    if (routed.spline.isEmpty())
        return nullptr;
    QPainterPath path(routed.spline.first());
    for (int i = 1; i + 2 < routed.spline.size(); i += 3)
        path.cubicTo(routed.spline.at(i), routed.spline.at(i + 1), routed.spline.at(i + 2));
    const QColor colour(analysis::edgeColour(edge.kind));
    auto* item = new QGraphicsPathItem(path);
    QPen pen(colour, 1.4);
    if (edge.kind == QLatin1String("disarms"))
        pen.setStyle(Qt::DashLine);
    item->setPen(pen);
    item->setZValue(1);
    if (routed.hasArrow) {
        const QPointF base = routed.spline.last();
        const QPointF tip = routed.arrowTip;
        const double angle = qAtan2(tip.y() - base.y(), tip.x() - base.x());
        const double length = QLineF(base, tip).length();
        const double half = qMax(3.0, length * 0.4);
        QPainterPath arrow(tip);
        arrow.lineTo(base + QPointF(qSin(angle) * half, -qCos(angle) * half));
        arrow.lineTo(base - QPointF(qSin(angle) * half, -qCos(angle) * half));
        arrow.closeSubpath();
        auto* head = new QGraphicsPathItem(arrow, item);
        head->setBrush(colour);
        head->setPen(Qt::NoPen);
    }
    if (routed.hasLabel
        && (edge.kind == QLatin1String("arms") || edge.kind == QLatin1String("disarms"))) {
        QFont font;
        font.setPointSizeF(7);
        const QString text
            = edge.via.isEmpty() ? edge.kind : edge.kind + QStringLiteral(" via ") + edge.viaName;
        auto* label = new QGraphicsSimpleTextItem(text, item);
        label->setFont(font);
        label->setBrush(colour);
        const QFontMetricsF metrics(font);
        label->setPos(
            routed.labelAt - QPointF(metrics.horizontalAdvance(text) / 2, metrics.height() / 2));
    }
    item->setToolTip(edge.from + QStringLiteral(" ") + edge.kind + QStringLiteral(" ") + edge.to);
    return item;
}

} // namespace

QHash<QString, QGraphicsItem*> drawMissionMap(
    QGraphicsScene& scene, const analysis::MissionGraph& graph, const layout::GraphLayout& layout)
{
    scene.clear();
    QHash<QString, const GraphNode*> nodes;
    for (const GraphNode& node : graph.nodes)
        nodes.insert(node.id, &node);
    QHash<QString, QGraphicsItem*> items;
    for (const layout::PlacedNode& placed : layout.nodes) {
        const GraphNode* node = nodes.value(placed.id);
        if (!node)
            continue;
        QGraphicsItem* item = nodeItem(*node, placed.box);
        scene.addItem(item);
        items.insert(placed.id, item);
    }
    // Edges by their ends, in graph order: two edges between the same nodes
    // take the routes in turn.
    QHash<QString, QList<const layout::RoutedEdge*>> routes;
    for (const layout::RoutedEdge& routed : layout.edges)
        routes[routed.from + u'\n' + routed.to].append(&routed);
    for (const GraphEdge& edge : graph.edges) {
        QList<const layout::RoutedEdge*>& list = routes[edge.from + u'\n' + edge.to];
        if (list.isEmpty())
            continue;
        if (QGraphicsItem* item = edgeItem(edge, *list.takeFirst()))
            scene.addItem(item);
    }
    scene.setSceneRect(scene.itemsBoundingRect().adjusted(-20, -20, 20, 20));
    return items;
}

void markSelectedNode(const QHash<QString, QGraphicsItem*>& nodes, const QString& id)
{
    for (auto it = nodes.cbegin(); it != nodes.cend(); ++it) {
        auto* item = static_cast<QGraphicsPathItem*>(it.value());
        const bool selected = it.key() == id;
        QPen pen = item->data(kNodeIdRole + 1).value<QPen>();
        if (selected) {
            pen.setColor(QColor(0x19, 0x76, 0xd2));
            pen.setWidthF(3.5);
        }
        item->setPen(pen);
        item->setZValue(selected ? 3 : 2);
    }
}

} // namespace tarvo::gui
