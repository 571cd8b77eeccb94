#include "versions/project_diff.h"

#include "base/checked.h"
#include "versions/keyed_order.h"
#include "versions/record_words.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarvo {

QString RecordChange::line() const
{
    return record + QStringLiteral(": ") + change + (detail.isEmpty() ? QString() : u' ' + detail);
}

QByteArray changesJson(const QList<RecordChange>& changes)
{
    QJsonArray array;
    for (const RecordChange& change : changes)
        array.append(QJsonObject {{QStringLiteral("record"), change.record},
            {QStringLiteral("change"), change.change}, {QStringLiteral("detail"), change.detail},
            {QStringLiteral("line"), change.line()}});
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}

namespace {

using Place = ProjectPlace;
using Part = ProjectPlace::Part;
using Owner = ProjectPlace::Owner;

QString fromTo(const QString& older, const QString& newer)
{
    return QStringLiteral("from %1 to %2").arg(quotedWords(older), quotedWords(newer));
}

template <typename List> QList<int> idsOf(const List& records, qsizetype count)
{
    QList<int> ids;
    for (qsizetype i = 0; i < heldCount(count, records); ++i)
        ids.append(records.at(i).id);
    return ids;
}

class Differ
{
public:
    Differ(const Project& older, const Project& newer)
        : m_old(older)
        , m_new(newer)
        , m_oldWords(older)
        , m_newWords(newer)
    {
    }

    QList<RecordChange> run()
    {
        const QString project = QStringLiteral("project ") + quotedWords(m_old.name);
        if (m_old.name != m_new.name)
            add(project, "renamed", QStringLiteral("to ") + quotedWords(m_new.name), {});
        if (m_old.scriptComment != m_new.scriptComment)
            add(QStringLiteral("script comment"), "changed", {}, {});
        variables();
        sounds();
        messages();
        timers();
        events();
        return std::move(m_changes);
    }

private:
    void add(const QString& record, const char* change, const QString& detail, const Place& place)
    {
        m_changes.append({record, QString::fromLatin1(change), detail, place});
    }

    // Walks two keyed lists: removed records first, then the newer list in
    // order with added, moved and changed ones.
    template <typename Name, typename Compare>
    void keyed(const QList<int>& oldIds, const QList<int>& newIds, Name name, Compare compare,
        Owner owner, int row = -1)
    {
        const QList<RecordKey> oldKeys = recordKeys(oldIds);
        const QList<RecordKey> newKeys = recordKeys(newIds);
        const QHash<RecordKey, int> oldAt = keyPositions(oldKeys);
        const QHash<RecordKey, int> newAt = keyPositions(newKeys);
        for (int i = 0; i < oldKeys.size(); ++i) {
            if (!newAt.contains(oldKeys.at(i)))
                add(name(m_oldWords, i), "removed", {}, {});
        }
        const QSet<RecordKey> moved = movedKeys(oldKeys, newKeys);
        for (int i = 0; i < newKeys.size(); ++i) {
            const Place place {owner, i, row};
            const auto it = oldAt.constFind(newKeys.at(i));
            if (it == oldAt.constEnd()) {
                add(name(m_newWords, i), "added", {}, place);
                continue;
            }
            if (moved.contains(newKeys.at(i)))
                add(name(m_oldWords, *it), "moved", {}, place);
            compare(*it, i, name(m_oldWords, *it), place);
        }
    }

    void variables()
    {
        for (int t = 0; t < kReferenceRowCount; ++t) {
            const ReferenceList& older = m_old.tables[size_t(t)];
            const ReferenceList& newer = m_new.tables[size_t(t)];
            if (!older.Saved && !newer.Saved)
                continue;
            const QString rowName
                = QStringLiteral("list row %1 %2")
                      .arg(t)
                      .arg(quotedWords(older.Saved ? older.ListName : newer.ListName));
            if (older.Saved != newer.Saved) {
                add(rowName, newer.Saved ? "added" : "removed", {}, {});
                continue;
            }
            if (older.ListName != newer.ListName)
                add(rowName, "renamed", QStringLiteral("to ") + quotedWords(newer.ListName), {});
            if (older.UsesIds != newer.UsesIds)
                add(rowName, newer.UsesIds ? "IDs switched on" : "IDs switched off", {}, {});
            const auto ids = [](const ReferenceList& list) {
                QList<int> result;
                for (int j = 0; j < list.ItemCount; ++j)
                    result.append(list.Ids.value(j));
                return result;
            };
            const auto name = [t](const RecordWords& words, int j) {
                const ReferenceList& list = words.project().tables[size_t(t)];
                return words.variableName(t, list.Texts.value(j), list.Ids.value(j));
            };
            keyed(
                ids(older), ids(newer), name,
                [&](int o, int n, const QString& record, const Place& place) {
                    field(
                        record, "renamed", older.Texts.value(o), newer.Texts.value(n), place, true);
                    field(record, "script name", older.Codes.value(o), newer.Codes.value(n), place);
                    field(record, "value", older.RawCodes.value(o), newer.RawCodes.value(n), place);
                },
                Owner::Variable, t);
        }
    }

