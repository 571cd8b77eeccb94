#include "transfer/event_clip.h"

#include "catalogue/reference_markers.h"
#include "base/checked.h"
#include "base/file_error.h"
#include "versions/project_outline.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace tarvo {

namespace {

const QString kFormat = QStringLiteral("tarvo-events");
constexpr int kVersion = 1;

template <typename Visit> void forEachReference(const QString& text, Visit&& visit)
{
    for (qsizetype from = text.indexOf(QLatin1String("&&")); from >= 0;) {
        int row = 0;
        int id = 0;
        qsizetype end = 0;
        if (readReference(text, from, row, id, end)) {
            visit(row, id);
            from = text.indexOf(QLatin1String("&&"), end);
        } else {
            from = text.indexOf(QLatin1String("&&"), from + 1);
        }
    }
}

// Every stored text of an event that may hold references.
QStringList referringTexts(const EventClip::Event& event)
{
    QStringList texts(event.trigger.triggerArgTexts.begin(), event.trigger.triggerArgTexts.end());
    for (const auto& step : event.conditions)
        texts << step.values << step.comparisonValue;
    for (const auto& step : event.actions)
        texts << step.values << step.text;
    return texts;
}

EventClip::Step stepOf(const CatalogueEntry& entry)
{
    EventClip::Step step;
    step.callName = entry.CallName;
    step.title = entry.Title;
    for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k)
        step.values << entry.Args.at(k).Value;
    return step;
}

// The position of the item with `id` in a list of records, or -1.
template <typename Records> int positionOfId(const Records& records, qsizetype count, int id)
{
    for (int i = 0; i < heldCount(count, records); ++i) {
        if (records.at(i).id == id)
            return i;
    }
    return -1;
}

QJsonArray texts(const QStringList& list)
{
    return QJsonArray::fromStringList(list);
}

QStringList texts(const QJsonValue& value)
{
    QStringList list;
    for (const QJsonValue& item : value.toArray())
        list << item.toString();
    return list;
}

QJsonObject stepJson(const EventClip::Step& step, bool condition)
{
    QJsonObject o {{"callName", step.callName}, {"title", step.title},
        {"values", texts(step.values)}, {"inactive", step.inactive}, {"comment", step.comment}};
    if (condition) {
        o["operator"] = step.operatorIndex;
        o["comparedValue"] = step.comparisonValue;
        o["negation"] = step.negation;
    } else {
        o["text"] = step.text;
    }
    return o;
}

EventClip::Step stepFrom(const QJsonObject& o)
{
    EventClip::Step step;
    step.callName = o["callName"].toString();
    step.title = o["title"].toString();
    step.values = texts(o["values"]);
    step.inactive = o["inactive"].toBool();
    step.comment = o["comment"].toString();
    step.operatorIndex = qint16(o["operator"].toInt());
    step.comparisonValue = o["comparedValue"].toString();
    step.negation = qint16(o["negation"].toInt());
    step.text = o["text"].toString();
    return step;
}

template <typename Record> void putTrigger(QJsonObject& o, const Record& record)
{
    o["name"] = record.name;
    o["comment"] = record.comment;
    o["id"] = record.id;
    o["trigger"] = record.triggerKind;
    o["triggerArgCount"] = record.triggerArgCount;
    o["triggerArgs"]
        = texts(QStringList(record.triggerArgTexts.begin(), record.triggerArgTexts.end()));
    o["triggerArgTypes"] = QJsonArray {
        record.triggerArgTypes[0], record.triggerArgTypes[1], record.triggerArgTypes[2]};
}

template <typename Record> void takeTrigger(const QJsonObject& o, Record& record)
{
    record.name = o["name"].toString();
    record.comment = o["comment"].toString();
    record.id = qint16(o["id"].toInt());
    record.triggerKind = qint16(o["trigger"].toInt());
    record.triggerArgCount = qint16(o["triggerArgCount"].toInt());
    const QStringList args = texts(o["triggerArgs"]);
    const QJsonArray types = o["triggerArgTypes"].toArray();
    for (size_t k = 0; k < 3; ++k) {
        record.triggerArgTexts[k] = args.value(qsizetype(k));
        record.triggerArgTypes[k] = qint16(types.at(qsizetype(k)).toInt());
    }
}

} // namespace

