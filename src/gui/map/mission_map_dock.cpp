#include "map/mission_map_dock.h"

#include "graph_layout.h"
#include "map/map_legend.h"
#include "map/map_scene.h"
#include "map/map_view.h"
#include "base/file_error.h"
#include "catalogue/workspace.h"
#include "ui/prompter.h"

#include <QAction>
#include <QFileInfo>
#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPainter>
#include <QSvgGenerator>
#include <QToolBar>
#include <QVBoxLayout>

namespace tarvo::gui {

MissionMapDock::MissionMapDock(const Workspace& workspace, Prompter& prompter, QWidget* parent)
    : QDockWidget(QStringLiteral("Mission Map"), parent)
    , m_workspace(workspace)
    , m_prompter(prompter)
    , m_view(new MapView(this))
    , m_scene(new QGraphicsScene(this))
{
    setObjectName(QStringLiteral("MissionMapDock"));
    m_view->setScene(m_scene);
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(2, 2, 2, 2);
    layout->setSpacing(2);
    layout->addWidget(buildToolBar());
    m_note = new QLabel(body);
    m_note->setObjectName(QStringLiteral("MapNote"));
    m_note->setWordWrap(true);
    layout->addWidget(m_note);
    layout->addWidget(m_view, 1);
    layout->addWidget(makeMapLegend(body));
    setWidget(body);
    m_view->setMinimumSize(360, 240);

    m_delay.setSingleShot(true);
    m_delay.setInterval(400);
    connect(&m_delay, &QTimer::timeout, this, &MissionMapDock::refreshNow);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (!visible)
            return;
        // A map reads left to right: the first time, it takes half the window.
        auto* window = qobject_cast<QMainWindow*>(parentWidget());
        if (!m_widened && window && !isFloating()) {
            m_widened = true;
            window->resizeDocks({this}, {window->width() / 2}, Qt::Horizontal);
        }
        refreshSoon();
    });
    connect(
        m_view, &MapView::nodeClicked, this, [this](const QString& id) { nodeClicked(id, false); });
    connect(m_view, &MapView::nodeDoubleClicked, this,
        [this](const QString& id) { nodeClicked(id, true); });
    // Ctrl+F inside the map finds in the map, not in the project.
    for (QWidget* widget :
        {static_cast<QWidget*>(m_view), m_view->viewport(), static_cast<QWidget*>(m_find)})
        widget->installEventFilter(this);
}

QWidget* MissionMapDock::buildToolBar()
{
    auto* bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("MapToolBar"));
    bar->setIconSize(QSize(16, 16));
    QAction* fit = bar->addAction(QStringLiteral("Fit"), m_view, &MapView::fitAll);
    fit->setObjectName(QStringLiteral("MapFit"));
    fit->setToolTip(QStringLiteral("Show the whole map"));
    m_focus = bar->addAction(QStringLiteral("Focus"));
    m_focus->setObjectName(QStringLiteral("MapFocus"));
    m_focus->setCheckable(true);
    m_focus->setToolTip(QStringLiteral("Show only the selected event and its neighbours two "
                                       "steps out"));
    connect(m_focus, &QAction::triggered, this, [this](bool on) {
        m_focusChosen = true;
        setFocusMode(on);
    });
    bar->addSeparator();
    m_find = new QLineEdit(bar);
    m_find->setObjectName(QStringLiteral("MapFind"));
    m_find->setPlaceholderText(QStringLiteral("Find in map (Ctrl+F)"));
    m_find->setClearButtonEnabled(true);
    m_find->setMaximumWidth(200);
    connect(m_find, &QLineEdit::returnPressed, this, [this] {
        if (!findNode(m_find->text()))
            m_prompter.beep();
    });
    bar->addWidget(m_find);
    bar->addSeparator();
    bar->addAction(QStringLiteral("Export PNG..."), this, [this] { exportAs("png"); })
        ->setObjectName(QStringLiteral("MapExportPng"));
    bar->addAction(QStringLiteral("Export SVG..."), this, [this] { exportAs("svg"); })
        ->setObjectName(QStringLiteral("MapExportSvg"));
    return bar;
}

void MissionMapDock::refreshSoon()
{
    if (isVisible())
        m_delay.start();
}

bool MissionMapDock::focusMode() const
{
    return m_focus->isChecked();
}

void MissionMapDock::setFocusMode(bool on)
{
    m_focus->setChecked(on);
    refreshNow();
}

void MissionMapDock::setSelectedEvent(int event)
{
    m_selectedEvent = event;
    if (focusMode())
        refreshSoon();
    else
        selectNode(event >= 0 ? QStringLiteral("event") + QString::number(event) : QString());
}

analysis::MissionGraph MissionMapDock::focusGraph() const
{
    const QString centre = m_selectedEvent >= 0
        ? QStringLiteral("event") + QString::number(m_selectedEvent)
        : (m_graph.nodes.isEmpty() ? QString() : m_graph.nodes.first().id);
    return analysis::graphAround(m_graph, centre, 2);
}

