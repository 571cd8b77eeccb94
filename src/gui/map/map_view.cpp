#include "map/map_view.h"

#include "map/map_scene.h"

#include <QGraphicsItem>
#include <QMouseEvent>
#include <QWheelEvent>

namespace tarvo::gui {

MapView::MapView(QWidget* parent)
    : QGraphicsView(parent)
{
    setObjectName(QStringLiteral("MissionMapView"));
    setDragMode(QGraphicsView::ScrollHandDrag);
    setRenderHint(QPainter::Antialiasing);
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    setBackgroundBrush(Qt::white);
}

void MapView::fitAll()
{
    if (!scene())
        return;
    resetTransform();
    const QRectF bounds = scene()->itemsBoundingRect().adjusted(-10, -10, 10, 10);
    fitInView(bounds, Qt::KeepAspectRatio);
    // Small maps keep their natural size: text larger than life helps nobody.
    if (transform().m11() > 1.0)
        resetTransform();
    centerOn(bounds.center());
}

void MapView::zoomBy(double factor)
{
    const double scale = transform().m11() * factor;
    if (scale < 0.02 || scale > 8.0)
        return;
    this->scale(factor, factor);
}

void MapView::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y();
    if (steps == 0)
        return QGraphicsView::wheelEvent(event);
    zoomBy(steps > 0 ? 1.15 : 1 / 1.15);
    event->accept();
}

QString MapView::nodeAt(const QPoint& position) const
{
    for (QGraphicsItem* item : items(position)) {
        for (QGraphicsItem* at = item; at; at = at->parentItem()) {
            const QString id = at->data(kNodeIdRole).toString();
            if (!id.isEmpty())
                return id;
        }
    }
    return {};
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    const QString id
        = event->button() == Qt::LeftButton ? nodeAt(event->position().toPoint()) : QString();
    QGraphicsView::mousePressEvent(event);
    if (!id.isEmpty())
        Q_EMIT nodeClicked(id);
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QString id = nodeAt(event->position().toPoint());
    if (id.isEmpty())
        return QGraphicsView::mouseDoubleClickEvent(event);
    Q_EMIT nodeDoubleClicked(id);
    event->accept();
}

} // namespace tarvo::gui
