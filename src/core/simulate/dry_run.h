#pragma once

#include "simulate/dry_run_model.h"
#include "simulate/scenario.h"
#include "simulate/transcript.h"

#include <QMap>
#include <functional>
#include <memory>
#include <queue>

namespace tarvo::simulate {

// What a variable holds during a run, and who changed it last.
struct VariableState
{
    ScriptValue value;
    int changedAt = -1; // tenths; -1 while it holds its starting value
    int changedBy = -1; // the event
};

// An event's trigger during a run.
struct ArmState
{
    enum class Kind { Off, Every, Wait, Callback, Spent };

    Kind kind = Kind::Off;
    int period = 0; // every, wait: tenths
    QString keyword; // callback: "CALL_TRANSPORTER_LANDED"
    QString trigger; // as the transcript names it: "Timer 1", "every, 50"
    int armedAt = 0;
    int due = -1; // the next firing's time, -1 when none is planned
};

// What happened to one event during a run: enough to answer "why not?" and
// to draw the timeline, without keeping the whole transcript.
struct EventHistory
{
    static constexpr int kKeptTimes = 2000;

    struct Firing
    {
        int time = 0;
        int falseCondition = 0; // 0 when the actions ran
    };

    bool armedAtStart = false;
    int ran = 0;
    int skipped = 0;
    QList<Firing> firings; // the first kKeptTimes
    QMap<int, int> falseCount; // condition (from 1) -> how often it was the false one
    QMap<int, int> firstFalseAt;
    int armCount = 0;
    int firstArmAt = -1;
    int firstArmBy = -1;
    QString firstArmTrigger;
    int disarmCount = 0;
    int lastDisarmAt = -1;
    int lastDisarmBy = -1;
};

// The dry run: a clock in tenths of a second, the script's triggers and
// bodies, and the game's part from the scenario. Entries go to the sink as
// they happen (a firing's entries once the firing is over, so that "fired"
// or "skipped" comes first).
class DryRun
{
public:
    using Sink = std::function<void(const TranscriptEntry&)>;

    static constexpr int kLoopBound = 10000; // loop turns per firing
    // Firings in one run: past this the run stops ("limit"), so that a far
    // end time with a busy clock cannot keep the program from answering.
    static constexpr qint64 kFiringBound = 20'000'000;

    DryRun(std::shared_ptr<const DryRunModel> model, Scenario scenario, Sink sink);

    const DryRunModel& model() const { return *m_model; }
    // Entries are made only while somebody listens: without a sink the run
    // keeps the histories alone, which is all "why not?" needs.
    bool recording() const { return bool(m_sink); }
    void stopRecording() { m_sink = {}; }
    const Scenario& scenario() const { return m_scenario; }

    // Runs every moment up to `time` (tenths, included) and stops there, or
    // at the scenario's end time with a "stop" entry.
    void runTo(int time);
    void runToEnd() { runTo(m_scenario.until); }
    // Runs the next moment at which something fires; false when the run is over.
    bool step();
    // Fires a callback at the current time, as the game would.
    void fireCallback(const QString& keyword);

    bool finished() const { return m_finished; }
    // How the run ended: "win", "lose", "time", "loop" or "limit"; empty while
    // it goes on.
    const QString& ending() const { return m_ending; }
    // The last moment run, -1 before the first.
    int time() const { return m_now - 1; }
    std::optional<int> nextMoment() const;

    // A variable by its code ("flag[2]"); a default state for one the run
    // never met.
    VariableState variable(const QString& code) const;
    const std::vector<ArmState>& arms() const { return m_arms; }
    const std::vector<EventHistory>& histories() const { return m_histories; }
    // Each event's trigger at the start, as the transcript names triggers.
    const QStringList& startTriggers() const { return m_startTriggers; }

private:
    friend class BodyRunner;

    void runMoment(int time);
    void runEvent(int event, int time);
    void finish(TranscriptEntry entry);

    // Arming, as the script's setEventTrigger does it.
    ArmState resolveTrigger(const std::vector<script::Expression>& trigger, int time) const;
    void setArm(int event, ArmState arm);
    void arm(int event, const QString& triggerCode, int by);

    void setVariable(int slot, const ScriptValue& given, int by);
    int slotFor(const QString& code);
    QString slotCode(int slot) const;
    const Scenario::Answer* answerFor(const Node& node, const QString& evaluated) const;
    bool needsArguments(const Node& node) const;
    void emitEntry(TranscriptEntry entry);
    void setMissionTime(qint64 tenths);

    std::shared_ptr<const DryRunModel> m_model;
    Scenario m_scenario;
    QMap<int, QStringList> m_scenarioFirings;
    Sink m_sink;

    int m_now = 0; // the next moment to run
    bool m_finished = false;
    QString m_ending;
    int m_missionEnd = -1;
    std::vector<VariableState> m_variables; // by slot: the model's, then those met running
    QHash<QString, int> m_extraSlots;
    QStringList m_extraCodes;
    std::vector<QList<const Scenario::Answer*>> m_siteAnswers; // by call site
    std::vector<bool> m_siteArguments; // by call site: an answer for given arguments
    QHash<QString, ArmState> m_armedBy; // trigger code -> its trigger armed at 0
    std::vector<ArmState> m_arms;
    std::vector<EventHistory> m_histories;
    QStringList m_startTriggers;
    // Planned firings, earliest (then lowest event) first. A change of an
    // event's trigger leaves its old entry behind; it is skipped when its
    // time no longer matches the event's plan.
    struct Due
    {
        int time;
        int event;
        friend bool operator>(const Due& a, const Due& b)
        {
            return a.time != b.time ? a.time > b.time : a.event > b.event;
        }
    };
    mutable std::priority_queue<Due, std::vector<Due>, std::greater<Due>> m_due;
    // The first planned firing that still holds, or nullptr.
    const Due* nextDue() const;

    // The entries of the firing under way; the first is its "fired".
    std::vector<TranscriptEntry> m_firing;
    bool m_inFiring = false;
    qint64 m_firings = 0;
};

} // namespace tarvo::simulate