void MissionMapDock::refreshNow()
{
    m_delay.stop();
    try {
        m_graph
            = analysis::missionGraph(m_workspace.project, analysis::analyseMission(m_workspace));
    } catch (const FileError& error) {
        m_note->setText(error.message());
        m_note->show();
        return;
    }
    if (!m_focusChosen)
        m_focus->setChecked(m_workspace.project.eventCount > kFocusAbove);
    m_shown = focusMode() ? focusGraph() : m_graph;
    const layout::GraphLayout placed = layout::layoutDot(analysis::graphDot(m_shown));
    m_note->setText(placed.error);
    if (focusMode() && placed.error.isEmpty())
        m_note->setText(QStringLiteral("Focus: %1 of %2 nodes around the selected event.")
                            .arg(m_shown.nodes.size())
                            .arg(m_graph.nodes.size()));
    m_note->setVisible(!m_note->text().isEmpty());
    const bool first = m_nodes.isEmpty();
    m_nodes = drawMissionMap(*m_scene, m_shown, placed);
    const QString selected = m_selectedEvent >= 0
        ? QStringLiteral("event") + QString::number(m_selectedEvent)
        : QString();
    selectNode(selected);
    // Once the dock has its size.
    if (first || focusMode())
        QTimer::singleShot(0, m_view, &MapView::fitAll);
}

void MissionMapDock::selectNode(const QString& id)
{
    m_selectedId = m_nodes.contains(id) ? id : QString();
    markSelectedNode(m_nodes, m_selectedId);
    if (!m_selectedId.isEmpty())
        m_view->ensureVisible(m_nodes.value(m_selectedId), 40, 40);
}

void MissionMapDock::nodeClicked(const QString& id, bool open)
{
    const int index = m_shown.nodeIndex(id);
    if (index < 0)
        return;
    const analysis::GraphNode& node = m_shown.nodes.at(index);
    selectNode(id);
    if (node.kind != QLatin1String("event"))
        return;
    m_selectedEvent = node.index;
    if (open)
        Q_EMIT eventOpened(node.index);
    else
        Q_EMIT eventChosen(node.index);
}

bool MissionMapDock::findNode(const QString& text)
{
    if (text.isEmpty() || m_shown.nodes.isEmpty())
        return false;
    // From the node after the selected one, round to it.
    const int start = m_shown.nodeIndex(m_selectedId) + 1;
    const int count = int(m_shown.nodes.size());
    for (int k = 0; k < count; ++k) {
        const analysis::GraphNode& node = m_shown.nodes.at((start + k) % count);
        if (node.name.contains(text, Qt::CaseInsensitive)
            || node.id.contains(text, Qt::CaseInsensitive)) {
            selectNode(node.id);
            m_view->centerOn(m_nodes.value(node.id));
            return true;
        }
    }
    return false;
}

bool MissionMapDock::exportTo(const QString& path) const
{
    const QRectF source = m_scene->itemsBoundingRect().adjusted(-10, -10, 10, 10);
    if (QFileInfo(path).suffix().compare(QLatin1String("svg"), Qt::CaseInsensitive) == 0) {
        QSvgGenerator svg;
        svg.setFileName(path);
        svg.setSize(source.size().toSize());
        svg.setViewBox(QRectF(QPointF(0, 0), source.size()));
        svg.setTitle(QStringLiteral("Mission Map"));
        QPainter painter;
        if (!painter.begin(&svg))
            return false;
        m_scene->render(&painter, QRectF(QPointF(0, 0), source.size()), source);
        return painter.end();
    }
    // Twice the scene's size: sharp enough to print.
    QImage image((source.size() * 2).toSize(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    m_scene->render(&painter, QRectF(QPointF(0, 0), image.size()), source);
    painter.end();
    return image.save(path, "PNG");
}

void MissionMapDock::exportAs(const char* format)
{
    const bool svg = qstrcmp(format, "svg") == 0;
    QString path = m_prompter.saveFileName(QStringLiteral("Export Mission Map"),
        svg ? QStringLiteral("SVG picture (*.svg)") : QStringLiteral("PNG picture (*.png)"));
    if (path.isEmpty())
        return;
    if (QFileInfo(path).suffix().isEmpty())
        path += svg ? QStringLiteral(".svg") : QStringLiteral(".png");
    if (!exportTo(path))
        m_prompter.message(QStringLiteral("The map could not be written to \"%1\".").arg(path),
            Prompter::Icon::Critical);
}

bool MissionMapDock::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Find)) {
            event->accept();
            if (event->type() == QEvent::KeyPress) {
                m_find->setFocus(Qt::ShortcutFocusReason);
                m_find->selectAll();
            }
            return true;
        }
    }
    return QDockWidget::eventFilter(watched, event);
}

} // namespace tarvo::gui
