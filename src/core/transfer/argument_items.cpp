#include "transfer/argument_items.h"

#include "catalogue/project_lists.h"
#include "editing/new_items.h"
#include "resources/resource_items.h"
#include "ui/prompter.h"
#include "variables/variable_operations.h"

namespace tarvo {

namespace {

QString rowText(const Project& project, int row, int position)
{
    const ReferenceList& list = project.tables[size_t(row)];
    return position >= 0 && position < list.Texts.size() ? list.Texts.at(position) : QString();
}

} // namespace

bool canMakeItemFor(int row)
{
    return !makeItemCaption(row).isEmpty();
}

QString makeItemCaption(int row)
{
    switch (row) {
    case row::Messages:
        return QStringLiteral("New message...");
    case row::Sounds:
        return QStringLiteral("New sound...");
    case row::Events:
        return QStringLiteral("New event...");
    case row::Timers:
        return QStringLiteral("New timer...");
    case row::Groups:
        return QStringLiteral("New group...");
    case row::Integers:
        return QStringLiteral("New number...");
    default:
        return {};
    }
}

MadeItem makeArgumentItem(Workspace& workspace, int row, bool eventSlotBusy)
{
    Project& project = workspace.project;
    Prompter& prompter = workspace.prompter;
    int position = -1;
    switch (row) {
    case row::Messages: {
        const QString text = prompter.input(
            QStringLiteral("The text of the new message:"), QStringLiteral("New Message"));
        if (text.isEmpty())
            return {};
        position = AddMessage(project, prompter, text);
        if (position >= 0)
            refreshMessageRow(project);
        break;
    }
    case row::Sounds:
        position = AddSound(project,
            prompter.openFileName(
                QStringLiteral("Open wav file..."), QStringLiteral("Wav files|*.wav")));
        if (position >= 0)
            refreshSoundRow(project);
        break;
    case row::Groups:
        position = NewGroup(project, prompter);
        break;
    case row::Integers:
        position = NewNumber(project, prompter);
        break;
    case row::Timers:
        // The timers row lists the timers in order.
        position = newTimer(project, prompter);
        break;
    case row::Events:
        if (eventSlotBusy) {
            prompter.message(QStringLiteral("Finish or cancel the new event being made before "
                                            "making another one here: it takes the next place "
                                            "in the events list until it is finished."),
                Prompter::Icon::Information);
            return {};
        }
        position = newInactiveEvent(project, prompter);
        break;
    default:
        return {};
    }
    if (position < 0)
        return {};
    return {position, rowText(project, row, position)};
}

} // namespace tarvo
