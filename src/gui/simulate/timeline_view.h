#pragma once

#include <QWidget>
#include <memory>

namespace tarvo::simulate {
class DryRun;
}

namespace tarvo::gui {

// The dry run as a strip chart: one row per event that fired, a tick per
// firing (dark when its actions ran, light when a condition was false), the
// clock along the top and the end of the run marked. Authors see at a glance
// what happens when.
class TimelineView : public QWidget
{
    Q_OBJECT
public:
    explicit TimelineView(QWidget* parent = nullptr);

    // The run to draw (kept alive by the caller); nullptr draws nothing.
    void setRun(const simulate::DryRun* run);
    // Call after the run went on.
    void refresh();
    // The events drawn, top to bottom.
    const QList<int>& rows() const { return m_rows; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void eventChosen(int event);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    int span() const; // tenths shown across the strip
    double xOf(int time) const;
    int rowAt(int y) const;

    const simulate::DryRun* m_run = nullptr;
    QList<int> m_rows;
    int m_labelWidth = 120;
};

} // namespace tarvo::gui
