#pragma once

#include <QByteArray>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>

namespace tarvo::layout {

// A node as Graphviz placed it, in points, y growing downwards.
struct PlacedNode
{
    QString id;
    QRectF box;
};

// An edge as Graphviz routed it: the points of its spline (a start point
// then groups of three Bezier control points), the tip of its arrow (the
// spline ends at the arrow's base) and the place of its label.
struct RoutedEdge
{
    QString from;
    QString to;
    QList<QPointF> spline;
    QPointF arrowTip;
    bool hasArrow = false;
    QPointF labelAt;
    bool hasLabel = false;
};

struct GraphLayout
{
    QList<PlacedNode> nodes;
    QList<RoutedEdge> edges;
    QRectF bounds;
    QString error; // empty on success
};

// Lays out DOT text with Graphviz's "dot" (layered).
GraphLayout layoutDot(const QByteArray& dot);

// Renders DOT text with "dot" into `format` ("svg", "png"); an empty result
// with `error` set when Graphviz refuses.
QByteArray renderDot(const QByteArray& dot, const char* format, QString* error = nullptr);

} // namespace tarvo::layout
