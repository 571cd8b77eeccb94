#include "transfer/event_paste.h"

#include "catalogue/project_lists.h"
#include "catalogue/project_places.h"
#include "catalogue/reference_markers.h"
#include "base/checked.h"
#include "base/file_error.h"
#include "resources/resource_items.h"
#include "ui/quiet_prompter.h"
#include "variables/variable_operations.h"

#include <QHash>
#include <QSet>

namespace tarvo {

namespace {

// Answers the name box of the variables' own rules with the copied name.
class NamingPrompter : public QuietPrompter
{
public:
    explicit NamingPrompter(const QString& name)
        : m_name(name)
    {
    }
    QString input(const QString&, const QString&, const QString&) override { return m_name; }

private:
    QString m_name;
};

QString quoted(const QString& text)
{
    return u'\'' + text + u'\'';
}

int kindIndex(const Catalogue& catalogue, const EventClip::Step& step)
{
    for (int i = 0; i < catalogue.size(); ++i) {
        if (catalogue.at(i).CallName == step.callName && catalogue.at(i).Title == step.title)
            return i;
    }
    return -1;
}

template <typename Records>
int positionOf(const Records& records, qsizetype count,
    const std::function<bool(const typename Records::value_type&)>& wanted)
{
    for (int i = 0; i < heldCount(count, records); ++i) {
        if (wanted(records.at(i)))
            return i;
    }
    return -1;
}

class Paste
{
public:
    Paste(Workspace& workspace, Project& project, const EventClip& clip)
        : m_workspace(workspace)
        , m_project(project)
        , m_clip(clip)
    {
    }

    PasteReport run(int after)
    {
        checkKinds();
        for (const EventClip::Item& item : m_clip.items)
            matchItem(item);
        for (const MessageRecord& message : m_clip.messages)
            matchMessage(message);
        for (const SoundRecord& sound : m_clip.sounds)
            matchSound(sound);
        for (const TimerRecord& timer : m_clip.timers)
            matchTimer(timer);
        insertEvents(after);
        refreshSoundRow(m_project);
        refreshMessageRow(m_project);
        refreshTimerRow(m_project);
        refreshEventRow(m_project);
        return m_report;
    }

private:
    // Nothing changes before every kind is known.
    void checkKinds() const
    {
        QStringList missing;
        const auto look = [&](const Catalogue& catalogue, const EventClip::Step& step,
                              const char* kind) {
            const QString name = QStringLiteral("%1 kind %2 (%3)")
                                     .arg(QLatin1String(kind), quoted(step.title), step.callName);
            if (kindIndex(catalogue, step) < 0 && !missing.contains(name))
                missing << name;
        };
        for (const EventClip::Event& event : m_clip.events) {
            for (const auto& step : event.conditions)
                look(m_workspace.conditionCatalogue, step, "condition");
            for (const auto& step : event.actions)
                look(m_workspace.actionCatalogue, step, "action");
        }
        if (!missing.isEmpty())
            throw DataError(QStringLiteral("The catalogue of this project has no %1, which the "
                                           "copied events use. Nothing was pasted.")
                                .arg(missing.join(QStringLiteral(", "))));
    }

    QString described(int row, const QString& name) const
    {
        return itemKind(m_project.tables, row) + u' ' + quoted(name);
    }

    void map(int row, int from, int to) { m_changes[row][from] = to; }

