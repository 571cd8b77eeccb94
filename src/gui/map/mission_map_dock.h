#pragma once

#include "analysis/mission_graph.h"

#include <QDockWidget>
#include <QHash>
#include <QTimer>

class QAction;
class QGraphicsItem;
class QGraphicsScene;
class QLabel;
class QLineEdit;

namespace tarvo {
class Prompter;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

class MapView;

// "Mission Map": the events and timers, the flags and numbers they set and
// test, and the mission's ends, laid out by Graphviz from cause (left) to
// effect (right). It follows the project a short while after each change and
// only while shown. A click on an event selects it on the main page, a double
// click opens it in the wizard; the focus mode shows the selected event and
// its neighbours two steps out.
class MissionMapDock : public QDockWidget
{
    Q_OBJECT
public:
    // Projects with more events than this open in focus mode.
    static constexpr int kFocusAbove = 150;

    MissionMapDock(const Workspace& workspace, Prompter& prompter, QWidget* parent = nullptr);

    void refreshSoon();
    // Lays out and draws at once (tests, and showing the dock).
    void refreshNow();
    // The event the main page shows; -1 for none.
    void setSelectedEvent(int event);
    void setFocusMode(bool on);
    bool focusMode() const;
    // Selects and shows the next node whose name holds `text`; false if none.
    bool findNode(const QString& text);
    // Writes the map as a picture; the suffix chooses PNG or SVG.
    bool exportTo(const QString& path) const;

    MapView* view() const { return m_view; }
    // The graph drawn now (the focus part in focus mode).
    const analysis::MissionGraph& shownGraph() const { return m_shown; }
    QString selectedNode() const { return m_selectedId; }

Q_SIGNALS:
    void eventChosen(int event);
    void eventOpened(int event);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildToolBar();
    void nodeClicked(const QString& id, bool open);
    void selectNode(const QString& id);
    void exportAs(const char* format);
    analysis::MissionGraph focusGraph() const;

    const Workspace& m_workspace;
    Prompter& m_prompter;
    MapView* m_view;
    QGraphicsScene* m_scene;
    QLineEdit* m_find = nullptr;
    QAction* m_focus = nullptr;
    QLabel* m_note = nullptr;
    QTimer m_delay;
    bool m_widened = false;
    bool m_focusChosen = false; // the user set the focus mode; no default any more
    int m_selectedEvent = -1;
    QString m_selectedId;
    analysis::MissionGraph m_graph;
    analysis::MissionGraph m_shown;
    QHash<QString, QGraphicsItem*> m_nodes;
};

} // namespace tarvo::gui
