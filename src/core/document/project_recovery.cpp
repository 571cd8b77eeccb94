#include "document/project_recovery.h"

#include "document/project_commands.h"
#include "document/project_document.h"
#include "document/project_file.h"
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
