#include "catalogue/reference_checks.h"

#include "catalogue/project_places.h"
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "model/checked.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

namespace tarvo {

QString eventInUseText(
    const QString& referringEvent, const QString& actionTitle, const QString& targetText)
{
    const QString& br = text::crlf;
    return QStringLiteral("This event is in use by the") + br + u'\'' + referringEvent + u'\'' + br
        + QStringLiteral(" event's") + br + u'\'' + actionTitle + u'\'' + br
        + QStringLiteral("action!") + br
        + QStringLiteral("Valdrun will most probably crash if you will not disable all "
                         "references to the '")
        + targetText + QStringLiteral("' event.");
}

QStringList CheckEventInUse(Workspace& workspace, const QString& targetText)
{
    const Project& project = workspace.project;
    QStringList shown;
    // One index for the whole search: decoding each argument on its own
    // would look through every row again for every event.
    const ReferenceIndex index(project.tables);
    forEachArgument(project, [&](const ArgumentValue& argument) {
        const ProjectPlace& place = argument.place;
        if (place.part != ProjectPlace::Part::Action || argument.row != row::Events
            || argument.value.size() <= 2)
            return;
        const EventRecord& event = project.events.at(place.index);
        const ActionRecord& action = event.actions.at(place.item);
        if (event.disabled || action.inactive
            || index.decode(argument.value, workspace.prompter) != targetText)
            return;
        const QString text = eventInUseText(event.name, action.Title, targetText);
        workspace.prompter.message(text, Prompter::Icon::Exclamation);
        shown.append(text);
    });
    return shown;
}

} // namespace tarvo
