#include "catalogue/project_places.h"

namespace tarvo {

namespace {

QString quoted(const QString& text)
{
    return u'\'' + text + u'\'';
}

// The whole trigger, or one of its arguments.
QString triggerPart(int argument)
{
    return argument < 0 ? QStringLiteral("trigger")
                        : QStringLiteral("trigger argument %1").arg(argument + 1);
}

// The part of an event: its trigger, a condition or an action, and what of it.
void describePart(const EventRecord& event, const ProjectPlace& place, QStringList& parts)
{
    using Part = ProjectPlace::Part;
    const CatalogueEntry* entry = nullptr;
    if (place.part == Part::Condition || place.part == Part::ComparedValue) {
        const bool held = place.item >= 0 && place.item < event.conditions.size();
        if (held)
            entry = &event.conditions.at(place.item);
        parts << QStringLiteral("condition %1").arg(place.item + 1)
                + (held ? u' ' + quoted(entry->Title) : QString());
    } else if (place.part == Part::Action) {
        const bool held = place.item >= 0 && place.item < event.actions.size();
        if (held)
            entry = &event.actions.at(place.item);
        parts << QStringLiteral("action %1").arg(place.item + 1)
                + (held ? u' ' + quoted(entry->Title) : QString());
    }
    if (place.part == Part::ComparedValue) {
        parts << QStringLiteral("compared value");
    } else if (place.part == Part::Trigger) {
        parts << triggerPart(place.argument);
    } else if (place.part == Part::Comment) {
        parts << QStringLiteral("comment");
    } else if (place.argument >= 0) {
        if (entry && place.argument < entry->Args.size())
            parts << QStringLiteral("argument ") + quoted(entry->Args.at(place.argument).Label);
        else
            parts << QStringLiteral("argument %1").arg(place.argument + 1);
    }
}

} // namespace

QString itemKind(const ReferenceListTable& tables, int row)
{
    switch (row) {
    case row::Integers:
        return QStringLiteral("number");
    case row::Groups:
        return QStringLiteral("group");
    case row::Events:
        return QStringLiteral("event");
    case row::Timers:
        return QStringLiteral("timer");
    case row::Sounds:
        return QStringLiteral("sound");
    case row::Messages:
        return QStringLiteral("message");
    case row::Flags:
        return QStringLiteral("flag");
    default:
        return QStringLiteral("item of the list '%1'").arg(referenceRow(tables, row).ListName);
    }
}

QString describePlace(const Project& project, const ProjectPlace& place)
{
    using Owner = ProjectPlace::Owner;
    QStringList parts;
    switch (place.owner) {
    case Owner::Project:
        parts << (place.part == ProjectPlace::Part::Comment ? QStringLiteral("script comment")
                                                            : QStringLiteral("project"));
        break;
    case Owner::Event:
        if (place.index >= 0 && place.index < project.events.size()) {
            const EventRecord& event = project.events.at(place.index);
            parts << QStringLiteral("event ") + quoted(event.name);
            describePart(event, place, parts);
        } else {
            parts << QStringLiteral("event %1").arg(place.index + 1);
        }
        break;
    case Owner::Timer:
        parts << QStringLiteral("timer ")
                + (place.index >= 0 && place.index < project.timers.size()
                        ? quoted(project.timers.at(place.index).name)
                        : QString::number(place.index + 1));
        if (place.part == ProjectPlace::Part::Trigger)
            parts << triggerPart(place.argument);
        else if (place.part == ProjectPlace::Part::Comment)
            parts << QStringLiteral("comment");
        break;
    case Owner::Sound:
        parts << QStringLiteral("sound ")
                + (place.index >= 0 && place.index < project.sounds.size()
                        ? quoted(project.sounds.at(place.index).firstText)
                        : QString::number(place.index + 1));
        break;
    case Owner::Message:
        parts << QStringLiteral("message %1").arg(place.index + 1);
        break;
    case Owner::Variable: {
        const ReferenceList* list = place.row >= 0 && place.row < kReferenceRowCount
            ? &project.tables[size_t(place.row)]
            : nullptr;
        parts << (list ? itemKind(project.tables, place.row) : QStringLiteral("item")) + u' '
                + (list && place.index >= 0 && place.index < list->Texts.size()
                        ? quoted(list->Texts.at(place.index))
                        : QString::number(place.index + 1));
        break;
    }
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace tarvo
