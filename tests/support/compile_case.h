#pragma once

// The compile cases of tests/data/compile, run by the core runner and through
// tarvo-cli alike. A case folder holds "input", laid over the shared folder
// "program" to make the program folder in which "project.vnsc" is compiled;
// optionally "setup.txt", lines run before the compile with paths relative to
// the program folder, in the step dialect of case_files.h ("remove PATH",
// "link PATH | TARGET", "hardlink PATH | TARGET"); "expected", the projects
// folder afterwards, every file; and "outcome.txt", what the compile reports
// (see Report in the core runner).

#include "case_files.h"
#include "program_folder.h"
#include "test_paths.h"

#include <QDir>
#include <QDirIterator>
#include <QMap>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace compile_case {

inline QString casesDir()
{
    return testDataDir() + QStringLiteral("/compile");
}

inline std::vector<std::string> caseNames()
{
    std::vector<std::string> names;
    for (const QString& name : QDir(casesDir()).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString folder = casesDir() + u'/' + name;
#ifndef Q_OS_UNIX
        // Links are planted only where the file system has them.
        if (readBytes(folder + QStringLiteral("/setup.txt")).contains("link"))
            continue;
#endif
        if (QFileInfo(folder + QStringLiteral("/input")).isDir())
            names.push_back(name.toStdString());
    }
    return names;
}

// Every file below `root` with its bytes, links not followed, leaving out the
// folder `skip`.
inline QMap<QString, QByteArray> filesBelow(const QString& root, const QString& skip = {})
{
    QMap<QString, QByteArray> files;
    QDirIterator it(root, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = QDir(root).relativeFilePath(path);
        if (skip.isEmpty() || !(relative + u'/').startsWith(skip + u'/'))
            files.insert(relative, readBytes(path));
    }
    return files;
}

inline void copyTree(const QString& from, const QString& to)
{
    const QMap<QString, QByteArray> files = filesBelow(from);
    for (auto it = files.begin(); it != files.end(); ++it)
        writeBytes(to + u'/' + it.key(), it.value());
}

// Runs the lines of a case's setup.txt in the program folder `dir`.
inline void runSetup(const QString& dir, const QString& setup)
{
    for (const QString& line : setup.split(u'\n', Qt::SkipEmptyParts)) {
        const CaseStep step = parseStep(line);
        const QString at = dir + u'/' + step.fields.value(0);
        const QString target = dir + u'/' + step.fields.value(1);
        QDir().mkpath(QFileInfo(at).absolutePath());
        bool done = false;
        if (step.word == QLatin1String("remove"))
            done = QFile::remove(at);
        else if (step.word == QLatin1String("link"))
            done = QFile::link(target, at);
#ifdef Q_OS_UNIX
        else if (step.word == QLatin1String("hardlink"))
            done = ::link(QFile::encodeName(target), QFile::encodeName(at)) == 0;
#endif
        EXPECT_TRUE(done) << line.toStdString();
    }
}

class CaseFolder
{
public:
    explicit CaseFolder(const std::string& name)
        : m_case(casesDir() + u'/' + QString::fromStdString(name))
    {
        copyTree(casesDir() + QStringLiteral("/program"), dir());
        copyTree(m_case + QStringLiteral("/input"), dir());
        runSetup(dir(), QString::fromUtf8(readBytes(m_case + QStringLiteral("/setup.txt"))));
    }

    QString dir() const { return m_dir.path(); }
    QString caseDir() const { return m_case; }
    QString project() const { return dir() + QStringLiteral("/project.vnsc"); }
    QString projects() const { return dir() + QStringLiteral("/Projects"); }
    QString expectedOutcome() const
    {
        return QString::fromUtf8(readBytes(m_case + QStringLiteral("/outcome.txt")));
    }
    // Paths in messages as the outcome files write them.
    QString placeheld(QString text) const
    {
        return text.replace(QDir::toNativeSeparators(projects()), QStringLiteral("{projects}"))
            .replace(QDir::toNativeSeparators(dir()), QStringLiteral("{program}"));
    }
    // Everything but the projects folder: no compile may change it.
    QMap<QString, QByteArray> outside() const
    {
        return filesBelow(dir(), QStringLiteral("Projects"));
    }

    void expectProjectsAsExpected() const
    {
        if (qEnvironmentVariableIsSet("TARVO_WRITE_EXPECTED")) {
            QDir(m_case + QStringLiteral("/expected")).removeRecursively();
            copyTree(projects(), m_case + QStringLiteral("/expected"));
        }
        const QMap<QString, QByteArray> expected = filesBelow(m_case + QStringLiteral("/expected"));
        const QMap<QString, QByteArray> actual = filesBelow(projects());
        EXPECT_EQ(
            actual.keys().join(u'\n').toStdString(), expected.keys().join(u'\n').toStdString());
        for (auto it = expected.begin(); it != expected.end(); ++it)
            EXPECT_EQ(actual.value(it.key()), it.value()) << it.key().toStdString();
    }

private:
    QString m_case;
    QTemporaryDir m_dir;
};

} // namespace compile_case