    // A changed text field: "renamed to 'b'" or "value changed from 'a' to 'b'".
    void field(const QString& record, const char* change, const QString& older,
        const QString& newer, const Place& place, bool renamed = false)
    {
        if (older == newer)
            return;
        if (renamed)
            add(record, change, QStringLiteral("to ") + quotedWords(newer), place);
        else
            m_changes.append({record, QString::fromLatin1(change),
                QStringLiteral("changed ") + fromTo(older, newer), place});
    }

    void sounds()
    {
        keyed(
            idsOf(m_old.sounds, m_old.soundCount), idsOf(m_new.sounds, m_new.soundCount),
            [](const RecordWords& words, int i) {
                return RecordWords::soundName(words.project().sounds.at(i));
            },
            [&](int o, int n, const QString& record, const Place& place) {
                const SoundRecord& older = m_old.sounds.at(o);
                const SoundRecord& newer = m_new.sounds.at(n);
                field(record, "renamed", older.firstText, newer.firstText, place, true);
                field(record, "file", older.secondText, newer.secondText, place);
                field(record, "third name", older.thirdText, newer.thirdText, place);
            },
            Owner::Sound);
    }

    void messages()
    {
        keyed(
            idsOf(m_old.messages, m_old.messageCount), idsOf(m_new.messages, m_new.messageCount),
            [](const RecordWords& words, int i) {
                return RecordWords::messageName(words.project().messages.at(i));
            },
            [&](int o, int n, const QString& record, const Place& place) {
                const QString& newer = m_new.messages.at(n).text;
                if (m_old.messages.at(o).text != newer)
                    add(record, "text", QStringLiteral("changed to ") + quotedWords(newer), place);
            },
            Owner::Message);
    }

    template <typename Record>
    void triggerFields(
        const QString& record, const Record& older, const Record& newer, const Place& place)
    {
        if (older.name != newer.name)
            add(record, "renamed", QStringLiteral("to ") + quotedWords(newer.name), place);
        if (older.triggerKind != newer.triggerKind || older.triggerArgCount != newer.triggerArgCount
            || older.triggerArgTexts != newer.triggerArgTexts
            || older.triggerArgTypes != newer.triggerArgTypes)
            add(record, "trigger",
                QStringLiteral("changed ")
                    + fromTo(m_oldWords.trigger(older), m_newWords.trigger(newer)),
                {place.owner, place.index, -1, Part::Trigger, -1, 0});
        if (older.comment != newer.comment)
            add(record, "comment", QStringLiteral("changed"),
                {place.owner, place.index, -1, Part::Comment});
    }

    void timers()
    {
        keyed(
            idsOf(m_old.timers, m_old.timerCount), idsOf(m_new.timers, m_new.timerCount),
            [](const RecordWords& words, int i) {
                return RecordWords::timerName(words.project().timers.at(i));
            },
            [&](int o, int n, const QString& record, const Place& place) {
                triggerFields(record, m_old.timers.at(o), m_new.timers.at(n), place);
            },
            Owner::Timer);
    }

