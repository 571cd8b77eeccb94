#include "variables/variable_commands.h"

#include "catalogue/project_places.h"
#include "catalogue/where_used.h"
#include "document/project_document.h"
#include "records/reference_list.h"
#include "ui/prompter.h"
#include "variables/variable_operations.h"

namespace tarvo {

namespace {

QList<ProjectPlace> usersOf(const Project& project, int table, int position)
{
    const ReferenceList& list = project.tables[size_t(table)];
    if (position < 0 || position >= list.ItemCount || position >= list.Ids.size())
        return {};
    return findReferences(project, table, list.Ids.at(position));
}

void noteUsers(ProjectDocument& document, int table, const QList<ProjectPlace>& users)
{
    if (users.isEmpty())
        return;
    const Project& project = document.project();
    QStringList places;
    for (const ProjectPlace& place : users)
        places.append(describePlace(project, place));
    document.workspace().prompter.note(
        QStringLiteral("The deleted %1 is still named in %2 place(s), which now compile as \"?\" "
                       "(Edit > Undo brings it back): %3")
            .arg(itemKind(project.tables, table))
            .arg(users.size())
            .arg(places.join(QStringLiteral("; "))));
}

template <typename Delete>
bool deleteVariable(
    ProjectDocument& document, const QString& label, int table, int position, Delete remove)
{
    // The users are found while the variable is still there to be found.
    const QList<ProjectPlace> users = usersOf(document.project(), table, position);
    if (!document.edit(label, [&] { return remove(document.project()); }))
        return false;
    noteUsers(document, table, users);
    return true;
}

} // namespace

int NewGroup(ProjectDocument& document)
{
    return document.edit(QStringLiteral("New Group"),
        [&] { return NewGroup(document.project(), document.workspace().prompter); });
}

int NewNumber(ProjectDocument& document)
{
    return document.edit(QStringLiteral("New Number"),
        [&] { return NewNumber(document.project(), document.workspace().prompter); });
}

bool DeleteGroup(ProjectDocument& document, int position)
{
    return deleteVariable(
        document, QStringLiteral("Delete Group"), row::Groups, position, [&](Project& project) {
            return DeleteGroup(project, document.workspace().prompter, position);
        });
}

bool DeleteNumber(ProjectDocument& document, int position)
{
    return deleteVariable(
        document, QStringLiteral("Delete Number"), row::Integers, position, [&](Project& project) {
            return DeleteNumber(project, document.workspace().prompter, position);
        });
}

bool RenameVariable(ProjectDocument& document, int table, int position, const QString& label)
{
    return document.edit(label, [&] {
        return RenameVariable(document.project(), document.workspace().prompter, table, position);
    });
}

void SetFlagValue(ProjectDocument& document, int position, const QString& value)
{
    document.edit(QStringLiteral("Set Flag Value"),
        [&] { SetFlagValue(document.project(), position, value); });
}

bool UpdateNumberValue(ProjectDocument& document, int position, const QString& value)
{
    return document.edit(QStringLiteral("Update Number Value"), [&] {
        return UpdateNumberValue(
            document.project(), document.workspace().prompter, position, value);
    });
}

} // namespace tarvo
