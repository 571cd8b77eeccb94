#pragma once

#include <QGraphicsView>

namespace tarvo::gui {

// The mission map's canvas: the wheel zooms about the pointer, dragging the
// background pans, a click or double click on a node reports the node's id.
class MapView : public QGraphicsView
{
    Q_OBJECT
public:
    explicit MapView(QWidget* parent = nullptr);

    // The whole map in view (never larger than its natural size).
    void fitAll();
    // Zooms by `factor`, keeping the scene point under the pointer in place.
    void zoomBy(double factor);

Q_SIGNALS:
    void nodeClicked(const QString& id);
    void nodeDoubleClicked(const QString& id);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    QString nodeAt(const QPoint& position) const;
};

} // namespace tarvo::gui
