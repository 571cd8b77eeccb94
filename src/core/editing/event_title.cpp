#include "editing/event_title.h"

#include "base/checked.h"
#include "ui/prompter.h"

namespace tarvo {

bool AskEventTitle(Project& project, int index, bool isRename, Prompter& prompter)
{
    EventRecord& event = at(project.events, index, "events");
    const QString defaultText
        = isRename ? event.name : QStringLiteral("Event ") + QString::number(index);
    const QString answer
        = prompter.input(QStringLiteral("Please enter the title for the current event."),
            QStringLiteral("Title"), defaultText);
    if (answer.isEmpty())
        return false;
    event.name = answer;
    return true;
}

bool AskTimerTitle(Project& project, int index, const QString& defaultText, Prompter& prompter)
{
    TimerRecord& timer = at(project.timers, index, "timers");
    const QString answer
        = prompter.input(QStringLiteral("Please enter the title for the current timer."),
            QStringLiteral("Title"), defaultText);
    if (answer.isEmpty())
        return false;
    timer.name = answer;
    return true;
}

} // namespace tarvo
