#include "editing/event_block.h"

#include "base/checked.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_checks.h"
#include "editing/event_list.h"
#include "ui/prompter.h"

#include <algorithm>

namespace tarvo {

namespace {

int shownCount(const Project& project)
{
    return int(heldCount(project.eventCount, project.events));
}

} // namespace

QList<int> blockLines(const Project& project, QList<int> lines)
{
    const int count = shownCount(project);
    lines.removeIf([count](int line) { return line < 0 || line >= count; });
    std::sort(lines.begin(), lines.end());
    lines.erase(std::unique(lines.begin(), lines.end()), lines.end());
    return lines;
}

QString deleteEventsQuestion(int count)
{
    return QStringLiteral("Are you sure you want to delete these %1 events?").arg(count);
}

void deleteEvents(Project& project, const QList<int>& lines)
{
    const QList<int> sorted = blockLines(project, lines);
    for (auto line = sorted.rbegin(); line != sorted.rend(); ++line)
        DeleteEvent(project, *line);
}

EventStretch deleteEventsStretch(const Project& project, const QList<int>& lines)
{
    const QList<int> sorted = blockLines(project, lines);
    if (sorted.isEmpty())
        return {0, 0};
    // From the first deleted record to the last, or to the end when spare
    // records lie behind the count (a delete drops them).
    const EventStretch first = deleteStretch(project, sorted.first());
    const EventStretch last = deleteStretch(project, sorted.last());
    return {first.first, std::max(first.last, last.last)};
}

BlockTickReport setEventsTicked(Workspace& workspace, const QList<int>& lines, bool ticked)
{
    BlockTickReport report;
    Project& project = workspace.project;
    for (const int line : blockLines(project, lines)) {
        EventRecord& event = project.events[line];
        if (event.disabled == !ticked)
            continue;
        // The tick's rules, line by line; what they would say is said once.
        if (ticked && CountActiveActions(project, line) == 0) {
            report.refused.append(event.name);
            continue;
        }
        if (!ticked)
            report.warnings.append(eventInUseWarnings(workspace, event.name));
        event.disabled = !ticked;
        ++report.changed;
    }
    const QString summary = blockTickSummary(report, ticked);
    if (!summary.isEmpty())
        workspace.prompter.message(summary, Prompter::Icon::Exclamation);
    return report;
}

QString blockTickSummary(const BlockTickReport& report, bool ticked)
{
    QStringList parts;
    if (!report.refused.isEmpty()) {
        QStringList names;
        for (const QString& name : report.refused)
            names.append(QStringLiteral("'%1'").arg(name));
        parts.append(QStringLiteral("%1 of the events could not be switched on, because they "
                                    "have no active actions: %2.")
                         .arg(report.refused.size())
                         .arg(names.join(QStringLiteral(", "))));
    }
    parts.append(report.warnings);
    if (parts.isEmpty())
        return {};
    parts.prepend(QStringLiteral("%1 event%2 switched %3.")
                      .arg(report.changed)
                      .arg(report.changed == 1 ? QString() : QStringLiteral("s"))
                      .arg(ticked ? QStringLiteral("on") : QStringLiteral("off")));
    // The rule's messages run over several lines each: a blank line apart.
    return parts.join(QStringLiteral("\n\n"));
}

EventStretch blockStretch(const Project& project, const QList<int>& lines)
{
    const QList<int> sorted = blockLines(project, lines);
    if (sorted.isEmpty())
        return {0, 0};
    return {sorted.first(), qsizetype(sorted.last()) + 1};
}

QList<int> moveEvents(Project& project, const QList<int>& lines, int direction)
{
    QList<int> sorted = blockLines(project, lines);
    const int count = shownCount(project);
    if (sorted.isEmpty() || (direction < 0 && sorted.first() == 0)
        || (direction > 0 && sorted.last() == count - 1))
        return {};
    // Each selected record swaps with its neighbour, nearest the move first,
    // so that neighbours in the block move together.
    if (direction > 0)
        std::reverse(sorted.begin(), sorted.end());
    for (int& line : sorted) {
        std::swap(project.events[line], project.events[line + direction]);
        line += direction;
    }
    RefreshProjectLists(project);
    refreshTimerRow(project);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

EventStretch moveEventsStretch(const QList<int>& lines, int direction)
{
    if (lines.isEmpty())
        return {0, 0};
    const auto [low, high] = std::minmax_element(lines.begin(), lines.end());
    return {std::max(0, std::min(*low, *low + direction)),
        qsizetype(std::max(*high, *high + direction)) + 1};
}

} // namespace tarvo
