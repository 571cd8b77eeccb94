#include "main/main_window.h"
#include "model/workspace.h"
#include "shell/qt_prompter.h"
#include "shell/start_up.h"

#include <QApplication>
#include <QDir>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tarvo"));
    QApplication::setApplicationDisplayName(QStringLiteral("T.A.R.V.O."));

    tarvo::gui::QtPrompter qtPrompter;
    // Through the interface, so its default arguments apply.
    tarvo::Prompter& prompter = qtPrompter;
    const tarvo::gui::StartUpArguments arguments
        = tarvo::gui::parseStartUpArguments(QApplication::arguments());
    if (!arguments.error.isEmpty()) {
        prompter.message(
            arguments.error + QStringLiteral("\n\nUsage: tarvo [--program-dir DIR] [PROJECT.vnsc]"),
            tarvo::Prompter::Icon::Critical);
        return 2;
    }
    const QString programDir = arguments.programDir.isEmpty()
        ? QApplication::applicationDirPath()
        : QDir(arguments.programDir).absolutePath();

    tarvo::Workspace workspace(programDir, prompter);
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
    window.show();
    if (!arguments.projectFile.isEmpty())
        window.openProjectFile(QDir(arguments.projectFile).absolutePath());
    return app.exec();
}