EventClip copyEvents(const Project& project, const QList<int>& indices)
{
    EventClip clip;
    QSet<int> copiedIds;
    for (int index : indices) {
        const EventRecord& record = at(project.events, index, "events");
        EventClip::Event event;
        event.trigger = record;
        event.trigger.conditions.clear();
        event.trigger.actions.clear();
        for (int c = 0; c < heldCount(record.conditionCount, record.conditions); ++c) {
            const ConditionRecord& condition = record.conditions.at(c);
            EventClip::Step step = stepOf(condition);
            step.operatorIndex = condition.operatorIndex;
            step.comparisonValue = condition.comparisonValue;
            step.negation = condition.negation;
            step.inactive = condition.inactive;
            step.comment = condition.comment;
            event.conditions << step;
        }
        for (int a = 0; a < heldCount(record.actionCount, record.actions); ++a) {
            const ActionRecord& action = record.actions.at(a);
            EventClip::Step step = stepOf(action);
            step.text = action.text;
            step.inactive = action.inactive;
            step.comment = action.comment;
            event.actions << step;
        }
        clip.events << event;
        copiedIds.insert(record.id);
    }

    // What the events name, each once, in the order first named.
    QSet<QPair<int, int>> seen;
    const auto named = [&](int row, int id) {
        if (seen.contains({row, id}) || row < 0 || row >= kReferenceRowCount)
            return;
        seen.insert({row, id});
        if (row == row::Events && copiedIds.contains(id))
            return;
        if (row == row::Timers) {
            const int t = positionOfId(project.timers, project.timerCount, id);
            if (t >= 0) {
                clip.timers << project.timers.at(t);
                return;
            }
        } else if (row == row::Sounds) {
            const int s = positionOfId(project.sounds, project.soundCount, id);
            if (s >= 0) {
                // The path as this project finds the file, so that a project
                // in another folder finds it too.
                SoundRecord sound = project.sounds.at(s);
                sound.secondText = soundFilePath(project, sound);
                clip.sounds << sound;
                return;
            }
        } else if (row == row::Messages) {
            const int m = positionOfId(project.messages, project.messageCount, id);
            if (m >= 0) {
                clip.messages << project.messages.at(m);
                return;
            }
        }
        const ReferenceList& list = project.tables[size_t(row)];
        const int position = list.Ids.mid(0, list.ItemCount).lastIndexOf(qint16(id));
        clip.items << EventClip::Item {row, id, list.Texts.value(position),
            row == row::Integers ? list.RawCodes.value(position) : QString()};
    };
    for (const EventClip::Event& event : clip.events) {
        for (const QString& text : referringTexts(event))
            forEachReference(text, named);
    }
    // A timer's trigger may name items too.
    for (qsizetype t = 0; t < clip.timers.size(); ++t) {
        for (const QString& text : clip.timers.at(t).triggerArgTexts)
            forEachReference(text, named);
    }
    return clip;
}

QByteArray clipBytes(const EventClip& clip)
{
    QJsonArray events;
    for (const EventClip::Event& event : clip.events) {
        QJsonObject o;
        putTrigger(o, event.trigger);
        o["disabled"] = event.trigger.disabled;
        QJsonArray conditions;
        for (const auto& step : event.conditions)
            conditions << stepJson(step, true);
        QJsonArray actions;
        for (const auto& step : event.actions)
            actions << stepJson(step, false);
        o["conditions"] = conditions;
        o["actions"] = actions;
        events << o;
    }
    QJsonArray items;
    for (const EventClip::Item& item : clip.items)
        items << QJsonObject {
            {"row", item.row}, {"id", item.id}, {"name", item.name}, {"value", item.value}};
    QJsonArray timers;
    for (const TimerRecord& timer : clip.timers) {
        QJsonObject o;
        putTrigger(o, timer);
        timers << o;
    }
    QJsonArray sounds;
    for (const SoundRecord& sound : clip.sounds)
        sounds << QJsonObject {{"id", sound.id}, {"name", sound.firstText},
            {"path", sound.secondText}, {"file", sound.thirdText}};
    QJsonArray messages;
    for (const MessageRecord& message : clip.messages)
        messages << QJsonObject {{"id", message.id}, {"text", message.text}};
    const QJsonObject root {{"format", kFormat}, {"version", kVersion}, {"events", events},
        {"items", items}, {"timers", timers}, {"sounds", sounds}, {"messages", messages}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

EventClip readClip(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonObject root = QJsonDocument::fromJson(bytes, &error).object();
    if (error.error != QJsonParseError::NoError || root["format"].toString() != kFormat)
        throw DataError(QStringLiteral("The clipboard holds no events copied by this editor."));
    if (root["version"].toInt() > kVersion)
        throw DataError(QStringLiteral("The events on the clipboard were copied by a newer editor; "
                                       "this one cannot read them."));
    EventClip clip;
    for (const QJsonValue& value : root["events"].toArray()) {
        const QJsonObject o = value.toObject();
        EventClip::Event event;
        takeTrigger(o, event.trigger);
        event.trigger.disabled = o["disabled"].toBool();
        for (const QJsonValue& step : o["conditions"].toArray())
            event.conditions << stepFrom(step.toObject());
        for (const QJsonValue& step : o["actions"].toArray())
            event.actions << stepFrom(step.toObject());
        clip.events << event;
    }
    for (const QJsonValue& value : root["items"].toArray()) {
        const QJsonObject o = value.toObject();
        clip.items << EventClip::Item {
            o["row"].toInt(), o["id"].toInt(), o["name"].toString(), o["value"].toString()};
    }
    for (const QJsonValue& value : root["timers"].toArray()) {
        TimerRecord timer;
        takeTrigger(value.toObject(), timer);
        clip.timers << timer;
    }
    for (const QJsonValue& value : root["sounds"].toArray()) {
        const QJsonObject o = value.toObject();
        clip.sounds << SoundRecord {o["name"].toString(), o["path"].toString(),
            qint16(o["id"].toInt()), o["file"].toString()};
    }
    for (const QJsonValue& value : root["messages"].toArray()) {
        const QJsonObject o = value.toObject();
        clip.messages << MessageRecord {o["text"].toString(), qint16(o["id"].toInt())};
    }
    return clip;
}

QString clipText(const Project& project, const QList<int>& indices)
{
    QStringList blocks;
    for (int index : indices)
        blocks << eventOutline(project, at(project.events, index, "events"));
    return blocks.join(u'\n');
}

} // namespace tarvo
