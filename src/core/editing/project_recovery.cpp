#include "editing/project_recovery.h"

#include "editing/project_commands.h"
#include "model/project_document.h"
#include "model/project_file.h"
#include "ui/prompter.h"

#include <QLocale>

namespace tarvo {

namespace {

QString question(const RecoveryStore::Copy& copy)
{
    const QString name
        = copy.projectName.isEmpty() ? QStringLiteral("(no name)") : copy.projectName;
    return QStringLiteral("The editor ended before the project \"%1\" was saved. A recovery copy "
                          "written on %2 was kept.\n\nRestore it? If you answer No, the recovery "
                          "copy is deleted.")
        .arg(name, QLocale().toString(copy.written, QLocale::ShortFormat));
}

// A copy of ours opened as work no file holds yet: shown as modified and
// without a file, so that Save asks where to write.
bool openAsUnsavedWork(ProjectDocument& document, const QString& copyPath)
{
    Workspace& workspace = document.workspace();
    try {
        LoadProject(workspace, copyPath);
    } catch (const FileError& error) {
        workspace.prompter.message(error.message(), Prompter::Icon::Critical);
        document.projectReplaced();
        return false;
    }
    Project& project = workspace.project;
    project.hasFile = false;
    project.filePath.clear();
    SetProjectName(workspace, project.name);
    createProjectFolder(workspace.paths, project.name);
    document.projectReplaced(true);
    return true;
}

} // namespace

bool restoreRecoveryCopy(
    ProjectDocument& document, RecoveryStore& store, const RecoveryStore::Copy& copy)
{
    if (!openAsUnsavedWork(document, store.projectPath(copy)))
        return false;
    store.adopt(copy);
    return true;
}

void keepDiscardedWork(const ProjectDocument& document, const DiscardedWork& discarded)
{
    if (!document.isModified())
        return;
    try {
        discarded.keep(document.project());
    } catch (const FileError& error) {
        document.workspace().prompter.addStatusLine(QStringLiteral("error"), error.message());
    }
}

bool recoverDiscardedWork(ProjectDocument& document, const DiscardedWork& discarded)
{
    Workspace& workspace = document.workspace();
    const QList<DiscardedWork::Entry> entries = discarded.entries();
    if (entries.isEmpty()) {
        workspace.prompter.message(QStringLiteral("No discarded work was kept in the last %1 days.")
                                       .arg(DiscardedWork::kKeptDays),
            Prompter::Icon::Information);
        return false;
    }
    QStringList items;
    for (const DiscardedWork::Entry& entry : entries) {
        const QString name
            = entry.projectName.isEmpty() ? QStringLiteral("(no name)") : entry.projectName;
        items.append(
            QStringLiteral("%1 - discarded %2%3")
                .arg(name, QLocale().toString(entry.discarded, QLocale::ShortFormat),
                    entry.projectFile.isEmpty() ? QString()
                                                : QStringLiteral(" (") + entry.projectFile + u')'));
    }
    const int chosen = workspace.prompter.chooseItem(
        QStringLiteral("Work given up without saving in the last %1 days. Open which?")
            .arg(DiscardedWork::kKeptDays),
        QStringLiteral("Recover Discarded Work"), items);
    if (chosen < 0 || chosen >= entries.size())
        return false;
    const DiscardedWork::Entry& entry = entries.at(chosen);
    if (!openAsUnsavedWork(document, discarded.projectPath(entry)))
        return false;
    discarded.remove(entry);
    return true;
}

bool offerRecovery(ProjectDocument& document, RecoveryStore& store)
{
    Prompter& prompter = document.workspace().prompter;
    for (const RecoveryStore::Copy& copy : store.orphans()) {
        if (prompter.message(question(copy), Prompter::Icon::Question, Prompter::Buttons::YesNo)
            == Prompter::Answer::Yes)
            return restoreRecoveryCopy(document, store, copy);
        store.remove(copy);
    }
    return false;
}

} // namespace tarvo
