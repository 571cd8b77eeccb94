#include "catalogue/catalogue_ends.h"
#include "commands.h"
#include "document/project_commands.h"
#include "document/project_file.h"
#include "document/project_file_probe.h"
#include "catalogue/side_names.h"
#include "text/shown_text.h"

#include <QFileInfo>

void printLine(FILE* stream, const QString& text)
{
    std::fprintf(stream, "%s\n", tarvo::text::shownText(text).toLocal8Bit().constData());
}

bool LoadedProject::load(const QString& path)
{
    try {
        tarvo::requireCodePageProjectFile(path);
    } catch (const tarvo::FileError& error) {
        // A file that cannot be read at all fails below as it always has.
        if (QFileInfo(path).isReadable()) {
            printLine(stderr, error.message());
            refused = true;
            return false;
        }
    }
    try {
        QList<tarvo::FileError> notes = tarvo::LoadProject(workspace, path);
        notes += tarvo::readSideNames(workspace.project, path);
        for (const tarvo::FileError& note : notes)
            printLine(stderr, QStringLiteral("warning: ") + note.message());
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

int runResave(const QStringList& args, const QString& programDir, const QString& timers)
{
    const bool opening = timers == QLatin1String("opening");
    if (args.size() != 3 || (!opening && timers != QLatin1String("as-is"))) {
        printLine(stderr,
            QStringLiteral("usage: tarvo-cli resave IN.vnsc OUT.vnsc [--program-dir DIR] "
                           "[--timers as-is|opening]"));
        return 2;
    }
    LoadedProject loaded(programDir);
    if (!loaded.load(args.at(1)))
        return loaded.failureCode(1);
    try {
        tarvo::saveDocument(loaded.document, args.at(2),
            opening ? tarvo::TimerLayout::Opening : tarvo::TimerLayout::AsWritten);
    } catch (const tarvo::FileError& error) {
        printLine(stderr, error.message());
        return 1;
    }
    return 0;
}
