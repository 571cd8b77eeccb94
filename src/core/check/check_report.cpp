#include "check/check_report.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tarvo {

namespace {

QString severityWord(CheckIssue::Severity severity)
{
    switch (severity) {
    case CheckIssue::Severity::Error:
        return QStringLiteral("error");
    case CheckIssue::Severity::Warning:
        return QStringLiteral("warning");
    case CheckIssue::Severity::Information:
        break;
    }
    return QStringLiteral("information");
}

QJsonObject locationParts(const Project& project, const ProjectPlace& place)
{
    using Owner = ProjectPlace::Owner;
    using Part = ProjectPlace::Part;
    QJsonObject parts;
    const auto named = [&](const char* key, int index, const QString& name) {
        parts.insert(QLatin1String(key), name);
        parts.insert(QLatin1String(key) + QStringLiteral("Position"), index + 1);
    };
    if (place.owner == Owner::Event && place.index >= 0 && place.index < project.events.size()) {
        const EventRecord& event = project.events.at(place.index);
        named("event", place.index, event.name);
        const bool condition = place.part == Part::Condition || place.part == Part::ComparedValue;
        const CatalogueEntry* entry = nullptr;
        if (condition && place.item >= 0 && place.item < event.conditions.size())
            entry = &event.conditions.at(place.item);
        else if (place.part == Part::Action && place.item >= 0 && place.item < event.actions.size())
            entry = &event.actions.at(place.item);
        if (entry)
            named(condition ? "condition" : "action", place.item, entry->Title);
        if (entry && place.argument >= 0 && place.argument < entry->Args.size())
            named("argument", place.argument, entry->Args.at(place.argument).Label);
        if (place.part == Part::ComparedValue)
            parts.insert(QStringLiteral("argument"), QStringLiteral("compared value"));
    } else if (place.owner == Owner::Timer && place.index >= 0
        && place.index < project.timers.size()) {
        named("timer", place.index, project.timers.at(place.index).name);
    } else if (place.owner == Owner::Sound && place.index >= 0
        && place.index < project.sounds.size()) {
        named("sound", place.index, project.sounds.at(place.index).firstText);
    }
    if (place.part == Part::Trigger)
        parts.insert(QStringLiteral("argument"),
            place.argument < 0 ? QStringLiteral("trigger")
                               : QStringLiteral("trigger argument %1").arg(place.argument + 1));
    return parts;
}

} // namespace

QString issueLine(const QString& fileName, const Project& project, const CheckIssue& issue)
{
    return fileName + QStringLiteral(": ") + severityWord(issue.severity) + QStringLiteral(": ")
        + describePlace(project, issue.place) + QStringLiteral(": ") + issue.sentence;
}

QByteArray issuesJson(
    const QString& fileName, const Project& project, const QList<CheckIssue>& issues)
{
    QJsonArray array;
    for (const CheckIssue& issue : issues) {
        QJsonObject object = locationParts(project, issue.place);
        object.insert(QStringLiteral("file"), fileName);
        object.insert(QStringLiteral("severity"), severityWord(issue.severity));
        object.insert(QStringLiteral("location"), describePlace(project, issue.place));
        object.insert(QStringLiteral("message"), issue.sentence);
        array.append(object);
    }
    return QJsonDocument(array).toJson(QJsonDocument::Indented);
}

} // namespace tarvo
