// File > Compare With...: what changed between a chosen project file and the
// open project, in the Results dock. Reading only: the open project and the
// chosen file stay as they are.
#include "document/project_document.h"
#include "document/project_file.h"
#include "main/main_window.h"
#include "tools/place_list_dock.h"
#include "ui/prompter.h"
#include "ui/quiet_prompter.h"
#include "versions/project_diff.h"

#include <QFileInfo>
#include <QMenu>
#include <QStatusBar>

namespace tarvo::gui {

void MainWindow::buildCompareMenu(QMenu* file)
{
    addCommand(file, "mCompareWith", QStringLiteral("Compare With..."), [this] { compareWith(); });
}

void MainWindow::compareWith(const QString& chosen)
{
    const QString path = chosen.isEmpty()
        ? m_workspace.prompter.openFileName(
            QStringLiteral("Compare with..."), QStringLiteral("Script files|*.vnsc"))
        : chosen;
    if (path.trimmed().isEmpty())
        return;
    // The chosen file is read as Open reads it, into a workspace of its own
    // over the same catalogues; a file that does not load is reported by the
    // guard and nothing is shown.
    QuietPrompter quiet;
    Workspace other(m_workspace.paths.programDir, quiet);
    LoadProject(other, path);
    QList<PlaceListDock::Line> lines;
    for (const RecordChange& change : compareProjects(other.project, m_workspace.project))
        lines.append({change.line(), change.place});
    const QString count = lines.size() == 1 ? QStringLiteral("1 change")
                                            : QStringLiteral("%1 changes").arg(lines.size());
    const QString name = QFileInfo(path).fileName();
    m_results->showLines(QStringLiteral("Compared with \"%1\": %2").arg(name, count), lines);
    m_results->show();
    m_results->raise();
    statusBar()->showMessage(lines.isEmpty()
            ? QStringLiteral("No changes against \"%1\"").arg(name)
            : QStringLiteral("%1 against \"%2\"").arg(count, name));
}

} // namespace tarvo::gui
