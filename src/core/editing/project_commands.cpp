#include "editing/project_commands.h"

#include "model/project_file.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

#include <QDir>
#include <QFileInfo>

namespace tarvo {

namespace {

const QString kProgramTitle = QStringLiteral("T.A.R.V.O. - Campaign Script Editor");
const QString kFileFilter = QStringLiteral("Script files|*.vnsc");

void showFailure(Prompter& prompter, const QString& text)
{
    prompter.message(text, Prompter::Icon::Critical);
}

} // namespace

QString windowCaption(const QString& projectName)
{
    if (projectName.isEmpty())
        return kProgramTitle;
    return kProgramTitle + QStringLiteral(" - ") + projectName;
}

void SetProjectName(Workspace& workspace, const QString& name)
{
    Project& project = workspace.project;
    project.name = name;
    if (text::basicTrim(project.filePath).isEmpty())
        project.filePath = workspace.paths.programDir + u'/' + name + QStringLiteral(".vnsc");
}

bool isSafeFolderName(const QString& name)
{
    if (name.trimmed().isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return false;
    return !name.contains(u'/') && !name.contains(u'\\') && !name.contains(QLatin1String(".."));
}

bool createProjectFolder(const ProgramPaths& paths, const QString& name)
{
    if (!isSafeFolderName(name))
        return false;
    return QDir().mkpath(paths.projectsDir() + name);
}

bool CheckProjectName(Workspace& workspace, const QString& candidate)
{
    const QString trimmed = text::basicTrim(candidate);
    if (trimmed.isEmpty())
        return false;
    QString cleaned = text::removeCharacters(trimmed, QStringLiteral("§$%%&/?*<>|.:"));
    cleaned.remove(u'"');
    cleaned.remove(u'\t');
    if (cleaned != trimmed) {
        workspace.prompter.message(
            QStringLiteral("You can't use any special characters in the name of the project."),
            Prompter::Icon::Information);
        return false;
    }
    SetProjectName(workspace, cleaned);
    createProjectFolder(workspace.paths, cleaned);
    return true;
}

QString projectNameFromFile(const QString& filePath)
{
    return text::basicReplace(QFileInfo(filePath).fileName(), QStringLiteral(".vnsc"), QString());
}

bool confirmDiscard(Workspace& workspace)
{
    if (workspace.project.name.isEmpty())
        return true;
    return workspace.prompter.message(
               QStringLiteral("Are you sure? All changes will not be saved."),
               Prompter::Icon::Exclamation, Prompter::Buttons::YesNo)
        != Prompter::Answer::No;
}

bool confirmExit(Workspace& workspace)
{
    if (workspace.project.name.isEmpty())
        return true;
    return workspace.prompter.message(QStringLiteral("Are you sure you want to exit?"),
               Prompter::Icon::Exclamation, Prompter::Buttons::YesNo)
        != Prompter::Answer::No;
}

bool SaveProjectAs(Workspace& workspace)
{
    const QString path = workspace.prompter.saveFileName(QStringLiteral("Save as..."), kFileFilter);
    if (text::basicTrim(QFileInfo(path).fileName()).isEmpty())
        return false;
    if (!CheckProjectName(workspace, projectNameFromFile(path)))
        return false;
    try {
        SaveProject(workspace.project, path);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        return false;
    } catch (const DataError& error) {
        showFailure(workspace.prompter, path + QStringLiteral(": ") + error.sentence());
        return false;
    }
    return true;
}

bool saveProjectCommand(Workspace& workspace)
{
    const Project& project = workspace.project;
    if (project.filePath.size() < 3 || !project.hasFile)
        return SaveProjectAs(workspace);
    try {
        SaveProject(workspace.project, project.filePath);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        return false;
    } catch (const DataError& error) {
        showFailure(workspace.prompter, project.filePath + QStringLiteral(": ") + error.sentence());
        return false;
    }
    return true;
}

bool openProjectFile(Workspace& workspace, const QString& path)
{
    try {
        LoadProject(workspace, path);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        return false;
    } catch (const DataError& error) {
        showFailure(workspace.prompter, path + QStringLiteral(": ") + error.sentence());
        return false;
    }
    SetProjectName(workspace, workspace.project.name);
    createProjectFolder(workspace.paths, workspace.project.name);
    return true;
}

bool newProject(Workspace& workspace)
{
    try {
        ResetProject(workspace);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        return false;
    }
    SetProjectName(workspace, QStringLiteral("Untitled"));
    return true;
}

} // namespace tarvo
