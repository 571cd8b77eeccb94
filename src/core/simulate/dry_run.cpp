#include "simulate/dry_run.h"

#include "simulate/body_runner.h"

namespace tarvo::simulate {

namespace {

const QString kGameInit = QStringLiteral("CALL_GAMEINIT");
const QString kMissionTime = QStringLiteral("CALL_MISSION_TIME");

QString triggerText(const std::vector<script::Expression>& trigger)
{
    QStringList parts;
    for (const script::Expression& part : trigger)
        parts << script::expressionText(part);
    return parts.join(QStringLiteral(", "));
}

} // namespace

DryRun::DryRun(std::shared_ptr<const DryRunModel> model, Scenario scenario, Sink sink)
    : m_model(std::move(model))
    , m_scenario(std::move(scenario))
    , m_sink(std::move(sink))
{
    for (const Scenario::Firing& firing : std::as_const(m_scenario.firings))
        m_scenarioFirings[firing.time] << firing.keyword;
    m_variables.reserve(m_model->slotStart.size());
    for (const ScriptValue& start : m_model->slotStart)
        m_variables.push_back(VariableState {start});
    // Each call site asks only the answers given for its name.
    m_siteAnswers.resize(size_t(m_model->slots.callSites));
    QHash<QString, QList<const Scenario::Answer*>> byName;
    for (const Scenario::Answer& answer : std::as_const(m_scenario.answers))
        byName[answer.name] << &answer;
    m_siteArguments.resize(size_t(m_model->slots.callSites));
    for (int site = 0; site < m_model->slots.callSites; ++site) {
        m_siteAnswers[size_t(site)] = byName.value(m_model->slots.siteNames.at(site));
        for (const Scenario::Answer* answer : std::as_const(m_siteAnswers[size_t(site)]))
            if (!answer->anyArguments)
                m_siteArguments[size_t(site)] = true;
    }
    const size_t count = m_model->events.size();
    m_arms.resize(count);
    m_histories.resize(count);
    for (size_t e = 0; e < count; ++e) {
        const EventProgram& program = m_model->events[e];
        if (!program.body) {
            m_startTriggers << QString();
            continue;
        }
        setArm(int(e), resolveTrigger(program.body->trigger, 0));
        m_startTriggers << m_arms[e].trigger;
        m_histories[e].armedAtStart = m_arms[e].kind != ArmState::Kind::Off;
    }
}

// The trigger of an event's header or of a setEventTrigger: a clock
// ("every, 50"), a timer standing for its own trigger, "inactive", or a
// callback the game (here: the scenario) raises.
ArmState DryRun::resolveTrigger(const std::vector<script::Expression>& trigger, int time) const
{
    ArmState arm;
    arm.armedAt = time;
    arm.trigger = triggerText(trigger);
    if (trigger.empty())
        return arm;
    const QString& keyword = trigger.front().text;
    const auto timer = m_model->timerByCode.constFind(keyword);
    if (timer != m_model->timerByCode.cend()) {
        const TimerProgram& program = m_model->timers[size_t(*timer)];
        // A timer names a trigger; it never names another timer.
        if (!program.trigger.empty()
            && !m_model->timerByCode.contains(program.trigger.front().text)) {
            ArmState viaTimer = resolveTrigger(program.trigger, time);
            viaTimer.trigger = program.name.isEmpty() ? program.code : program.name;
            return viaTimer;
        }
        return arm;
    }
    if (keyword == QLatin1String("inactive"))
        return arm;
    if (keyword == QLatin1String("every") || keyword == QLatin1String("wait")) {
        // A time of 0 (or none) counts as the clock's step, one tenth.
        const qint64 period
            = trigger.size() > 1 && trigger[1].kind == script::Expression::Kind::Number
            ? trigger[1].text.toLongLong()
            : 0;
        arm.kind = keyword == QLatin1String("every") ? ArmState::Kind::Every : ArmState::Kind::Wait;
        arm.period = int(qBound<qint64>(1, period, qint64(1) << 30));
        arm.due = time + arm.period;
        return arm;
    }
    arm.kind = ArmState::Kind::Callback;
    arm.keyword = keyword;
    return arm;
}

void DryRun::setArm(int event, ArmState arm)
{
    ArmState& current = m_arms[size_t(event)];
    current = std::move(arm);
    if (current.due >= 0)
        m_due.push({current.due, event});
}

void DryRun::arm(int event, const QString& triggerCode, int by)
{
    if (event < 0 || size_t(event) >= m_arms.size() || !m_model->events[size_t(event)].body)
        return; // the game ignores events the script does not hold
    const int time = m_now;
    TranscriptEntry entry;
    entry.time = time;
    entry.event = event;
    entry.by = by;
    EventHistory& history = m_histories[size_t(event)];
    if (triggerCode == QLatin1String("inactive")) {
        setArm(event, ArmState {ArmState::Kind::Off, 0, {}, triggerCode, time, -1});
        entry.what = TranscriptEntry::What::Disarmed;
        entry.text = triggerCode;
        ++history.disarmCount;
        history.lastDisarmAt = time;
        history.lastDisarmBy = by;
    } else {
        auto known = m_armedBy.find(triggerCode);
        if (known == m_armedBy.end()) {
            script::Expression name;
            name.text = triggerCode;
            known = m_armedBy.insert(triggerCode, resolveTrigger({name}, 0));
        }
        ArmState armed = *known;
        armed.armedAt = time;
        if (armed.due >= 0)
            armed.due = time + armed.period;
        setArm(event, armed);
        entry.what = TranscriptEntry::What::Armed;
        entry.text = m_arms[size_t(event)].trigger;
        if (history.armCount++ == 0) {
            history.firstArmAt = time;
            history.firstArmBy = by;
            history.firstArmTrigger = entry.text;
        }
    }
    emitEntry(entry);
}

VariableState DryRun::variable(const QString& code) const
{
    int slot = m_model->slots.slots.value(code, -1);
    if (slot < 0)
        slot = m_extraSlots.value(code, -1);
    return slot >= 0 ? m_variables[size_t(slot)] : VariableState {};
}

int DryRun::slotFor(const QString& code)
{
    const auto known = m_model->slots.slots.constFind(code);
    if (known != m_model->slots.slots.cend())
        return *known;
    const auto extra = m_extraSlots.constFind(code);
    if (extra != m_extraSlots.cend())
        return *extra;
    const int slot = int(m_variables.size());
    m_variables.push_back({});
    m_extraSlots.insert(code, slot);
    m_extraCodes << code;
    return slot;
}

QString DryRun::slotCode(int slot) const
{
    const qsizetype known = m_model->slots.codes.size();
    return slot < known ? m_model->slots.codes.at(slot) : m_extraCodes.value(slot - known);
}

bool DryRun::needsArguments(const Node& node) const
{
    return node.site >= 0 && size_t(node.site) < m_siteArguments.size()
        && m_siteArguments[size_t(node.site)];
}

const Scenario::Answer* DryRun::answerFor(const Node& node, const QString& evaluated) const
{
    if (node.site < 0 || size_t(node.site) >= m_siteAnswers.size())
        return nullptr;
    const Scenario::Answer* forAny = nullptr;
    const Scenario::Answer* forThese = nullptr;
    for (const Scenario::Answer* answer : m_siteAnswers[size_t(node.site)]) {
        if (answer->time > m_now)
            continue;
        if (answer->anyArguments)
            forAny = answer;
        else if (answer->arguments == node.written || answer->arguments == evaluated)
            forThese = answer;
    }
    return forThese ? forThese : forAny;
}

void DryRun::setVariable(int slot, const ScriptValue& given, int by)
{
    VariableState& state = m_variables[size_t(slot)];
    const ScriptValue old = state.value;
    // A number or flag given the game's "no answer" holds 0 or FALSE.
    ScriptValue value = given;
    if (given.kind == ScriptValue::Kind::Nothing
        && (old.kind == ScriptValue::Kind::Number || old.kind == ScriptValue::Kind::Truth))
        value = {old.kind, 0, {}};
    if (old.kind == value.kind && old.number == value.number && old.text == value.text)
        return;
    state.value = value;
    state.changedAt = m_now;
    state.changedBy = by;
    if (!m_sink)
        return;
    TranscriptEntry entry;
    entry.time = m_now;
    entry.what = TranscriptEntry::What::Set;
    entry.text = slotCode(slot);
    entry.oldValue = old;
    entry.newValue = value;
    entry.by = by;
    emitEntry(std::move(entry));
}

void DryRun::setMissionTime(qint64 tenths)
{
    // A negative time stops the countdown; 0 runs out at the next tenth.
    m_missionEnd = tenths < 0 ? -1 : int(qMin<qint64>(m_now + qMax<qint64>(tenths, 1), 1 << 30));
}

void DryRun::emitEntry(TranscriptEntry entry)
{
    if (!m_sink)
        return;
    if (m_inFiring)
        m_firing.push_back(std::move(entry));
    else
        m_sink(entry);
}

void DryRun::finish(TranscriptEntry entry)
{
    m_finished = true;
    m_ending = entry.text;
    emitEntry(std::move(entry));
}

void DryRun::runEvent(int event, int time)
{
    const EventProgram& program = m_model->events[size_t(event)];
    if (!program.body)
        return;
    if (++m_firings > kFiringBound) {
        TranscriptEntry stop;
        stop.time = time;
        stop.what = TranscriptEntry::What::Stop;
        stop.text = QStringLiteral("limit");
        finish(stop);
        return;
    }
    m_firing.clear();
    if (m_sink) {
        TranscriptEntry firing;
        firing.time = time;
        firing.event = event;
        m_firing.push_back(firing);
    }
    m_inFiring = true;
    BodyRunner runner(*this, event, time);
    int falseCondition = 0;
    try {
        falseCondition = runner.runEvent(program);
    } catch (const BodyRunner::Halt&) {
    }
    m_inFiring = false;
    if (!m_firing.empty()) {
        m_firing.front().what
            = falseCondition ? TranscriptEntry::What::Skipped : TranscriptEntry::What::Fired;
        m_firing.front().condition = falseCondition;
    }

    EventHistory& history = m_histories[size_t(event)];
    if (falseCondition) {
        ++history.skipped;
        if (history.falseCount[falseCondition]++ == 0)
            history.firstFalseAt[falseCondition] = time;
    } else {
        ++history.ran;
    }
    if (history.firings.size() < EventHistory::kKeptTimes)
        history.firings.append({time, falseCondition});
    if (m_sink)
        for (const TranscriptEntry& entry : m_firing)
            m_sink(entry);
    m_firing.clear();
}

void DryRun::runMoment(int time)
{
    m_now = time;
    if (time == 0) {
        // The start comes before anything else, once.
        for (size_t e = 0; e < m_arms.size() && !m_finished; ++e)
            if (m_arms[e].kind == ArmState::Kind::Callback && m_arms[e].keyword == kGameInit)
                runEvent(int(e), 0);
    }
    QStringList callbacks = m_scenarioFirings.value(time);
    if (m_missionEnd == time) {
        callbacks << kMissionTime;
        m_missionEnd = -1;
    }
    for (const QString& keyword : std::as_const(callbacks))
        for (size_t e = 0; e < m_arms.size(); ++e)
            if (m_arms[e].kind == ArmState::Kind::Callback && m_arms[e].keyword == keyword
                && m_arms[e].due < 0) {
                m_arms[e].due = time;
                m_due.push({time, int(e)});
            }
    for (const Due* due = nextDue(); !m_finished && due && due->time <= time; due = nextDue()) {
        const int event = due->event;
        m_due.pop();
        ArmState& arm = m_arms[size_t(event)];
        arm.due = -1;
        // Planned before the body runs, so that the body's own arming wins.
        if (arm.kind == ArmState::Kind::Every) {
            arm.due = time + arm.period;
            m_due.push({arm.due, event});
        } else if (arm.kind == ArmState::Kind::Wait) {
            arm.kind = ArmState::Kind::Spent;
        }
        runEvent(event, time);
    }
}

const DryRun::Due* DryRun::nextDue() const
{
    while (!m_due.empty() && m_arms[size_t(m_due.top().event)].due != m_due.top().time)
        m_due.pop();
    return m_due.empty() ? nullptr : &m_due.top();
}

std::optional<int> DryRun::nextMoment() const
{
    if (m_finished)
        return std::nullopt;
    if (m_now == 0)
        return 0;
    std::optional<int> next;
    const auto consider = [&](int time) {
        if (time >= m_now && (!next || time < *next))
            next = time;
    };
    if (const Due* due = nextDue())
        consider(due->time);
    const auto firing = m_scenarioFirings.lowerBound(m_now);
    if (firing != m_scenarioFirings.cend())
        consider(firing.key());
    if (m_missionEnd >= 0)
        consider(m_missionEnd);
    if (next && *next > m_scenario.until)
        return std::nullopt;
    return next;
}

void DryRun::runTo(int time)
{
    const int limit = qMin(time, m_scenario.until);
    while (!m_finished) {
        const std::optional<int> next = nextMoment();
        if (!next || *next > limit)
            break;
        runMoment(*next);
        m_now = *next + 1;
    }
    if (m_finished)
        return;
    m_now = qMax(m_now, limit + 1);
    if (time >= m_scenario.until) {
        TranscriptEntry stop;
        stop.time = m_scenario.until;
        stop.what = TranscriptEntry::What::Stop;
        stop.text = QStringLiteral("time");
        finish(stop);
    }
}

bool DryRun::step()
{
    const std::optional<int> next = nextMoment();
    if (!next) {
        runTo(m_scenario.until);
        return false;
    }
    runMoment(*next);
    m_now = *next + 1;
    return !m_finished;
}

void DryRun::fireCallback(const QString& keyword)
{
    if (m_finished)
        return;
    if (m_now == 0)
        runTo(0);
    const int time = m_now - 1;
    for (size_t e = 0; e < m_arms.size() && !m_finished; ++e)
        if (m_arms[e].kind == ArmState::Kind::Callback && m_arms[e].keyword == keyword) {
            const int saved = m_now;
            m_now = time;
            runEvent(int(e), time);
            m_now = saved;
        }
}

} // namespace tarvo::simulate
