#include "resources/resource_removal.h"

#include "catalogue/project_places.h"
#include "catalogue/reference_markers.h"
#include "base/checked.h"
#include "base/file_error.h"
#include "ui/prompter.h"

namespace tarvo {

namespace {

// The same test IdOfReference makes before it reads a number: without it an
// empty or plain value would read as ID 0 and seem to name the first item.
bool holdsReference(const QString& value)
{
    return value.size() >= 7 && value.contains(u'$') && value.contains(u'&')
        && value.contains(QChar(0x00A7));
}

qint16 itemId(const Project& project, int row, int position)
{
    if (row == row::Sounds)
        return at(project.sounds, position, "sounds").id;
    return at(project.messages, position, "messages").id;
}

qint16 itemCount(const Project& project, int row)
{
    return row == row::Sounds ? project.soundCount : project.messageCount;
}

QString usageQuestion(int row, const QString& eventName, const QString& actionTitle)
{
    const QString what
        = row == row::Sounds ? QStringLiteral("This sound") : QStringLiteral("This message");
    return what + QStringLiteral(" is being used by event ('") + eventName + QStringLiteral("->")
        + actionTitle + QStringLiteral("'), are you sure you want to delete it?");
}

template <typename Records> void removeRecord(Records& records, qint16& count, int position)
{
    records.removeAt(position);
    count = static_cast<qint16>(count - 1);
}

} // namespace

QList<ArgumentLocation> argumentsReferringTo(const Project& project, int row, qint16 id)
{
    QList<ArgumentLocation> found;
    forEachArgument(project, [&](const ArgumentValue& argument) {
        if (argument.place.part == ProjectPlace::Part::Action && argument.row == row
            && holdsReference(argument.value) && IdOfReference(argument.value) == id)
            found.append({argument.place.index, argument.place.item, argument.place.argument});
    });
    return found;
}

int selectionAfterRemoval(int position, int count)
{
    if (position >= 0 && position < count)
        return position;
    return count > 0 ? count - 1 : -1;
}

RemovalResult RemoveResource(Project& project, Prompter& prompter, int row, int position)
{
    if (row != row::Sounds && row != row::Messages)
        throw DataError(QStringLiteral("list row %1 holds neither sounds nor messages").arg(row));
    if (position < 0 || position >= itemCount(project, row)) {
        prompter.beep();
        return {};
    }

    const QList<ArgumentLocation> users
        = argumentsReferringTo(project, row, itemId(project, row, position));
    if (!users.isEmpty()) {
        const ArgumentLocation& first = users.first();
        const EventRecord& event = project.events.at(first.event);
        const QString question
            = usageQuestion(row, event.name, event.actions.at(first.action).Title);
        if (prompter.message(question, Prompter::Icon::None, Prompter::Buttons::YesNo)
            != Prompter::Answer::Yes)
            return {};
        // From now on the argument offers no list and takes free text.
        for (const ArgumentLocation& where : users) {
            ArgumentRecord& argument
                = project.events[where.event].actions[where.action].Args[where.argument];
            argument.ListRef = -1;
            argument.Value.clear();
        }
    }

    if (row == row::Sounds)
        removeRecord(project.sounds, project.soundCount, position);
    else
        removeRecord(project.messages, project.messageCount, position);
    return {true, selectionAfterRemoval(position, itemCount(project, row))};
}

} // namespace tarvo
