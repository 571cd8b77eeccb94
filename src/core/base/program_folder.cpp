#include "base/program_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

namespace tarvo {

namespace {

const QString kConditionCatalogue = QStringLiteral("temp.txt");
const QString kActionCatalogue = QStringLiteral("temp2.txt");
const QString kSource = QStringLiteral("Source");
// Where the install rules put the data, seen from the installed executables.
const QString kInstalledData = QStringLiteral("../share/tarvo");

QString native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

QString noteFor(const QString& dir, const QString& why)
{
    return QStringLiteral("Program folder: %1 (%2).").arg(native(dir), why);
}

bool holdsCatalogues(const QString& dir)
{
    const QDir folder(dir);
    return QFileInfo(folder.filePath(kConditionCatalogue)).isFile()
        && QFileInfo(folder.filePath(kActionCatalogue)).isFile();
}

// Keeps the permissions, so the packer stays executable, and makes the copy
// writable for its new owner even when the installed file was not (recent Qt
// versions do that in QFile::copy, older ones copied the mode as it was).
QString copyFile(const QString& from, const QString& to)
{
    // QFile::copy renames a finished temporary file into place, so a file that
    // is there is whole: one left by a copy that stopped half-way is kept.
    if (QFileInfo::exists(to))
        return {};
    QFile source(from);
    if (!QDir().mkpath(QFileInfo(to).absolutePath()) || !source.copy(to))
        return QStringLiteral("%1: %2").arg(native(to), source.errorString());
    QFile::setPermissions(
        to, source.permissions() | QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return {};
}

// The catalogues come last: a folder that holds them is a finished copy.
QString copyProgramFolder(const QString& from, const QString& to)
{
    const QDir source(from);
    const QDir target(to);
    if (!QDir().mkpath(target.filePath(kSource)))
        return QStringLiteral("cannot create %1").arg(native(target.filePath(kSource)));
    QDirIterator it(
        source.filePath(kSource), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        if (QString error = copyFile(path, target.filePath(source.relativeFilePath(path)));
            !error.isEmpty())
            return error;
    }
    for (const QString& name : {kActionCatalogue, kConditionCatalogue}) {
        if (QString error = copyFile(source.filePath(name), target.filePath(name));
            !error.isEmpty())
            return error;
    }
    return {};
}

} // namespace

bool canCreateFilesIn(const QString& dir)
{
    QTemporaryFile probe(QDir(dir).filePath(QStringLiteral(".tarvo-write-test-XXXXXX")));
    return probe.open();
}

ProgramFolderSearch applicationProgramFolderSearch(const QString& overrideDir)
{
    ProgramFolderSearch search;
    search.executableDir = QCoreApplication::applicationDirPath();
    search.overrideDir = overrideDir;
    // Both programs are called "tarvo" here, so they share one copy.
    search.userDataDir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    search.isWritable = canCreateFilesIn;
    return search;
}

ProgramFolder findProgramFolder(const ProgramFolderSearch& search)
{
    if (!search.overrideDir.isEmpty()) {
        const QString dir = QDir::cleanPath(QDir(search.overrideDir).absolutePath());
        return {dir, noteFor(dir, QStringLiteral("given by --program-dir"))};
    }
    const QString besideExecutable = QDir::cleanPath(QDir(search.executableDir).absolutePath());
    const QString installed = QDir::cleanPath(QDir(besideExecutable).filePath(kInstalledData));
    QString found;
    QString why;
    if (holdsCatalogues(besideExecutable)) {
        found = besideExecutable;
        why = QStringLiteral("beside the executable");
    } else if (holdsCatalogues(installed)) {
        found = installed;
        why = QStringLiteral("the installed data");
    } else {
        // As before there was an install: the catalogue loader names what is missing.
        return {besideExecutable,
            noteFor(besideExecutable,
                QStringLiteral("no catalogues were found there nor in %1").arg(native(installed)))};
    }

    const auto isWritable = search.isWritable ? search.isWritable : canCreateFilesIn;
    if (isWritable(found))
        return {found, noteFor(found, why)};
    if (search.userDataDir.isEmpty())
        return {found, noteFor(found, why + QStringLiteral(", read-only; no per-user folder"))};
    const QString copy = QDir::cleanPath(search.userDataDir);
    if (holdsCatalogues(copy))
        return {copy,
            noteFor(copy,
                QStringLiteral("the per-user copy, as %1 cannot be written").arg(native(found)))};
    if (!search.copyAllowed)
        return {copy,
            noteFor(copy,
                QStringLiteral("a per-user copy of %1, made on first start, as that folder "
                               "cannot be written")
                    .arg(native(found)))};
    if (const QString error = copyProgramFolder(found, copy); !error.isEmpty())
        return {found,
            noteFor(found,
                why
                    + QStringLiteral(", read-only; copying it to %1 failed: %2")
                          .arg(native(copy), error))};
    return {copy,
        noteFor(copy,
            QStringLiteral("a per-user copy of %1, made just now, as that folder cannot be written")
                .arg(native(found))),
        true};
}

} // namespace tarvo
