#pragma once

// A program folder of its own for each test: a golden case's catalogues and
// project, the shared test templates in "Source", and tiny generated wav
// files, all in a temporary folder that the compile may write into.

#include "compile/compile_command.h"
#include "model/project_file.h"
#include "model/workspace.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace compile_test {

inline QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "<missing " + path.toUtf8() + ">";
    return file.readAll();
}

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

// A valid PCM wav: the 44-byte header and `samples` 8-bit samples, each file
// different through `seed`.
inline QByteArray tinyWav(int samples, char seed)
{
    auto le32 = [](quint32 v) {
        const char bytes[] = {
            char(v & 0xff), char((v >> 8) & 0xff), char((v >> 16) & 0xff), char((v >> 24) & 0xff)};
        return QByteArray(bytes, 4);
    };
    auto le16 = [](quint16 v) {
        const char bytes[] = {char(v & 0xff), char(v >> 8)};
        return QByteArray(bytes, 2);
    };
    QByteArray data;
    for (int i = 0; i < samples; ++i)
        data.append(char(seed + i));
    return QByteArray("RIFF") + le32(36 + samples) + "WAVEfmt " + le32(16) + le16(1) + le16(1)
        + le32(8000) + le32(8000) + le16(1) + le16(8) + "data" + le32(samples) + data;
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

// Every file below `root`, relative and sorted.
inline QStringList filesBelow(const QString& root)
{
    QStringList files;
    QDirIterator it(root, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext())
        files.append(QDir(root).relativeFilePath(it.next()));
    files.sort();
    return files;
}

class ProgramFolder
{
public:
    // `goldenCase` names a folder of tests/data/compile whose "input" is
    // copied in; empty for a folder with only the templates.
    explicit ProgramFolder(const QString& goldenCase = QString())
    {
        copyTree(testDataDir() + QStringLiteral("/compile/Source"), sourceDir());
        if (!goldenCase.isEmpty())
            copyTree(caseDir(goldenCase) + QStringLiteral("/input"), dir());
        writeBytes(dir() + QStringLiteral("/sounds/boom.wav"), tinyWav(6, 'a'));
        writeBytes(dir() + QStringLiteral("/sounds/Wind.WAV"), tinyWav(9, 'k'));
    }

    static QString caseDir(const QString& goldenCase)
    {
        return testDataDir() + QStringLiteral("/compile/") + goldenCase;
    }

    QString dir() const { return m_dir.path(); }
    QString sourceDir() const { return dir() + QStringLiteral("/Source"); }
    QString projects() const { return dir() + QStringLiteral("/Projects"); }
    QString root(const QString& name) const { return projects() + u'/' + name; }

private:
    QTemporaryDir m_dir;
};

// A workspace on a program folder, loaded from one of its project files.
struct LoadedWorkspace
{
    LoadedWorkspace(const ProgramFolder& folder, const QString& projectFile)
        : workspace(folder.dir(), prompter)
    {
        tarvo::LoadProject(workspace, folder.dir() + u'/' + projectFile);
        prompter.clear();
    }

    ScriptedPrompter prompter;
    tarvo::Workspace workspace;
};

inline tarvo::CompileOptions noPacker()
{
    tarvo::CompileOptions options;
    options.runPacker = false;
    return options;
}

} // namespace compile_test
