#pragma once

#include "base/file_stamp.h"

#include <QFileSystemWatcher>
#include <QObject>

namespace tarvo {
class ProjectDocument;
}

namespace tarvo::gui {

// Watches the open project's file and says in the status window when
// another program (a second editor, a checkout) changed it, as soon as that
// happens. Save itself compares the file with what this editor last read or
// wrote and asks before writing over it.
class FileWatch : public QObject
{
    Q_OBJECT
public:
    explicit FileWatch(ProjectDocument& document, QObject* parent = nullptr);

private:
    void rewatch();
    void fileChanged(const QString& path);

    ProjectDocument& m_document;
    QFileSystemWatcher m_watcher;
    FileStamp m_reported; // the change last reported, told only once
};

} // namespace tarvo::gui
