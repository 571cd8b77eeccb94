#include "graph_layout.h"

#include <QMutex>
#include <graphviz/cgraph.h>
#include <graphviz/gvc.h>

namespace tarvo::layout {

namespace {

// Graphviz keeps global state: one context for the program, used by one
// caller at a time.
GVC_t* context()
{
    static GVC_t* shared = gvContext();
    return shared;
}

QMutex& lock()
{
    static QMutex mutex;
    return mutex;
}

struct ReadGraph
{
    explicit ReadGraph(const QByteArray& dot)
        : graph(agmemread(dot.constData()))
    {
    }
    ~ReadGraph()
    {
        if (graph)
            agclose(graph);
    }
    Agraph_t* graph;
};

} // namespace

GraphLayout layoutDot(const QByteArray& dot)
{
    QMutexLocker guard(&lock());
    GraphLayout result;
    ReadGraph read(dot);
    if (!read.graph) {
        result.error = QStringLiteral("Graphviz cannot read the graph");
        return result;
    }
    Agraph_t* graph = read.graph;
    if (gvLayout(context(), graph, "dot") != 0) {
        result.error = QStringLiteral("Graphviz cannot lay out the graph");
        return result;
    }
    const boxf bb = GD_bb(graph);
    const double top = bb.UR.y;
    const auto flip = [top](pointf p) { return QPointF(p.x, top - p.y); };
    result.bounds = QRectF(0, 0, bb.UR.x - bb.LL.x, bb.UR.y - bb.LL.y);
    for (Agnode_t* node = agfstnode(graph); node; node = agnxtnode(graph, node)) {
        const QPointF centre = flip(ND_coord(node));
        const double width = ND_width(node) * 72.0;
        const double height = ND_height(node) * 72.0;
        result.nodes.append({QString::fromUtf8(agnameof(node)),
            QRectF(centre.x() - width / 2, centre.y() - height / 2, width, height)});
        for (Agedge_t* edge = agfstout(graph, node); edge; edge = agnxtout(graph, edge)) {
            RoutedEdge routed;
            routed.from = QString::fromUtf8(agnameof(agtail(edge)));
            routed.to = QString::fromUtf8(agnameof(aghead(edge)));
            if (const splines* lines = ED_spl(edge); lines && lines->size > 0) {
                const bezier& curve = lines->list[0];
                for (int i = 0; i < int(curve.size); ++i)
                    routed.spline.append(flip(curve.list[i]));
                routed.hasArrow = curve.eflag != 0;
                if (routed.hasArrow)
                    routed.arrowTip = flip(curve.ep);
            }
            if (const textlabel_t* label = ED_label(edge)) {
                routed.labelAt = flip(label->pos);
                routed.hasLabel = true;
            }
            result.edges.append(routed);
        }
    }
    gvFreeLayout(context(), graph);
    return result;
}

QByteArray renderDot(const QByteArray& dot, const char* format, QString* error)
{
    QMutexLocker guard(&lock());
    ReadGraph read(dot);
    const auto fail = [&](const char* sentence) {
        if (error)
            *error = QString::fromLatin1(sentence);
        return QByteArray();
    };
    if (!read.graph)
        return fail("Graphviz cannot read the graph");
    if (gvLayout(context(), read.graph, "dot") != 0)
        return fail("Graphviz cannot lay out the graph");
    char* data = nullptr;
    unsigned int length = 0;
    const int rendered = gvRenderData(context(), read.graph, format, &data, &length);
    QByteArray bytes = rendered == 0 && data ? QByteArray(data, qsizetype(length)) : QByteArray();
    if (data)
        gvFreeRenderData(data);
    gvFreeLayout(context(), read.graph);
    if (bytes.isEmpty())
        return fail("Graphviz cannot write the format");
    return bytes;
}

} // namespace tarvo::layout
