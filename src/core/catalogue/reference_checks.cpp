#include "catalogue/reference_checks.h"

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
    // Counts can claim more records than a damaged file held; only records that
    // exist are searched.
    const qsizetype eventLast = heldCount(project.eventCount, project.events);
    for (qsizetype e = 0; e < eventLast; ++e) {
        const EventRecord& event = project.events.at(e);
        if (event.disabled)
            continue;
        const qsizetype actionLast = heldCount(event.actionCount, event.actions);
        for (qsizetype a = 0; a < actionLast; ++a) {
            const ActionRecord& action = event.actions.at(a);
            if (action.inactive)
                continue;
            const qsizetype argLast = heldCount(action.ArgCount, action.Args);
            for (qsizetype k = 0; k < argLast; ++k) {
                const ArgumentRecord& arg = action.Args.at(k);
                if (arg.ListRef != row::Events || arg.Value.size() <= 2)
                    continue;
                if (index.decode(arg.Value, workspace.prompter) != targetText)
                    continue;
                const QString text = eventInUseText(event.name, action.Title, targetText);
                workspace.prompter.message(text, Prompter::Icon::Exclamation);
                shown.append(text);
            }
        }
    }
    return shown;
}

} // namespace tarvo
