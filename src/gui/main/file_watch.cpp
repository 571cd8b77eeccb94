#include "main/file_watch.h"

#include "document/project_document.h"
#include "ui/prompter.h"

#include <QDir>

namespace tarvo::gui {

FileWatch::FileWatch(ProjectDocument& document, QObject* parent)
    : QObject(parent)
    , m_document(document)
{
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatch::fileChanged);
    // Open, New, Save and Save As all pass through one of these.
    connect(&document, &ProjectDocument::changed, this, &FileWatch::rewatch);
    connect(&document, &ProjectDocument::historyChanged, this, &FileWatch::rewatch);
    connect(&document, &ProjectDocument::modifiedChanged, this, &FileWatch::rewatch);
    rewatch();
}

void FileWatch::rewatch()
{
    const Project& project = m_document.project();
    const QString path = project.hasFile ? project.filePath : QString();
    const QStringList watched = m_watcher.files();
    if (watched == QStringList(path) || (path.isEmpty() && watched.isEmpty()))
        return;
    if (!watched.isEmpty())
        m_watcher.removePaths(watched);
    if (!path.isEmpty())
        m_watcher.addPath(path);
}

void FileWatch::fileChanged(const QString& path)
{
    // A file replaced by a rename is no longer watched under its name.
    if (!m_watcher.files().contains(path))
        m_watcher.addPath(path);
    const FileStamp now = fileStampOf(path);
    if (!m_document.fileStamp().exists || now == m_document.fileStamp() || now == m_reported)
        return;
    m_reported = now;
    m_document.workspace().prompter.addStatusLine(QStringLiteral("warning"),
        QStringLiteral("The file \"%1\" was changed on disk by another program; Save will ask "
                       "before writing over it.")
            .arg(QDir::toNativeSeparators(path)));
}

} // namespace tarvo::gui
