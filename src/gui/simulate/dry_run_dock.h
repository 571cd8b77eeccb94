#pragma once

#include "simulate/dry_run.h"

#include <QDockWidget>
#include <QElapsedTimer>
#include <QTimer>
#include <memory>

class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QSortFilterProxyModel;
class QTableWidget;
class QTabWidget;

namespace tarvo {
class Prompter;
struct Workspace;
} // namespace tarvo

namespace tarvo::gui {

class TimelineView;
class TranscriptModel;

// "Dry Run": plays the mission's script without the game. Run to a time,
// step to the next firing, fire a callback now, reset; the transcript
// (filterable, a double click goes to the event), a watch table of the
// variables, a timeline strip, and the scenario that answers for the game,
// kept beside the project as NAME.scenario. The dock never changes the
// project; an edit of the project resets the run.
class DryRunDock : public QDockWidget
{
    Q_OBJECT
public:
    DryRunDock(const Workspace& workspace, Prompter& prompter, QWidget* parent = nullptr);
    ~DryRunDock() override;

    // Runs to `tenths` (or the scenario's end) in slices between repaints.
    void runTo(int tenths);
    void step();
    void fire(const QString& keyword);
    void reset();
    // Tests: completes the slices still to run, now.
    void finishPending();
    bool running() const { return m_slices.isActive(); }

    // "Why not?" for `event` in plain words: from the run so far, or from a
    // whole run when there is none yet.
    QStringList whyNot(int event);

    // Loads NAME.scenario beside the project when there is one.
    void loadScenarioBesideProject();

    const simulate::DryRun* run() const { return m_run.get(); }
    TranscriptModel* transcript() const { return m_transcript; }
    TimelineView* timeline() const { return m_timeline; }

Q_SIGNALS:
    void eventChosen(int event);

public Q_SLOTS:
    // The project changed: the run starts again (a line says so).
    void projectChanged();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* buildControls();
    QWidget* buildScenarioPage();
    // Builds the model and the run when there is none; false (with the
    // reasons shown) when the project's script or the scenario has errors.
    bool ensureRun();
    void prepareModel();
    void runSlice();
    void flush();
    void updateWatch();
    void updateStatus();
    void loadScenario();
    void saveScenario();
    QString scenarioPath() const;

    const Workspace& m_workspace;
    Prompter& m_prompter;
    std::shared_ptr<const simulate::DryRunModel> m_model;
    std::unique_ptr<simulate::DryRun> m_run;
    std::vector<simulate::TranscriptEntry> m_pending;
    bool m_modelStale = true;
    QString m_note; // a line about the last reset or error
    int m_target = 0;
    QTimer m_slices;
    QTimer m_rebuild;

    QDoubleSpinBox* m_until = nullptr;
    QPushButton* m_runButton = nullptr;
    QPushButton* m_stepButton = nullptr;
    QPushButton* m_resetButton = nullptr;
    QComboBox* m_callbacks = nullptr;
    QPushButton* m_fireButton = nullptr;
    QLabel* m_status = nullptr;
    QTabWidget* m_tabs = nullptr;
    TranscriptModel* m_transcript = nullptr;
    QSortFilterProxyModel* m_filtered = nullptr;
    QListView* m_transcriptView = nullptr;
    QTableWidget* m_watch = nullptr;
    TimelineView* m_timeline = nullptr;
    QPlainTextEdit* m_scenario = nullptr;
};

} // namespace tarvo::gui
