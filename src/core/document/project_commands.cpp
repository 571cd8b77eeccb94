#include "document/project_commands.h"

#include "catalogue/catalogue_ends.h"
#include "catalogue/side_names.h"
#include "document/project_file.h"
#include "document/project_file_probe.h"
#include "text/basic_text.h"
#include "ui/prompter.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopeGuard>
#include <optional>

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
    return kProgramTitle + QStringLiteral(" - ") + projectName;
}

void SetProjectName(Workspace& workspace, const QString& name)
{
    Project& project = workspace.project;
    project.name = name;
    workspace.caption = windowCaption(name);
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

// Beyond the special characters above: the name becomes a folder and is
// passed to the command shell that runs the batch file. Windows opens a
// device for a folder named CON or COM1, and its shell reads ^ and ! inside
// a command line.
static QString reservedNameProblem(const QString& name)
{
    if (name.contains(u'^') || name.contains(u'!'))
        return QStringLiteral("You can't use the characters ^ and ! in the name of the project.");
    static const QRegularExpression device(QStringLiteral("^(CON|PRN|AUX|NUL|COM[1-9]|LPT[1-9])$"),
        QRegularExpression::CaseInsensitiveOption);
    if (device.match(name).hasMatch())
        return QStringLiteral("\"%1\" names a device on Windows and can't be the name of the "
                              "project.")
            .arg(name);
    return {};
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
    if (const QString problem = reservedNameProblem(cleaned); !problem.isEmpty()) {
        workspace.prompter.message(problem, Prompter::Icon::Information);
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

void saveDocument(ProjectDocument& document, const QString& path, TimerLayout layout)
{
    SaveProject(document.project(), path, layout);
    document.markSaved();
    document.setFileStamp(fileStampOf(path));
    // The project is saved; names kept beside it are a help, not a condition.
    try {
        writeSideNames(document.project(), document.workspace().catalogueRows, path);
    } catch (const FileError& error) {
        document.workspace().prompter.addStatusLine(QStringLiteral("warning"), error.message());
    }
}

std::optional<TimerLayout> askTimerLayout(Workspace& workspace)
{
    const QString reason = wouldNotOpenReason(workspace.project);
    if (reason.isEmpty())
        return TimerLayout::AsWritten;
    const int answer = workspace.prompter.choose(reason
            + QStringLiteral("\n\nSave it so that it opens (a \"<ti>\" line before each timer), "
                             "or as is?"),
        {QStringLiteral("Save so that it opens"), QStringLiteral("Save as is"),
            QStringLiteral("Cancel")});
    if (answer == 0)
        return TimerLayout::Opening;
    if (answer == 1)
        return TimerLayout::AsWritten;
    return std::nullopt;
}

bool SaveProjectAs(ProjectDocument& document)
{
    const auto told = qScopeGuard([&] { document.noteIdentity(); });
    Workspace& workspace = document.workspace();
    // Asked before the file dialog, so that Cancel leaves even the name alone.
    const std::optional<TimerLayout> layout = askTimerLayout(workspace);
    if (!layout)
        return false;
    const QString path = workspace.prompter.saveFileName(QStringLiteral("Save as..."), kFileFilter);
    if (text::basicTrim(QFileInfo(path).fileName()).isEmpty())
        return false;
    if (!CheckProjectName(workspace, projectNameFromFile(path)))
        return false;
    try {
        saveDocument(document, path, *layout);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        return false;
    }
    return true;
}

// Another editor (or a checkout) may have written the file since this one
// read or saved it; writing over it unasked would lose that update. Returns
// nothing when Save may go on as usual, otherwise what the command returns.
static std::optional<bool> confirmChangedOnDisk(ProjectDocument& document)
{
    const QString path = document.project().filePath;
    const FileStamp& known = document.fileStamp();
    if (!known.exists || fileStampOf(path) == known)
        return std::nullopt;
    Prompter& prompter = document.workspace().prompter;
    const QString file = QDir::toNativeSeparators(path);
    if (prompter.message(QStringLiteral("The file \"%1\" was changed on disk after this editor "
                                        "opened or saved it, perhaps by another editor.\n\nWrite "
                                        "this project over it? If you answer No, you can reload "
                                        "the file or save this project elsewhere.")
                             .arg(file),
            Prompter::Icon::Exclamation, Prompter::Buttons::YesNo)
        == Prompter::Answer::Yes)
        return std::nullopt;
    if (prompter.message(QStringLiteral("Reload \"%1\" as it is on disk? The changes made here "
                                        "are lost. If you answer No, this project is saved "
                                        "under another name.")
                             .arg(file),
            Prompter::Icon::Question, Prompter::Buttons::YesNo)
        == Prompter::Answer::Yes) {
        openProjectFile(document, path);
        return false;
    }
    return SaveProjectAs(document);
}

bool saveProjectCommand(ProjectDocument& document)
{
    const auto told = qScopeGuard([&] { document.noteIdentity(); });
    const Project& project = document.project();
    if (project.filePath.size() < 3 || !project.hasFile)
        return SaveProjectAs(document);
    if (const std::optional<bool> goOn = confirmChangedOnDisk(document); goOn.has_value())
        return *goOn;
    Prompter& prompter = document.workspace().prompter;
    const std::optional<TimerLayout> layout = askTimerLayout(document.workspace());
    if (!layout)
        return false;
    try {
        saveDocument(document, project.filePath, *layout);
    } catch (const FileError& error) {
        showFailure(prompter, error.message());
        if (prompter.message(QStringLiteral("The project was not saved. Save it somewhere else?"),
                Prompter::Icon::Question, Prompter::Buttons::YesNo)
            == Prompter::Answer::Yes)
            return SaveProjectAs(document);
        return false;
    }
    return true;
}

namespace {

// A project read from a file that must not be written over (a damaged or
// converted one): named as read, without a file, shown as modified.
OpenResult openedWithoutFile(ProjectDocument& document, QList<FileError> notes)
{
    Workspace& workspace = document.workspace();
    workspace.project.filePath.clear();
    workspace.project.hasFile = false;
    SetProjectName(workspace, workspace.project.name);
    createProjectFolder(workspace.paths, workspace.project.name);
    document.projectReplaced(true);
    return {true, std::move(notes)};
}

// After the format's own error: offers to read what can be read.
OpenResult offerRepair(ProjectDocument& document, const QString& path)
{
    Workspace& workspace = document.workspace();
    const QString question = QStringLiteral(
        "Open what can be read of it? Every readable record is kept and each problem is listed "
        "with its line. The project will have no file: Save asks where to write it, and this "
        "file stays as it is.");
    if (workspace.prompter.message(question, Prompter::Icon::Question, Prompter::Buttons::YesNo)
        == Prompter::Answer::Yes) {
        try {
            return openedWithoutFile(document, RepairProject(workspace, path));
        } catch (const FileError& error) {
            showFailure(workspace.prompter, error.message());
        }
    }
    document.projectReplaced();
    return {};
}

} // namespace

OpenResult openProjectFile(ProjectDocument& document, const QString& path)
{
    Workspace& workspace = document.workspace();
    // Files that are no project file in the code page are found before the
    // open project is replaced, so that it stays when they are refused.
    // A file that cannot be read at all fails below as it always has.
    ProjectFileProbe probe;
    probe.hasProjectLines = true;
    bool probed = false;
    try {
        probe = probeProjectFile(path);
        probed = true;
    } catch (const FileError&) {
    }
    if (!probe.hasProjectLines) {
        showFailure(workspace.prompter,
            path + QStringLiteral(": ") + noProjectLinesSentence()
                + QStringLiteral(". It was not opened."));
        return {false, {}, false};
    }
    if (probe.encoding != text::FileEncoding::CodePage) {
        const QString question = path + QStringLiteral(": ") + encodingSentence(probe.encoding)
            + QStringLiteral(".\n\nRead it converted? The converted project has no file: Save "
                             "asks where to write it, and this file stays as it is.");
        if (workspace.prompter.message(question, Prompter::Icon::Question, Prompter::Buttons::YesNo)
            != Prompter::Answer::Yes)
            return {false, {}, false};
        try {
            QList<FileError> notes = readProjectText(workspace, path, probe.text, LoadMode::Strict);
            return openedWithoutFile(document, std::move(notes));
        } catch (const FileError& error) {
            showFailure(workspace.prompter, error.message());
            return offerRepair(document, path);
        }
    }
    // The stamp of the bytes just read, which the project is read from.
    const FileStamp stamp = probed ? stampOf(probe) : FileStamp {};
    probe.bytes = {};
    QList<FileError> notes;
    try {
        // The probe has read the file in the code page already: a large
        // project is not read and decoded twice.
        notes = probed ? readProjectText(workspace, path, probe.text, LoadMode::Strict)
                       : LoadProject(workspace, path);
    } catch (const FileError& error) {
        showFailure(workspace.prompter, blameCutCatalogue(workspace, error).message());
        return offerRepair(document, path);
    } catch (const DataError& error) {
        showFailure(workspace.prompter, path + QStringLiteral(": ") + error.sentence());
        return offerRepair(document, path);
    }
    notes += readSideNames(workspace.project, path);
    SetProjectName(workspace, workspace.project.name);
    createProjectFolder(workspace.paths, workspace.project.name);
    // A record the file ended inside is not in the project: Save must not
    // make that loss permanent without the author seeing it.
    document.projectReplaced(!notes.isEmpty());
    document.setFileStamp(probed ? stamp : fileStampOf(path));
    return {true, std::move(notes)};
}

bool newProject(ProjectDocument& document)
{
    Workspace& workspace = document.workspace();
    bool created = true;
    try {
        ResetProject(workspace);
        SetProjectName(workspace, QStringLiteral("Untitled"));
    } catch (const FileError& error) {
        showFailure(workspace.prompter, error.message());
        created = false;
    }
    document.projectReplaced();
    return created;
}

} // namespace tarvo
