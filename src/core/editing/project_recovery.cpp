#include "editing/project_recovery.h"

#include "editing/project_commands.h"
#include "model/project_document.h"
#include "model/project_file.h"
#include "ui/prompter.h"

#include <QDir>
#include <QLocale>

namespace tarvo {

namespace {

// Copies of two editors on one file would differ only in time without the
// file's name.
std::pair<QString, QString> nameAndFile(const RecoveryStore::Copy& copy)
{
    const QString name
        = copy.projectName.isEmpty() ? QStringLiteral("(no name)") : copy.projectName;
    const QString file = copy.projectFile.isEmpty()
        ? QStringLiteral("never saved")
        : QStringLiteral("file \"%1\"").arg(QDir::toNativeSeparators(copy.projectFile));
    return {name, file};
}

QString described(const RecoveryStore::Copy& copy)
{
    const auto [name, file] = nameAndFile(copy);
    return QStringLiteral("\"%1\" (%2), written on %3")
        .arg(name, file, QLocale().toString(copy.written, QLocale::ShortFormat));
}

QString question(const RecoveryStore::Copy& copy)
{
    const auto [name, file] = nameAndFile(copy);
    return QStringLiteral("The editor ended before the project \"%1\" (%2) was saved. A recovery "
                          "copy written on %3 was kept.\n\nRestore it? If you answer No, the "
                          "recovery copy is deleted.")
        .arg(name, file, QLocale().toString(copy.written, QLocale::ShortFormat));
}

// Several copies (editors that ended together) are offered in one list.
bool offerList(
    ProjectDocument& document, RecoveryStore& store, const QList<RecoveryStore::Copy>& copies)
{
    Prompter& prompter = document.workspace().prompter;
    QString text = QStringLiteral("Editors ended before these projects were saved; their recovery "
                                  "copies were kept:\n");
    for (qsizetype i = 0; i < copies.size(); ++i)
        text += QStringLiteral("\n%1. %2").arg(i + 1).arg(described(copies.at(i)));
    text += QStringLiteral("\n\nType the number of the copy to restore (the others are offered "
                           "again at the next start), or 0 to delete them all.");
    const QString answer
        = prompter.input(text, QStringLiteral("Recovery copies"), QStringLiteral("1"));
    bool isNumber = false;
    const int chosen = answer.trimmed().toInt(&isNumber);
    if (!isNumber || chosen < 0 || chosen > copies.size())
        return false;
    if (chosen == 0) {
        for (const RecoveryStore::Copy& copy : copies)
            store.remove(copy);
        return false;
    }
    return restoreRecoveryCopy(document, store, copies.at(chosen - 1));
}

} // namespace

bool restoreRecoveryCopy(
    ProjectDocument& document, RecoveryStore& store, const RecoveryStore::Copy& copy)
{
    Workspace& workspace = document.workspace();
    try {
        LoadProject(workspace, store.projectPath(copy));
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
    store.adopt(copy);
    return true;
}

bool offerRecovery(ProjectDocument& document, RecoveryStore& store)
{
    Prompter& prompter = document.workspace().prompter;
    const QList<RecoveryStore::Copy> copies = store.orphans();
    if (copies.size() > 1)
        return offerList(document, store, copies);
    for (const RecoveryStore::Copy& copy : copies) {
        if (prompter.message(question(copy), Prompter::Icon::Question, Prompter::Buttons::YesNo)
            == Prompter::Answer::Yes)
            return restoreRecoveryCopy(document, store, copy);
        store.remove(copy);
    }
    return false;
}

} // namespace tarvo
