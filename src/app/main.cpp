#include "main/main_window.h"
#include "base/file_size_signal.h"
#include "base/program_folder.h"
#include "catalogue/workspace.h"
#include "shell/qt_prompter.h"
#include "shell/start_up.h"

#include <QApplication>
#include <QDir>
#include <QStatusBar>
#include <cstdio>

namespace {

// --help and --version print and end the program; true when one of them did.
bool printedAndDone(const tarvo::gui::StartUpArguments& arguments)
{
    if (arguments.help)
        std::fputs(tarvo::gui::startUpHelp().toLocal8Bit().constData(), stdout);
    else if (arguments.version)
        std::printf("tarvo %s\n", TARVO_VERSION);
    return arguments.help || arguments.version;
}

} // namespace

int main(int argc, char* argv[])
{
    tarvo::ignoreFileSizeSignal();
    // Decided before QApplication exists, which needs a display. Qt's own
    // options (-platform ...) may hide them here; the second look below
    // finds them then.
    QStringList rawArguments;
    for (int i = 0; i < argc; ++i)
        rawArguments.append(QString::fromLocal8Bit(argv[i]));
    if (printedAndDone(tarvo::gui::parseStartUpArguments(rawArguments)))
        return 0;

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tarvo"));
    QApplication::setApplicationVersion(QStringLiteral(TARVO_VERSION));

    tarvo::gui::QtPrompter qtPrompter;
    // Through the interface, so its default arguments apply.
    tarvo::Prompter& prompter = qtPrompter;
    const tarvo::gui::StartUpArguments arguments
        = tarvo::gui::parseStartUpArguments(QApplication::arguments());
    if (printedAndDone(arguments))
        return 0;
    if (!arguments.error.isEmpty()) {
        prompter.message(
            arguments.error + QStringLiteral("\n\nUsage: tarvo [--program-dir DIR] [PROJECT.vnsc]"),
            tarvo::Prompter::Icon::Critical);
        return 2;
    }
    const tarvo::ProgramFolder programFolder
        = tarvo::findProgramFolder(tarvo::applicationProgramFolderSearch(arguments.programDir));

    tarvo::Workspace workspace(programFolder.path, prompter);
    const QString error = tarvo::gui::startUpWorkspace(workspace);
    if (!error.isEmpty()) {
        // No half-started window: the catalogues are the program's own data.
        prompter.message(error, tarvo::Prompter::Icon::Critical);
        return 1;
    }

    tarvo::gui::MainWindow window(workspace);
    qtPrompter.setParentWidget(&window);
    qtPrompter.setStatusSink(
        [&window](const QString& kind, const QString& text) { window.AddStatusLine(kind, text); });
    qtPrompter.setNoteSink([&window](const QString& text) { window.addNote(text); });
    qtPrompter.setSuggestedFileName([&workspace] {
        return workspace.project.name.isEmpty() ? QString()
                                                : workspace.project.name + QStringLiteral(".vnsc");
    });
    window.show();
    window.statusBar()->showMessage(programFolder.note, 15000);
    // Work an editor left unsaved comes first; a restored project is not
    // replaced by the file named on the command line.
    if (!window.offerRecovery() && !arguments.projectFile.isEmpty())
        window.openProjectFile(QDir(arguments.projectFile).absolutePath());
    return app.exec();
}