    void matchItem(const EventClip::Item& item)
    {
        const QString what = described(item.row, item.name);
        if (item.name.isEmpty()) {
            // The copied reference named nothing there ("?"); whatever holds
            // its ID here is no better a guess than nothing.
            m_cleared.insert({item.row, item.id});
            m_report.warnings << QStringLiteral("A reference to the %1 with ID %2 named nothing "
                                                "in the copied project: nothing is chosen in "
                                                "its place.")
                                     .arg(itemKind(m_project.tables, item.row))
                                     .arg(item.id);
            return;
        }
        const ReferenceList& list = referenceRow(m_project.tables, item.row);
        const int named = int(list.Texts.mid(0, list.ItemCount).indexOf(item.name));
        if (named >= 0) {
            map(item.row, item.id, list.Ids.value(named));
            if (item.row == row::Integers || item.row == row::Groups || item.row == row::Flags
                || item.row == row::Events)
                m_report.matched << what;
            return;
        }
        if (item.row == row::Integers || item.row == row::Groups) {
            NamingPrompter naming(item.name);
            const int position = item.row == row::Integers ? NewNumber(m_project, naming)
                                                           : NewGroup(m_project, naming);
            if (position < 0)
                throw DataError(QStringLiteral("%1 cannot be made: %2 Nothing was pasted.")
                                    .arg(what, naming.reported.value(0)));
            ReferenceList& made = m_project.tables[size_t(item.row)];
            if (item.row == row::Integers && !item.value.isEmpty())
                made.RawCodes[position] = item.value;
            map(item.row, item.id, made.Ids.at(position));
            m_report.created << what + QStringLiteral(" (ID %1)").arg(made.Ids.at(position));
            return;
        }
        if (item.row == row::Events) {
            m_cleared.insert({item.row, item.id});
            m_report.warnings << QStringLiteral("%1 was not copied and this project has no event "
                                                "of that name: nothing is chosen in its place.")
                                     .arg(what);
            return;
        }
        // Lists the catalogue fills (players, flags, structures...) cannot be
        // added to here: the same ID is kept if the list has it.
        const int sameId = int(list.Ids.mid(0, list.ItemCount).lastIndexOf(qint16(item.id)));
        if (sameId >= 0) {
            m_report.warnings << QStringLiteral("This project has no %1; the ID it had names %2.")
                                     .arg(what, quoted(list.Texts.value(sameId)));
            return;
        }
        m_cleared.insert({item.row, item.id});
        m_report.warnings
            << QStringLiteral("This project has no %1: nothing is chosen in its place.").arg(what);
    }

    void matchMessage(const MessageRecord& message)
    {
        const QString what = described(row::Messages, message.text);
        const int found = positionOf(m_project.messages, m_project.messageCount,
            [&](const MessageRecord& m) { return m.text == message.text; });
        if (found >= 0) {
            map(row::Messages, message.id, m_project.messages.at(found).id);
            m_report.matched << what;
            return;
        }
        QuietPrompter quiet;
        const int made = AddMessage(m_project, quiet, message.text);
        if (made < 0) {
            m_cleared.insert({row::Messages, message.id});
            m_report.warnings << QStringLiteral("An empty message cannot be made: nothing is "
                                                "chosen in its place.");
            return;
        }
        const int id = m_project.messages.at(made).id;
        map(row::Messages, message.id, id);
        m_report.created << what + QStringLiteral(" (ID %1)").arg(id);
    }

    void matchSound(const SoundRecord& sound)
    {
        const QString what = described(row::Sounds, sound.firstText);
        const int found = positionOf(m_project.sounds, m_project.soundCount,
            [&](const SoundRecord& s) { return s.firstText == sound.firstText; });
        if (found >= 0) {
            map(row::Sounds, sound.id, m_project.sounds.at(found).id);
            m_report.matched << what;
            return;
        }
        const int made = AddSound(m_project, sound.secondText);
        if (made < 0) {
            m_cleared.insert({row::Sounds, sound.id});
            m_report.warnings
                << QStringLiteral("%1 has no file: nothing is chosen in its place.").arg(what);
            return;
        }
        SoundRecord& record = m_project.sounds[made];
        record.firstText = sound.firstText;
        record.thirdText = sound.thirdText;
        map(row::Sounds, sound.id, record.id);
        m_report.created << what + QStringLiteral(" (ID %1)").arg(record.id);
    }

    void matchTimer(const TimerRecord& timer)
    {
        const QString what = described(row::Timers, timer.name);
        const int found = positionOf(m_project.timers, m_project.timerCount,
            [&](const TimerRecord& t) { return t.name == timer.name; });
        if (found >= 0) {
            map(row::Timers, timer.id, m_project.timers.at(found).id);
            m_report.matched << what;
            return;
        }
        refreshTimerRow(m_project);
        TimerRecord made = timer;
        made.id = NextVariableID(m_project, row::Timers);
        // The timers list is what the rules left it; a new timer adds its line.
        m_project.timers.resize(m_project.timerCount);
        m_project.timers.append(made);
        m_project.timerListLines.append(made.name);
        m_project.timerCount = raisedCount(m_project.timerCount, "timers");
        refreshTimerRow(m_project);
        map(row::Timers, timer.id, made.id);
        m_newTimers << m_project.timerCount - 1;
        m_report.created << what + QStringLiteral(" (ID %1)").arg(made.id);
        if (m_project.timerCount == 2)
            m_report.warnings << QStringLiteral(
                "This project now has more than one timer, which its file cannot keep as it "
                "is written: Save asks what to do.");
    }

