#include "editing/timer_list.h"

#include "catalogue/project_lists.h"
#include "catalogue/project_places.h"
#include "catalogue/where_used.h"
#include "editing/event_title.h"
#include "base/checked.h"
#include "ui/prompter.h"

namespace tarvo {

void DeleteTimer(Project& project, int index)
{
    at(project.timers, index, "timers");
    for (int i = index; i <= project.timerCount - 2; ++i)
        project.timers[index] = at(project.timers, index + 1, "timers");
    --project.timerCount;
    if (project.timerCount < 1) {
        project.timerCount = 0;
        project.timers.clear();
    } else {
        project.timers.resize(project.timerCount);
    }
    // The list loses the line; its other lines stay as they were.
    if (index < project.timerListLines.size())
        project.timerListLines.removeAt(index);
    refreshTimerRow(project);
}

bool renameTimer(Project& project, int index, Prompter& prompter)
{
    const QString current = at(project.timers, index, "timers").name;
    if (!AskTimerTitle(project, index, current, prompter)) {
        prompter.message(
            QStringLiteral("Cancelled. No changes were made."), Prompter::Icon::Information);
        return false;
    }
    if (index < project.timerListLines.size())
        project.timerListLines[index] = project.timers.at(index).name;
    refreshTimerRow(project);
    return true;
}

QString timerInUseQuestion(const Project& project, int index)
{
    if (index < 0 || index >= heldCount(project.timerCount, project.timers))
        return {};
    const TimerRecord& timer = project.timers.at(index);
    const QList<ProjectPlace> users = findReferences(project, row::Timers, timer.id);
    if (users.isEmpty())
        return {};
    QStringList places;
    for (const ProjectPlace& place : users)
        places.append(describePlace(project, place));
    return QStringLiteral("The timer \"%1\" is still named in %2 place(s), which would then "
                          "compile as \"?\": %3.\n\nDelete it all the same?")
        .arg(timer.name)
        .arg(users.size())
        .arg(places.join(QStringLiteral("; ")));
}

} // namespace tarvo
