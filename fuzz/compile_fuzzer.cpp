// Any bytes as a project file, then the compile, as `tarvo-cli compile
// --no-pack` and the editor's Script > Compile run it (the editor also
// compiles what a failed load left). The compile either refuses or writes
// its tree; it never throws, and nothing outside the output root changes:
// files planted beside it keep their bytes and no new file appears there.
#include "compile/compile_command.h"
#include "fuzz_support.h"
#include "model/project_file.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

using namespace tarvo;

const QByteArray kPlanted = "planted beside the output root\r\n";

struct Layout
{
    fuzz::Scratch scratch;
    QString program;
    QString projects;
    QStringList planted;
    QSet<QString> before;
};

QSet<QString> filesBelow(const QString& dir)
{
    QSet<QString> files;
    QDirIterator it(dir, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
        QDirIterator::Subdirectories);
    while (it.hasNext())
        files.insert(it.next());
    return files;
}

Layout& layout()
{
    static Layout made = [] {
        Layout l;
        l.program = l.scratch.dir() + QStringLiteral("/program");
        l.projects = l.program + QStringLiteral("/Projects");
        QDir().mkpath(l.projects + QStringLiteral("/Neighbour"));
        QDir().mkpath(l.program + QStringLiteral("/Source"));
        for (const QString& name : {QStringLiteral("temp.txt"), QStringLiteral("temp2.txt")})
            QFile::copy(fuzz::fixtureDir() + u'/' + name, l.program + u'/' + name);
        const QDir templates(QStringLiteral(TARVO_FUZZ_TEMPLATE_DIR));
        for (const QString& name : templates.entryList(QDir::Files))
            QFile::copy(templates.filePath(name), l.program + QStringLiteral("/Source/") + name);
        l.planted = {l.scratch.dir() + QStringLiteral("/outside.txt"),
            l.program + QStringLiteral("/victim.txt"),
            l.projects + QStringLiteral("/Neighbour/keep.txt"),
            l.projects + QStringLiteral("/keep.vlo")};
        for (const QString& path : l.planted)
            l.scratch.write(QDir(l.scratch.dir()).relativeFilePath(path), kPlanted);
        l.before = filesBelow(l.scratch.dir());
        return l;
    }();
    return made;
}

[[noreturn]] void escape(const QString& what)
{
    std::fprintf(stderr, "compile escaped its output root: %s\n", qPrintable(what));
    std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Layout& l = layout();
    const QString path = l.scratch.write(QStringLiteral("input.vnsc"), data, size);
    fuzz::SilentPrompter prompter;
    Workspace workspace(l.program, prompter);
    try {
        LoadProject(workspace, path);
    } catch (const FileError&) {
    }
    CompileOptions options;
    options.runPacker = false;
    options.announce = false;
    const CompileOutcome outcome = CompileProject(workspace, options);

    const QString root = outcome.done() ? QDir::cleanPath(outcome.outputRoot) + u'/' : QString();
    for (const QString& file : filesBelow(l.scratch.dir())) {
        if (l.before.contains(file) || file.endsWith(QLatin1String("/input.vnsc")))
            continue;
        if (root.isEmpty() || !(file + u'/').startsWith(root))
            escape(file);
    }
    for (const QString& planted : l.planted) {
        QFile file(planted);
        if (!file.open(QIODevice::ReadOnly) || file.readAll() != kPlanted)
            escape(planted);
    }
    // The next input starts from the planted layout again: whatever the
    // compile made goes, deepest first.
    QStringList made;
    for (const QString& file : filesBelow(l.scratch.dir())) {
        if (!l.before.contains(file))
            made.append(file);
    }
    std::sort(made.begin(), made.end(),
        [](const QString& a, const QString& b) { return a.size() > b.size(); });
    for (const QString& file : made) {
        if (!QFile::remove(file))
            QDir().rmdir(file);
    }
    return 0;
}
