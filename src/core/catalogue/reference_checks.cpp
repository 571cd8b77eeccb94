#include "catalogue/reference_checks.h"

#include "base/checked.h"
#include "catalogue/event_uses.h"
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

#include <array>
#include <functional>
#include <vector>

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

// The first position of each ID in the rows the search meets, one table per
// row, made when a value first names the row. Only asked while no row holds
// a negative ID, so every ID of a row fits a table of all 16-bit IDs.
class FirstPositions
{
public:
    explicit FirstPositions(const ReferenceListTable& table)
        : m_table(table)
    {
    }

    // As ReferenceIndex::firstPositionOf answers.
    int of(int row, int id)
    {
        const ReferenceList& list = m_table[size_t(row)];
        if (!list.UsesIds)
            return id >= 0 && id < list.ItemCount ? id : -1;
        if (id < 0 || id > kHighestId)
            return -1;
        std::vector<int>& first = m_rows[size_t(row)];
        if (first.empty()) {
            first.assign(size_t(kHighestId) + 1, -1);
            const qsizetype count = heldCount(list.ItemCount, list.Ids);
            for (qsizetype p = count - 1; p >= 0; --p)
                first[size_t(list.Ids.at(p))] = int(p);
        }
        return first[size_t(id)];
    }

private:
    static constexpr int kHighestId = 32767;
    const ReferenceListTable& m_table;
    std::array<std::vector<int>, kReferenceRowCount> m_rows;
};

// Whether a short text holds "&&"; a plain loop beats a general search here.
bool holdsAmpersands(const QString& text)
{
    const QChar* chars = text.constData();
    for (qsizetype i = 1; i < text.size(); ++i) {
        if (chars[i] == u'&' && chars[i - 1] == u'&')
            return true;
    }
    return false;
}

// The shown text of a value that is one reference and nothing else, as
// decoding would give it without a word to the user; null when decoding
// would have something to report or could give another text.
const QString* shownSingleReference(
    const ReferenceListTable& table, FirstPositions& positions, const EventUses::Use& use)
{
    const int position = positions.of(use.row, use.id);
    const QStringList& texts = table[size_t(use.row)].Texts;
    if (position < 0 || position >= texts.size() || holdsAmpersands(texts.at(position)))
        return nullptr;
    return &texts.at(position);
}

// The search of both: `onFound` hears of each referring argument as it is met,
// so that a warning shown at once keeps its place among the decoder's own.
QStringList searchEventUses(Workspace& workspace, const QString& targetText,
    const std::function<void(const QString&)>& onFound)
{
    const Project& project = workspace.project;
    EventUses& uses = workspace.eventUses();
    uses.update(project);
    QStringList shown;
    // One index for the whole search: decoding each argument on its own
    // would look through every row again for every event.
    const ReferenceIndex index(project.tables);
    // Most values are one reference; those are looked up, not decoded.
    const bool quick = !anyNegativeId(project.tables);
    FirstPositions positions(project.tables);
    for (qsizetype e = 0; e < uses.eventCount(); ++e) {
        const EventUses::Uses& found = uses.of(e);
        if (found.empty())
            continue;
        const EventRecord& event = project.events.at(e);
        if (event.disabled)
            continue;
        for (const EventUses::Use& use : found) {
            if (use.inactive)
                continue;
            const ActionRecord& action = event.actions.at(use.action);
            const QString* plain = quick && use.single
                ? shownSingleReference(project.tables, positions, use)
                : nullptr;
            if (plain ? *plain != targetText
                      : index.decode(action.Args.at(use.argument).Value, workspace.prompter)
                        != targetText)
                continue;
            const QString text = eventInUseText(event.name, action.Title, targetText);
            if (onFound)
                onFound(text);
            shown.append(text);
        }
    }
    return shown;
}

} // namespace

QStringList eventInUseWarnings(Workspace& workspace, const QString& targetText)
{
    return searchEventUses(workspace, targetText, nullptr);
}

QStringList CheckEventInUse(Workspace& workspace, const QString& targetText)
{
    return searchEventUses(workspace, targetText, [&workspace](const QString& text) {
        workspace.prompter.message(text, Prompter::Icon::Exclamation);
    });
}

} // namespace tarvo
