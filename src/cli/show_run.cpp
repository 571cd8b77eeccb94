#include "commands.h"
#include "versions/project_outline.h"

void printUtf8(FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
}

int runShow(const QStringList& args, const QString& programDir)
{
    if (args.size() != 2) {
        printLine(stderr, QStringLiteral("usage: tarvo-cli show PROJECT.vnsc [--program-dir DIR]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return 2;
    printUtf8(stdout, tarvo::projectOutline(loaded.workspace.project));
    return 0;
}