    void events()
    {
        keyed(
            idsOf(m_old.events, m_old.eventCount), idsOf(m_new.events, m_new.eventCount),
            [](const RecordWords& words, int i) {
                return RecordWords::eventName(words.project().events.at(i));
            },
            [&](int o, int n, const QString& record, const Place& place) {
                const EventRecord& older = m_old.events.at(o);
                const EventRecord& newer = m_new.events.at(n);
                if (older == newer)
                    return;
                const qsizetype before = m_changes.size();
                triggerFields(record, older, newer, place);
                if (older.disabled != newer.disabled)
                    add(record, newer.disabled ? "switched off" : "switched on", {}, place);
                items(record, older.conditions, older.conditionCount, newer.conditions,
                    newer.conditionCount, "condition", Part::Condition, n);
                items(record, older.actions, older.actionCount, newer.actions, newer.actionCount,
                    "action", Part::Action, n);
                // Anything the lines above do not name (a claimed count).
                if (m_changes.size() == before)
                    add(record, "changed", {}, place);
            },
            Owner::Event);
    }

    // Conditions or actions of one event: matched by their order, the longest
    // run of equal ones kept, an equal one elsewhere is moved, and the rest
    // paired by position between the kept ones.
    template <typename Item>
    void items(const QString& event, const QList<Item>& olderList, qint16 olderCount,
        const QList<Item>& newerList, qint16 newerCount, const char* what, Part part, int eventAt)
    {
        const QList<Item> older = olderList.mid(0, heldCount(olderCount, olderList));
        const QList<Item> newer = newerList.mid(0, heldCount(newerCount, newerList));
        if (older == newer)
            return;
        const qsizetype n = older.size();
        const qsizetype m = newer.size();
        // Longest common run by the usual table; event lists are short.
        QList<int> table((n + 1) * (m + 1), 0);
        const auto cell = [&](qsizetype i, qsizetype j) -> int& { return table[i * (m + 1) + j]; };
        for (qsizetype i = n - 1; i >= 0; --i)
            for (qsizetype j = m - 1; j >= 0; --j)
                cell(i, j) = older.at(i) == newer.at(j) ? cell(i + 1, j + 1) + 1
                                                        : std::max(cell(i + 1, j), cell(i, j + 1));
        QList<int> oldMatch(n, -1);
        QList<int> newMatch(m, -1);
        QList<std::pair<qsizetype, qsizetype>> kept;
        for (qsizetype i = 0, j = 0; i < n && j < m;) {
            if (older.at(i) == newer.at(j)) {
                oldMatch[i] = int(j);
                newMatch[j] = int(i);
                kept.append({i++, j++});
            } else if (cell(i + 1, j) >= cell(i, j + 1)) {
                ++i;
            } else {
                ++j;
            }
        }
        const auto itemPlace = [&](qsizetype j) {
            return Place {Owner::Event, eventAt, -1, part, int(j)};
        };
        const auto itemName = [&](const Item& item, qsizetype position) {
            return event + QStringLiteral(", ") + RecordWords::itemName(what, int(position), item);
        };
        // An unmatched item equal to an unmatched one on the other side moved.
        for (qsizetype j = 0; j < m; ++j) {
            for (qsizetype i = 0; i < n && newMatch.at(j) < 0; ++i) {
                if (oldMatch.at(i) < 0 && older.at(i) == newer.at(j)) {
                    oldMatch[i] = int(j);
                    newMatch[j] = int(i);
                    add(itemName(older.at(i), i), "moved", {}, itemPlace(j));
                }
            }
        }
        // Between two kept items, the unmatched ones pair up in order as
        // changed ones; the rest were added or removed.
        kept.append({n, m});
        qsizetype i = 0;
        qsizetype j = 0;
        for (const auto& [keptOld, keptNew] : kept) {
            QList<qsizetype> gapOld;
            QList<qsizetype> gapNew;
            for (; i < keptOld; ++i) {
                if (oldMatch.at(i) < 0)
                    gapOld.append(i);
            }
            for (; j < keptNew; ++j) {
                if (newMatch.at(j) < 0)
                    gapNew.append(j);
            }
            const qsizetype paired = std::min(gapOld.size(), gapNew.size());
            for (qsizetype k = 0; k < paired; ++k)
                compareItem(itemName(older.at(gapOld.at(k)), gapOld.at(k)), older.at(gapOld.at(k)),
                    newer.at(gapNew.at(k)), itemPlace(gapNew.at(k)));
            for (qsizetype k = paired; k < gapOld.size(); ++k)
                add(itemName(older.at(gapOld.at(k)), gapOld.at(k)), "removed", {},
                    Place {Owner::Event, eventAt});
            for (qsizetype k = paired; k < gapNew.size(); ++k)
                add(itemName(newer.at(gapNew.at(k)), gapNew.at(k)), "added", {},
                    itemPlace(gapNew.at(k)));
            i = keptOld + 1;
            j = keptNew + 1;
        }
    }

