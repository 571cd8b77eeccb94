#include "editing/catalogue_reload.h"

#include "records/reference_list.h"
#include "base/file_error.h"
#include "document/project_file.h"
#include "ui/prompter.h"

#include <QDir>
#include <QTemporaryFile>

namespace tarvo {

namespace {

const QString kNotReloaded = QStringLiteral("The catalogues were not reloaded: ");

// What the project file does not hold, taken over from the project as it was.
void keepUnsavedState(const Project& before, Project& after)
{
    after.name = before.name;
    after.filePath = before.filePath;
    after.hasFile = before.hasFile;
    after.timerListLines = before.timerListLines;
    // The file has no flag table: names given in the variables dialog live
    // only in the row. Flags the new catalogue adds keep its names.
    const ReferenceList& oldFlags = before.tables[row::Flags];
    ReferenceList& flags = after.tables[row::Flags];
    const qsizetype common = std::min({qsizetype(oldFlags.ItemCount), oldFlags.Texts.size(),
        qsizetype(flags.ItemCount), flags.Texts.size()});
    for (qsizetype i = 0; i < common; ++i)
        flags.Texts[i] = oldFlags.Texts.at(i);
}

// The project read back under the new catalogues into `scratch`; the reason
// in `problem` when it cannot be.
bool rebuild(Workspace& workspace, Workspace& scratch, QString& problem)
{
    QByteArray bytes;
    try {
        // The layout that opens: a project with several timers reads back whole.
        bytes = projectFileBytes(workspace.project, TimerLayout::Opening);
    } catch (const DataError& error) {
        problem = kNotReloaded
            + QStringLiteral("the project is rebuilt through its file, which cannot hold it: ")
            + error.sentence();
        return false;
    }
    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/tarvo-reload-XXXXXX.vnsc"));
    if (!file.open() || file.write(bytes) != bytes.size() || !file.flush()) {
        problem = kNotReloaded + QStringLiteral("no room for the project's copy in ")
            + QDir::toNativeSeparators(QDir::tempPath()) + QStringLiteral(": ")
            + file.errorString();
        return false;
    }
    file.close();
    try {
        LoadProject(scratch, file.fileName());
    } catch (const FileError& error) {
        if (error.file() != file.fileName()) {
            problem = kNotReloaded + error.message()
                + QStringLiteral("\n\n\"tarvo-cli check-catalogues\" lists every problem of both "
                                 "catalogues.");
        } else {
            // Kinds the project uses may be gone; a project the format
            // cannot hold as written (two timers) is refused the same way.
            problem = kNotReloaded
                + QStringLiteral("the project cannot be rebuilt under the new catalogues (line %1 "
                                 "of the project as saved: %2).")
                      .arg(error.line())
                      .arg(error.sentence());
        }
        return false;
    } catch (const DataError& error) {
        problem = kNotReloaded + error.sentence();
        return false;
    }
    return true;
}

} // namespace

bool ReloadCatalogues(ProjectDocument& document)
{
    Workspace& workspace = document.workspace();
    const bool modified = document.isModified();
    if (modified
        && workspace.prompter.message(
               QStringLiteral("The project has changes that are not saved. Reloading the "
                              "catalogues rebuilds its conditions and actions from them, and "
                              "the changes can no longer be undone.\n\nReload the catalogues?"),
               Prompter::Icon::Question, Prompter::Buttons::YesNo)
            != Prompter::Answer::Yes)
        return false;
    Workspace scratch(workspace.paths.programDir, workspace.prompter);
    QString problem;
    if (!rebuild(workspace, scratch, problem)) {
        workspace.prompter.message(problem, Prompter::Icon::Critical);
        return false;
    }
    keepUnsavedState(workspace.project, scratch.project);
    workspace.project = std::move(scratch.project);
    workspace.conditionCatalogue = std::move(scratch.conditionCatalogue);
    workspace.actionCatalogue = std::move(scratch.actionCatalogue);
    // The file still holds what the project holds: kinds are stored by index.
    document.projectReplaced(modified);
    return true;
}

} // namespace tarvo
