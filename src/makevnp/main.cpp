// The packer started by "Compile.bat" in a project's output folder: packs the
// files that the resource lists in "vnr" name into <folder name>.vnp.

#include "base/file_error.h"
#include "resource_list_reader.h"
#include "vnp_archive.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <cstdio>

namespace {

void printLine(FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", text.toLocal8Bit().constData());
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    const QStringList args = app.arguments();
    if (args.size() > 2) {
        printLine(stderr, QStringLiteral("usage: MakeVNP.exe [OUTPUT-FOLDER]"));
        return 2;
    }
    const QString root = QDir(args.size() == 2 ? args[1] : QDir::currentPath()).absolutePath();

    const QStringList lists = makevnp::resourceListsIn(root);
    if (lists.isEmpty()) {
        printLine(stderr,
            QStringLiteral("MakeVNP: no resource lists in \"%1\"")
                .arg(QDir::toNativeSeparators(root + QStringLiteral("/vnr"))));
        return 1;
    }
    makevnp::ListedFiles listed;
    try {
        for (const QString& list : lists)
            makevnp::readResourceList(list, listed);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, QStringLiteral("MakeVNP: ") + error.message());
        return 1;
    }
    for (const QString& file : std::as_const(listed.files)) {
        if (!QFileInfo(root + u'/' + file).isFile())
            listed.problems.append(QStringLiteral("missing file \"%1\"").arg(file));
    }
    if (!listed.problems.isEmpty()) {
        for (const QString& problem : std::as_const(listed.problems))
            printLine(stderr, QStringLiteral("MakeVNP: ") + problem);
        printLine(stderr, QStringLiteral("MakeVNP: no archive written"));
        return 1;
    }

    const QString archive = root + u'/' + QDir(root).dirName() + QStringLiteral(".vnp");
    if (const QString error = makevnp::writeArchive(root, listed.files, archive);
        !error.isEmpty()) {
        printLine(stderr, QStringLiteral("MakeVNP: ") + error);
        return 1;
    }
    printLine(stdout,
        QStringLiteral("MakeVNP: %1 files packed into \"%2\"")
            .arg(listed.files.size())
            .arg(QDir::toNativeSeparators(archive)));
    return 0;
}
