#include "resources/resource_commands.h"

#include "catalogue/project_lists.h"
#include "document/project_document.h"
#include "records/reference_list.h"
#include "resources/resource_items.h"

namespace tarvo {

namespace {

// Runs `change` as one step and rebuilds the row of its kind when it did
// something (`done` reads its result).
template <typename Change, typename Done>
auto withRow(ProjectDocument& document, const QString& label, int row, Change change, Done done)
{
    return document.edit(label, [&] {
        auto result = change(document.project());
        if (done(result)) {
            if (row == row::Sounds)
                refreshSoundRow(document.project());
            else
                refreshMessageRow(document.project());
        }
        return result;
    });
}

// Whether two rows hold the same items. The spare slots behind them (a
// loaded row keeps one more than it holds) are neither shown nor saved.
bool sameItems(const ReferenceList& a, const ReferenceList& b)
{
    if (a.ItemCount != b.ItemCount)
        return false;
    for (int i = 0; i < a.ItemCount; ++i) {
        if (a.Texts.value(i) != b.Texts.value(i) || a.Codes.value(i) != b.Codes.value(i)
            || a.RawCodes.value(i) != b.RawCodes.value(i) || a.Ids.value(i) != b.Ids.value(i))
            return false;
    }
    return true;
}

const auto added = [](int position) { return position >= 0; };
const auto removed = [](const RemovalResult& result) { return result.removed; };

} // namespace

int AddSound(ProjectDocument& document, const QString& fullPath)
{
    return withRow(
        document, QStringLiteral("Add Sound"), row::Sounds,
        [&](Project& project) { return AddSound(project, fullPath); }, added);
}

RemovalResult RemoveSound(ProjectDocument& document, int position)
{
    return withRow(
        document, QStringLiteral("Remove Sound"), row::Sounds,
        [&](Project& project) {
            return RemoveResource(project, document.workspace().prompter, row::Sounds, position);
        },
        removed);
}

int AddMessage(ProjectDocument& document, const QString& text)
{
    return withRow(
        document, QStringLiteral("Add Message"), row::Messages,
        [&](Project& project) { return AddMessage(project, document.workspace().prompter, text); },
        added);
}

bool UpdateMessage(ProjectDocument& document, int position, const QString& text)
{
    return withRow(
        document, QStringLiteral("Update Message"), row::Messages,
        [&](Project& project) {
            return UpdateMessage(project, document.workspace().prompter, position, text);
        },
        [](bool updated) { return updated; });
}

RemovalResult RemoveMessage(ProjectDocument& document, int position)
{
    return withRow(
        document, QStringLiteral("Remove Message"), row::Messages,
        [&](Project& project) {
            return RemoveResource(project, document.workspace().prompter, row::Messages, position);
        },
        removed);
}

void CloseSounds(ProjectDocument& document)
{
    // A row that already holds the sounds is left as it is, spare slots and
    // all, so that closing a dialog that changed nothing makes no step.
    Project refilled = document.project(); // cheap: the records are shared
    refreshSoundRow(refilled);
    const ReferenceList& now = document.project().tables[row::Sounds];
    if (sameItems(now, refilled.tables[row::Sounds]))
        return;
    document.edit(QStringLiteral("Sounds"), [&] { refreshSoundRow(document.project()); });
}

} // namespace tarvo
