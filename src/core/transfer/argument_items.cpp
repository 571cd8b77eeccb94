#include "transfer/argument_items.h"

#include "document/project_document.h"
#include "editing/new_items.h"
#include "resources/resource_commands.h"
#include "resources/resource_items.h"
#include "ui/prompter.h"
#include "variables/variable_commands.h"

#include <algorithm>

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

MadeItem makeArgumentItem(ProjectDocument& document, int row, bool eventSlotBusy)
{
    Project& project = document.project();
    Prompter& prompter = document.workspace().prompter;
    int position = -1;
    switch (row) {
    case row::Messages: {
        const QString text = prompter.input(
            QStringLiteral("The text of the new message:"), QStringLiteral("New Message"));
        if (text.isEmpty())
            return {};
        position = AddMessage(document, text);
        break;
    }
    case row::Sounds:
        position = AddSound(document,
            prompter.openFileName(
                QStringLiteral("Open wav file..."), QStringLiteral("Wav files|*.wav")));
        break;
    case row::Groups:
        position = NewGroup(document);
        break;
    case row::Integers:
        position = NewNumber(document);
        break;
    case row::Timers:
        // The timers row lists the timers in order.
        position = newTimer(project, prompter);
        break;
    case row::Events:
        position = eventSlotBusy ? newInactiveEventBeforeOneBeingMade(project, prompter)
                                 : newInactiveEvent(project, prompter);
        break;
    default:
        return {};
    }
    if (position < 0)
        return {};
    return {position, rowText(project, row, position)};
}

std::optional<ProjectPlace> argumentTarget(const Project& project, int row, const QString& text)
{
    if (row < 0 || row >= kReferenceRowCount || text.isEmpty())
        return std::nullopt;
    const ReferenceList& list = project.tables[size_t(row)];
    const qsizetype shown = std::min<qsizetype>(list.ItemCount, list.Texts.size());
    const int position = int(list.Texts.mid(0, shown).indexOf(text));
    if (position < 0)
        return std::nullopt;
    using Owner = ProjectPlace::Owner;
    const qint16 id = list.Ids.value(position, -1);
    // Records are found by the ID the row gives: the row may list them in
    // another order than the records (a move refreshes it later).
    const auto byId = [id](const auto& records, qsizetype count) {
        for (qsizetype i = 0; i < std::min(count, records.size()); ++i) {
            if (records.at(i).id == id)
                return int(i);
        }
        return -1;
    };
    ProjectPlace place;
    switch (row) {
    case row::Events:
        place = {Owner::Event, byId(project.events, project.eventCount)};
        break;
    case row::Timers:
        place = {Owner::Timer, byId(project.timers, project.timerCount)};
        break;
    case row::Sounds:
        place = {Owner::Sound, byId(project.sounds, project.soundCount)};
        break;
    case row::Messages:
        place = {Owner::Message, byId(project.messages, project.messageCount)};
        break;
    case row::Flags:
    case row::Groups:
    case row::Integers:
        place = {Owner::Variable, position, row};
        break;
    default:
        return std::nullopt;
    }
    if (place.index < 0)
        return std::nullopt;
    return place;
}

std::optional<ProjectPlace> scriptNameTarget(const Project& project, const QString& word)
{
    if (word.isEmpty())
        return std::nullopt;
    for (const int row : {row::Events, row::Timers, row::Sounds, row::Messages, row::Flags,
             row::Groups, row::Integers}) {
        const ReferenceList& list = project.tables[size_t(row)];
        const qsizetype shown = std::min<qsizetype>(list.ItemCount, list.Texts.size());
        for (qsizetype i = 0; i < shown; ++i) {
            if (list.Codes.value(i) == word || list.RawCodes.value(i) == word)
                return argumentTarget(project, row, list.Texts.at(i));
        }
    }
    return std::nullopt;
}

} // namespace tarvo
