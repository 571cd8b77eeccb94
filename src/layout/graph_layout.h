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

// An edge as Graphviz routed it: its "id" attribute, the points of its
// spline (a start point then groups of three Bezier control points) and the
// place of its label.
struct RoutedEdge
{
    QString id;
    QString from;
    QString to;
    QList<QPointF> spline;
    QPointF labelAt;
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
