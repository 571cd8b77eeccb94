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

namespace {

// Whether some item of some row has a negative ID: decoding then reports
// each one, so no text may skip it.
bool anyNegativeId(const ReferenceListTable& table)
{
    for (const ReferenceList& list : table) {
        if (!list.UsesIds)
            continue;
        for (qsizetype p = 0; p < heldCount(list.ItemCount, list.Ids); ++p) {
            if (list.Ids.at(p) < 0)
                return true;
        }
    }
    return false;
}

// The shown text of a value that is one reference and nothing else, as
// decoding would give it without a word to the user; false when the value is
// of another shape, or decoding would have something to report.
bool shownSingleReference(const ReferenceIndex& index, const QString& value, QString& shown)
{
    int row = 0;
    int id = 0;
    qsizetype end = 0;
    if (!readReference(value, 0, row, id, end) || end != value.size() || row >= kReferenceRowCount)
        return false;
    const int position = index.firstPositionOf(row, id);
    const ReferenceList& list = index.table()[size_t(row)];
    if (position < 0 || position >= list.Texts.size()
        || list.Texts.at(position).contains(QLatin1String("&&")))
        return false;
    shown = list.Texts.at(position);
    return true;
}

} // namespace

QStringList CheckEventInUse(Workspace& workspace, const QString& targetText)
{
    const Project& project = workspace.project;
    QStringList shown;
    // One index for the whole search: decoding each argument on its own
    // would look through every row again for every event.
    const ReferenceIndex index(project.tables);
    // Most values are one reference; those are looked up, not decoded.
    const bool quick = !anyNegativeId(project.tables);
    forEachArgument(project, [&](const ArgumentValue& argument) {
        const ProjectPlace& place = argument.place;
        if (place.part != ProjectPlace::Part::Action || argument.row != row::Events
            || argument.value.size() <= 2)
            return;
        const EventRecord& event = project.events.at(place.index);
        const ActionRecord& action = event.actions.at(place.item);
        if (event.disabled || action.inactive)
            return;
        QString decoded;
        if (!(quick && shownSingleReference(index, argument.value, decoded)))
            decoded = index.decode(argument.value, workspace.prompter);
        if (decoded != targetText)
            return;
        const QString text = eventInUseText(event.name, action.Title, targetText);
        workspace.prompter.message(text, Prompter::Icon::Exclamation);
        shown.append(text);
    });
    return shown;
}

} // namespace tarvo
