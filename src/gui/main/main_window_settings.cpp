// What the editor remembers between runs: the window and its docks, and the
// recent files. Nothing here changes how a project is edited.
#include "catalogue/workspace.h"
#include "document/project_commands.h"
#include "main/main_window.h"
#include "shell/guard.h"
#include "shell/window_geometry.h"
#include "ui/prompter.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace tarvo::gui {

namespace {

constexpr int kRecentFiles = 8;

QSettings settings()
{
    return QSettings(QStringLiteral("tarvo"), QStringLiteral("tarvo"));
}

} // namespace

void MainWindow::readSettings()
{
    const QSettings stored = settings();
    restoreWindowGeometry(*this, stored.value(QStringLiteral("window/geometry")).toByteArray());
    restoreState(stored.value(QStringLiteral("window/state")).toByteArray());
    showRecentFiles();
}

void MainWindow::writeSettings() const
{
    QSettings stored = settings();
    stored.setValue(QStringLiteral("window/geometry"), saveGeometry());
    stored.setValue(QStringLiteral("window/state"), saveState());
}

void MainWindow::buildRecentFiles(QMenu* file)
{
    m_recentMenu = file->addMenu(QStringLiteral("Recent Files"));
    m_recentMenu->setObjectName(QStringLiteral("mRecentFiles"));
}

void MainWindow::showRecentFiles()
{
    m_recentMenu->clear();
    const QStringList files = settings().value(QStringLiteral("recentFiles")).toStringList();
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString& path = files.at(i);
        QAction* entry = m_recentMenu->addAction(
            QStringLiteral("&%1 %2").arg(i + 1).arg(QDir::toNativeSeparators(path)));
        connect(entry, &QAction::triggered, this,
            guard(m_workspace.prompter, [this, path] { openRecentFile(path); }));
    }
    m_recentMenu->setEnabled(!files.isEmpty());
}

void MainWindow::rememberFile(const QString& path)
{
    QSettings stored = settings();
    QStringList files = stored.value(QStringLiteral("recentFiles")).toStringList();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    files.removeAll(absolute);
    files.prepend(absolute);
    stored.setValue(QStringLiteral("recentFiles"), files.mid(0, kRecentFiles));
    showRecentFiles();
}

void MainWindow::openRecentFile(const QString& path)
{
    if (!QFileInfo(path).isFile()) {
        QSettings stored = settings();
        QStringList files = stored.value(QStringLiteral("recentFiles")).toStringList();
        files.removeAll(path);
        stored.setValue(QStringLiteral("recentFiles"), files);
        showRecentFiles();
        m_workspace.prompter.message(
            QStringLiteral("The file \"%1\" no longer exists; it is removed from the recent files.")
                .arg(QDir::toNativeSeparators(path)),
            Prompter::Icon::Information);
        return;
    }
    // As Open asks before it replaces the project.
    if (!confirmGivingUp())
        return;
    openProjectFile(path);
}

} // namespace tarvo::gui
