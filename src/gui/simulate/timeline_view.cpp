#include "simulate/timeline_view.h"

#include "simulate/dry_run.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace tarvo::gui {

namespace {

constexpr int kAxisHeight = 22;
constexpr int kRowHeight = 18;
constexpr int kMargin = 8;

// A step for the axis labels that leaves at least 70 pixels between them.
int axisStep(int span, double width)
{
    for (const int step : {10, 50, 100, 300, 600, 1200, 3000, 6000, 18000, 36000, 72000})
        if (width * step / qMax(1, span) >= 70)
            return step;
    return 144000;
}

} // namespace

TimelineView::TimelineView(QWidget* parent)
    : QWidget(parent)
{
    setMouseTracking(false);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
}

void TimelineView::setRun(const simulate::DryRun* run)
{
    m_run = run;
    refresh();
}

void TimelineView::refresh()
{
    m_rows.clear();
    if (m_run) {
        const auto& histories = m_run->histories();
        for (size_t e = 0; e < histories.size(); ++e)
            if (!histories[e].firings.isEmpty())
                m_rows << int(e);
        const QFontMetrics metrics(font());
        m_labelWidth = 60;
        for (const int event : std::as_const(m_rows))
            m_labelWidth = qMax(m_labelWidth,
                metrics.horizontalAdvance(m_run->model().events[size_t(event)].name) + 12);
        m_labelWidth = qMin(m_labelWidth, 220);
    }
    setMinimumHeight(kAxisHeight + kRowHeight * int(m_rows.size()) + kMargin);
    updateGeometry();
    update();
}

QSize TimelineView::sizeHint() const
{
    return {600, kAxisHeight + kRowHeight * qMax(3, int(m_rows.size())) + kMargin};
}

int TimelineView::span() const
{
    if (!m_run)
        return 10;
    return qMax(10, m_run->finished() ? m_run->time() : qMax(0, m_run->time()));
}

double TimelineView::xOf(int time) const
{
    const double width = qMax(20, this->width() - m_labelWidth - 2 * kMargin);
    return m_labelWidth + kMargin + width * time / span();
}

int TimelineView::rowAt(int y) const
{
    const int row = (y - kAxisHeight) / kRowHeight;
    return y >= kAxisHeight && row < m_rows.size() ? row : -1;
}

void TimelineView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QPalette& colours = palette();
    if (!m_run || m_rows.isEmpty()) {
        painter.setPen(colours.color(QPalette::PlaceholderText));
        painter.drawText(rect().adjusted(kMargin, kMargin, 0, 0), Qt::AlignLeft | Qt::AlignTop,
            tr("Run or step the mission: each event that fires gets a row here."));
        return;
    }
    const int total = span();
    const double width = this->width() - m_labelWidth - 2 * kMargin;
    const int step = axisStep(total, width);
    // A faint dotted grid, so that it never reads as a firing.
    QColor grid = colours.color(QPalette::Mid);
    grid.setAlpha(90);
    for (int t = 0; t <= total; t += step) {
        const double x = xOf(t);
        painter.setPen(QPen(grid, 1, Qt::DotLine));
        painter.drawLine(QPointF(x, kAxisHeight), QPointF(x, height()));
        painter.setPen(colours.color(QPalette::Text));
        painter.drawLine(QPointF(x, kAxisHeight - 5), QPointF(x, kAxisHeight));
        if (x + 60 < this->width())
            painter.drawText(QRectF(x + 2, 2, 80, kAxisHeight - 6),
                Qt::AlignLeft | Qt::AlignVCenter, simulate::clockText(t));
    }
    const QColor ran(30, 130, 50);
    const QColor skipped(150, 150, 150);
    for (int row = 0; row < m_rows.size(); ++row) {
        const int event = m_rows.at(row);
        const int top = kAxisHeight + row * kRowHeight;
        if (row % 2)
            painter.fillRect(
                QRect(0, top, this->width(), kRowHeight), colours.color(QPalette::AlternateBase));
        painter.setPen(colours.color(QPalette::Text));
        const QString name = fontMetrics().elidedText(
            m_run->model().events[size_t(event)].name, Qt::ElideRight, m_labelWidth - 8);
        painter.drawText(QRect(4, top, m_labelWidth - 8, kRowHeight), Qt::AlignVCenter, name);
        for (const simulate::EventHistory::Firing& firing :
            m_run->histories()[size_t(event)].firings) {
            const double x = xOf(firing.time);
            if (firing.falseCondition) {
                painter.setPen(QPen(skipped, 1));
                painter.drawLine(QPointF(x, top + 6), QPointF(x, top + kRowHeight - 6));
            } else {
                painter.setPen(QPen(ran, 3));
                painter.drawLine(QPointF(x, top + 2), QPointF(x, top + kRowHeight - 2));
            }
        }
    }
    if (m_run->finished()) {
        const double x = xOf(m_run->time());
        const QString& ending = m_run->ending();
        const QColor colour
            = ending == QLatin1String("win") ? QColor(20, 140, 20) : QColor(190, 30, 30);
        painter.setPen(QPen(colour, 2, Qt::DashLine));
        painter.drawLine(QPointF(x, kAxisHeight - 6), QPointF(x, height()));
        const QString word = ending == QLatin1String("win") ? tr("won")
            : ending == QLatin1String("lose")               ? tr("lost")
            : ending == QLatin1String("loop")               ? tr("loop")
                                                            : tr("end");
        const QRectF label(x - 50, 2, 46, kAxisHeight - 6);
        painter.fillRect(label, colours.color(QPalette::Base));
        painter.drawText(label, Qt::AlignRight | Qt::AlignVCenter, word);
    }
}

void TimelineView::mousePressEvent(QMouseEvent* event)
{
    const int row = rowAt(int(event->position().y()));
    if (row >= 0)
        Q_EMIT eventChosen(m_rows.at(row));
}

bool TimelineView::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip || !m_run)
        return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = rowAt(help->pos().y());
    if (row < 0) {
        QToolTip::hideText();
        return true;
    }
    const int eventIndex = m_rows.at(row);
    const simulate::EventHistory& history = m_run->histories()[size_t(eventIndex)];
    QToolTip::showText(help->globalPos(),
        tr("%1: fired %2 times, its actions ran %3 times")
            .arg(m_run->model().events[size_t(eventIndex)].name)
            .arg(history.ran + history.skipped)
            .arg(history.ran),
        this);
    return true;
}

} // namespace tarvo::gui
