#include "shell/start_up.h"

#include "base/file_error.h"
#include "catalogue/workspace.h"

#include <QDir>

namespace tarvo::gui {

StartUpArguments parseStartUpArguments(const QStringList& arguments)
{
    StartUpArguments result;
    for (qsizetype i = 1; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (argument == QLatin1String("--help") || argument == QLatin1String("-h")) {
            result.help = true;
            return result;
        }
        if (argument == QLatin1String("--version") || argument == QLatin1String("-v")) {
            result.version = true;
            return result;
        }
        if (argument == QLatin1String("--program-dir")) {
            if (i + 1 >= arguments.size()) {
                result.error = QStringLiteral("--program-dir needs a folder");
                return result;
            }
            result.programDir = arguments.at(++i);
        } else if (argument.startsWith(QLatin1String("--program-dir="))) {
            result.programDir = argument.section(u'=', 1);
        } else if (argument.startsWith(QLatin1String("-")) && argument.size() > 1) {
            result.error = QStringLiteral("unknown option \"%1\"").arg(argument);
            return result;
        } else if (result.projectFile.isEmpty()) {
            result.projectFile = argument;
        } else {
            result.error = QStringLiteral("only one project file can be opened");
            return result;
        }
    }
    return result;
}

QString startUpHelp()
{
    return QStringLiteral(
        "Usage: tarvo [--program-dir DIR] [PROJECT.vnsc]\n"
        "Campaign script editor for Valdrun.\n\n"
        "  PROJECT.vnsc       open this project after start-up\n"
        "  --program-dir DIR  the program folder with the catalogues and the Source\n"
        "                     templates (default: the folder of this executable, else\n"
        "                     ../share/tarvo from it; a read-only one is copied to the\n"
        "                     per-user folder)\n"
        "  -h, --help         print this text\n"
        "  -v, --version      print the version\n");
}

QString startUpWorkspace(Workspace& workspace)
{
    try {
        ResetProject(workspace);
    } catch (const FileError& error) {
        return error.message();
    } catch (const DataError& error) {
        return QDir::toNativeSeparators(workspace.paths.programDir) + QStringLiteral(": ")
            + error.sentence();
    }
    return QString();
}

} // namespace tarvo::gui
