#include "catalogue/catalogue_ends.h"
#include "commands.h"
#include "editing/project_commands.h"
#include "model/project_file.h"
#include "text/shown_text.h"

#include <QFileInfo>

void printLine(FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", tarvo::text::shownText(text).toLocal8Bit().constData());
}

bool LoadedProject::load(const QString& path)
{
    try {
        tarvo::LoadProject(workspace, path);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, tarvo::blameCutCatalogue(workspace, error).message());
        return false;
    } catch (const tarvo::DataError& error) {
        printLine(stderr, path + QStringLiteral(": ") + error.sentence());
        return false;
    }
    document.projectReplaced();
    return true;
}

int runResave(const QStringList& args, const QString& programDir)
{
    if (args.size() != 3) {
        printLine(
            stderr, QStringLiteral("usage: tarvo-cli resave IN.vnsc OUT.vnsc [--program-dir DIR]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return 1;
    try {
        tarvo::saveDocument(loaded.document, args.at(2));
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        return 1;
    }
    return 0;
}