    void arguments(const QString& record, const CatalogueEntry& older, const CatalogueEntry& newer,
        const Place& place)
    {
        const int count = int(
            std::max(heldCount(older.ArgCount, older.Args), heldCount(newer.ArgCount, newer.Args)));
        for (int k = 0; k < count; ++k) {
            const bool inOld = k < heldCount(older.ArgCount, older.Args);
            const bool inNew = k < heldCount(newer.ArgCount, newer.Args);
            const QString oldValue = inOld ? m_oldWords.shown(older.Args.at(k).Value) : QString();
            const QString newValue = inNew ? m_newWords.shown(newer.Args.at(k).Value) : QString();
            const bool differ = inOld != inNew
                || (inOld
                    && (older.Args.at(k).Value != newer.Args.at(k).Value
                        || older.Args.at(k).ListRef != newer.Args.at(k).ListRef));
            if (!differ)
                continue;
            const QString label = quotedWords(RecordWords::argumentLabel(inNew ? newer : older, k));
            // A kind with more or fewer arguments brings or drops some.
            const QString detail = !inOld
                ? label + QStringLiteral(" added as ") + quotedWords(newValue)
                : !inNew ? label + QStringLiteral(" dropped, was ") + quotedWords(oldValue)
                         : label + QStringLiteral(" changed ") + fromTo(oldValue, newValue);
            add(record, "argument", detail,
                {place.owner, place.index, -1, place.part, place.item, k});
        }
    }

    template <typename Item>
    void commonFields(
        const QString& record, const Item& older, const Item& newer, const Place& place)
    {
        if (older.Kind != newer.Kind)
            add(record, "kind", QStringLiteral("changed ") + fromTo(older.Title, newer.Title),
                place);
        if (older.inactive != newer.inactive)
            add(record, newer.inactive ? "switched off" : "switched on", {}, place);
        arguments(record, older, newer, place);
        if (older.comment != newer.comment)
            add(record, "comment", QStringLiteral("changed"), place);
    }

    void compareItem(const QString& record, const ConditionRecord& older,
        const ConditionRecord& newer, const Place& place)
    {
        const qsizetype before = m_changes.size();
        commonFields(record, older, newer, place);
        if (older.negation != newer.negation)
            add(record, "negation",
                QStringLiteral("changed ")
                    + fromTo(RecordWords::negationShown(older.negation),
                        RecordWords::negationShown(newer.negation)),
                place);
        if (older.operatorIndex != newer.operatorIndex)
            add(record, "operator",
                QStringLiteral("changed ")
                    + fromTo(RecordWords::operatorShown(older.operatorIndex),
                        RecordWords::operatorShown(newer.operatorIndex)),
                place);
        if (older.comparisonValue != newer.comparisonValue)
            add(record, "value",
                QStringLiteral("changed ")
                    + fromTo(m_oldWords.shown(older.comparisonValue),
                        m_newWords.shown(newer.comparisonValue)),
                {place.owner, place.index, -1, Part::ComparedValue, place.item});
        if (m_changes.size() == before)
            add(record, "changed", {}, place);
    }

    void compareItem(const QString& record, const ActionRecord& older, const ActionRecord& newer,
        const Place& place)
    {
        const qsizetype before = m_changes.size();
        commonFields(record, older, newer, place);
        if (older.text != newer.text)
            add(record, "text",
                QStringLiteral("changed ")
                    + fromTo(m_oldWords.shown(older.text), m_newWords.shown(newer.text)),
                place);
        if (m_changes.size() == before)
            add(record, "changed", {}, place);
    }

    const Project& m_old;
    const Project& m_new;
    RecordWords m_oldWords;
    RecordWords m_newWords;
    QList<RecordChange> m_changes;
};

} // namespace

QList<RecordChange> compareProjects(const Project& older, const Project& newer)
{
    return Differ(older, newer).run();
}

} // namespace tarvo
