#include "simulate/transcript.h"

#include "simulate/dry_run.h"
#include "simulate/dry_run_model.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace tarvo::simulate {

namespace {

using What = TranscriptEntry::What;

QString eventName(const DryRunModel& model, int event)
{
    if (event < 0 || size_t(event) >= model.events.size())
        return QStringLiteral("the scenario");
    const EventProgram& program = model.events[size_t(event)];
    return program.name.isEmpty() ? program.code : program.name;
}

QString quotedEvent(const DryRunModel& model, int event)
{
    return u'"' + eventName(model, event) + u'"';
}

// Numbers and truth values as JSON numbers and booleans, texts and names as
// strings, nothing as null.
QJsonValue jsonValue(const ScriptValue& value)
{
    switch (value.kind) {
    case ScriptValue::Kind::Nothing:
        return QJsonValue::Null;
    case ScriptValue::Kind::Number:
        return double(value.number);
    case ScriptValue::Kind::Truth:
        return value.number != 0;
    case ScriptValue::Kind::Text:
    case ScriptValue::Kind::Name:
        break;
    }
    return value.text;
}

QString shownValue(const ScriptValue& value)
{
    return value.kind == ScriptValue::Kind::Nothing ? QStringLiteral("nothing")
                                                    : value.scriptText();
}

} // namespace

QString whatWord(What what)
{
    switch (what) {
    case What::Fired:
        return QStringLiteral("fired");
    case What::Skipped:
        return QStringLiteral("skipped");
    case What::Set:
        return QStringLiteral("set");
    case What::Armed:
        return QStringLiteral("armed");
    case What::Disarmed:
        return QStringLiteral("disarmed");
    case What::Message:
        return QStringLiteral("message");
    case What::Sound:
        return QStringLiteral("sound");
    case What::Call:
        return QStringLiteral("call");
    case What::End:
        return QStringLiteral("end");
    case What::Stop:
        break;
    }
    return QStringLiteral("stop");
}

QString clockText(int tenths)
{
    return QStringLiteral("%1.%2 s").arg(tenths / 10).arg(tenths % 10);
}

QString entryText(const TranscriptEntry& entry, const DryRunModel& model)
{
    const QString by = QStringLiteral(" (by %1)").arg(quotedEvent(model, entry.by));
    QString line;
    switch (entry.what) {
    case What::Fired:
        line = quotedEvent(model, entry.event) + QStringLiteral(" fired");
        break;
    case What::Skipped:
        line = quotedEvent(model, entry.event)
            + QStringLiteral(" fired; condition %1 was false, its actions did not run")
                  .arg(entry.condition);
        break;
    case What::Set:
        line = QStringLiteral("%1 %2 → %3")
                   .arg(model.authorName(entry.text), shownValue(entry.oldValue),
                       shownValue(entry.newValue))
            + by;
        break;
    case What::Armed:
        line = quotedEvent(model, entry.event) + QStringLiteral(" switched on with ") + entry.text
            + by;
        break;
    case What::Disarmed:
        line = quotedEvent(model, entry.event) + QStringLiteral(" switched off") + by;
        break;
    case What::Message:
        line = QStringLiteral("message \"%1\"").arg(entry.text) + by;
        break;
    case What::Sound:
        line = QStringLiteral("sound %1").arg(entry.text) + by;
        break;
    case What::Call:
        line = QStringLiteral("game: %1 = %2")
                   .arg(entry.text,
                       entry.newValue.kind == ScriptValue::Kind::Nothing
                           ? QStringLiteral("0 (no answer in the scenario)")
                           : entry.newValue.scriptText())
            + by;
        break;
    case What::End:
        line = (entry.text == QLatin1String("win") ? QStringLiteral("the mission is won")
                                                   : QStringLiteral("the mission is lost"))
            + by;
        break;
    case What::Stop:
        line = entry.text == QLatin1String("loop")
            ? QStringLiteral("stopped: a loop in %1 (line %2) ran %3 turns in one firing")
                  .arg(quotedEvent(model, entry.event))
                  .arg(entry.line)
                  .arg(entry.condition)
            : entry.text == QLatin1String("limit")
            ? QStringLiteral("stopped: the run reached its bound of %1 firings")
                  .arg(DryRun::kFiringBound)
            : QStringLiteral("stopped: the end time was reached");
        break;
    }
    return clockText(entry.time) + QStringLiteral("  ") + line;
}

QByteArray entryJson(const TranscriptEntry& entry, const DryRunModel& model)
{
    QJsonObject object;
    object.insert(QStringLiteral("t"), entry.time);
    object.insert(QStringLiteral("what"), whatWord(entry.what));
    const auto putEvent = [&](const QString& key, int event) {
        object.insert(key, eventName(model, event));
        if (event >= 0 && size_t(event) < model.events.size())
            object.insert(key + QStringLiteral("Code"), model.events[size_t(event)].code);
    };
    switch (entry.what) {
    case What::Skipped:
        object.insert(QStringLiteral("condition"), entry.condition);
        [[fallthrough]];
    case What::Fired:
        putEvent(QStringLiteral("event"), entry.event);
        break;
    case What::Set:
        object.insert(QStringLiteral("name"), model.authorName(entry.text));
        object.insert(QStringLiteral("code"), entry.text);
        object.insert(QStringLiteral("old"), jsonValue(entry.oldValue));
        object.insert(QStringLiteral("new"), jsonValue(entry.newValue));
        putEvent(QStringLiteral("by"), entry.by);
        break;
    case What::Armed:
    case What::Disarmed:
        putEvent(QStringLiteral("event"), entry.event);
        putEvent(QStringLiteral("by"), entry.by);
        object.insert(QStringLiteral("trigger"), entry.text);
        break;
    case What::Message:
        object.insert(QStringLiteral("text"), entry.text);
        putEvent(QStringLiteral("by"), entry.by);
        break;
    case What::Sound:
        object.insert(QStringLiteral("name"), entry.text);
        putEvent(QStringLiteral("by"), entry.by);
        break;
    case What::Call:
        object.insert(QStringLiteral("call"), entry.text);
        object.insert(QStringLiteral("value"), jsonValue(entry.newValue));
        putEvent(QStringLiteral("by"), entry.by);
        break;
    case What::End:
        object.insert(QStringLiteral("result"), entry.text);
        putEvent(QStringLiteral("by"), entry.by);
        break;
    case What::Stop:
        object.insert(QStringLiteral("reason"), entry.text);
        if (entry.text == QLatin1String("loop")) {
            putEvent(QStringLiteral("event"), entry.event);
            object.insert(QStringLiteral("line"), entry.line);
        }
        break;
    }
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace tarvo::simulate
