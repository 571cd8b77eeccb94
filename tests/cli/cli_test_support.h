#pragma once

// Helpers shared by the command-line tests: running a program and looking
// into the archives the packer writes.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QString>
#include <QStringList>

namespace cli_test {

struct ProgramRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

inline ProgramRun runProgram(
    const QString& program, const QStringList& args, const QString& workingDir = {})
{
    QProcess process;
    if (!workingDir.isEmpty())
        process.setWorkingDirectory(workingDir);
    process.start(program, args);
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
        QString::fromLocal8Bit(process.readAllStandardOutput()),
        QString::fromLocal8Bit(process.readAllStandardError())};
}

inline void copyTree(const QString& from, const QString& to)
{
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + u'/' + QDir(from).relativeFilePath(path);
        QDir().mkpath(QFileInfo(target).absolutePath());
        QFile::remove(target);
        QFile::copy(path, target);
    }
}

inline QStringList filesBelow(const QString& root)
{
    QStringList files;
    QDirIterator it(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(QDir(root).relativeFilePath(it.next()));
    files.sort();
    return files;
}

// The entry names of a zip archive, sorted, after unzip has tested every
// entry's checksum; empty when the archive is not valid.
inline QStringList archiveEntries(const QString& archive)
{
    const QString unzip = QStandardPaths::findExecutable("unzip");
    if (unzip.isEmpty())
        return {"<unzip is not installed>"};
    if (runProgram(unzip, {"-tqq", archive}).exitCode != 0)
        return {};
    QStringList names = runProgram(unzip, {"-Z1", archive}).out.split(u'\n', Qt::SkipEmptyParts);
    names.sort();
    return names;
}

inline QByteArray archiveEntry(const QString& archive, const QString& name)
{
    QProcess process;
    process.start("unzip", {"-p", archive, name});
    process.waitForFinished(60000);
    return process.readAllStandardOutput();
}

} // namespace cli_test