    QString rewritten(const QString& text) const
    {
        return replaceReferences(text, [&](int row, int id) -> std::optional<QString> {
            if (m_cleared.contains({row, id}))
                return QStringLiteral("-1");
            const auto changes = m_changes.constFind(row);
            if (changes == m_changes.constEnd() || !changes->contains(id))
                return std::nullopt;
            return encodedReference(row, QString::number(changes->value(id)));
        });
    }

    template <typename Record> void rewriteTrigger(Record& record) const
    {
        for (QString& text : record.triggerArgTexts)
            text = rewritten(text);
    }

    template <typename Record>
    Record step(const Catalogue& catalogue, const EventClip::Step& from, const QString& eventName)
    {
        const int kind = kindIndex(catalogue, from);
        Record record;
        static_cast<CatalogueEntry&>(record) = catalogue.at(kind);
        record.Kind = qint16(kind);
        const int count = int(heldCount(record.ArgCount, record.Args));
        for (int k = 0; k < count && k < from.values.size(); ++k)
            record.Args[k].Value = rewritten(from.values.at(k));
        if (count != from.values.size())
            m_report.warnings << QStringLiteral("In event %1, %2 takes %3 argument(s) here and "
                                                "%4 were copied.")
                                     .arg(quoted(eventName), quoted(from.title))
                                     .arg(count)
                                     .arg(from.values.size());
        record.inactive = from.inactive;
        record.comment = from.comment;
        return record;
    }

    void insertEvents(int after)
    {
        // Timers made for the paste point at this project's items too.
        for (int t : m_newTimers)
            rewriteTrigger(m_project.timers[t]);
        refreshEventRow(m_project);
        const qint16 firstId = NextVariableID(m_project, row::Events);
        for (qsizetype e = 0; e < m_clip.events.size(); ++e)
            map(row::Events, m_clip.events.at(e).trigger.id, firstId + int(e));

        QList<EventRecord> made;
        for (qsizetype e = 0; e < m_clip.events.size(); ++e) {
            const EventClip::Event& from = m_clip.events.at(e);
            EventRecord event = from.trigger;
            event.id = qint16(firstId + e);
            rewriteTrigger(event);
            for (const auto& condition : from.conditions) {
                ConditionRecord record
                    = step<ConditionRecord>(m_workspace.conditionCatalogue, condition, event.name);
                record.operatorIndex = condition.operatorIndex;
                record.comparisonValue = rewritten(condition.comparisonValue);
                record.negation = condition.negation;
                event.conditions << record;
            }
            for (const auto& action : from.actions) {
                ActionRecord record
                    = step<ActionRecord>(m_workspace.actionCatalogue, action, event.name);
                record.text = rewritten(action.text);
                event.actions << record;
            }
            event.conditionCount = qint16(event.conditions.size());
            event.actionCount = qint16(event.actions.size());
            made << event;
        }
        const int count = m_project.eventCount;
        const int at = after < 0 || after >= count ? count : after + 1;
        m_project.events.resize(count);
        for (qsizetype e = 0; e < made.size(); ++e) {
            m_project.events.insert(at + e, made.at(e));
            m_project.eventCount = raisedCount(m_project.eventCount, "events");
        }
        m_report.first = at;
        m_report.count = int(made.size());
    }

    Workspace& m_workspace;
    Project& m_project;
    const EventClip& m_clip;
    QHash<int, QHash<int, int>> m_changes;
    QSet<QPair<int, int>> m_cleared;
    QList<int> m_newTimers;
    PasteReport m_report;
};

} // namespace

PasteReport pasteEvents(Workspace& workspace, const EventClip& clip, int after)
{
    // Built on a copy, so that a refusal halfway leaves the project as it was.
    Project project = workspace.project;
    PasteReport report = Paste(workspace, project, clip).run(after);
    workspace.project = project;
    return report;
}

QStringList pasteReportLines(const PasteReport& report)
{
    QStringList lines;
    for (const QString& item : report.matched)
        lines << QStringLiteral("Matched: ") + item;
    for (const QString& item : report.created)
        lines << QStringLiteral("Created: ") + item;
    for (const QString& warning : report.warnings)
        lines << QStringLiteral("Warning: ") + warning;
    return lines;
}

} // namespace tarvo
