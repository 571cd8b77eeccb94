#pragma once

#include <QDateTime>
#include <QList>
#include <QString>
#include <memory>

class QLockFile;

namespace tarvo {

struct Project;

// Recovery copies of work that was not saved, in a per-user folder. Each
// running editor writes its own copy, guarded by a lock file it holds while
// it runs, so several editors never write over each other's copies and a
// copy whose lock nobody holds was left by an editor that ended without
// cleaning up (a crash, a power cut).
class RecoveryStore
{
public:
    struct Copy
    {
        QString id;
        QString projectName;
        QString projectFile; // the file the project came from, if any
        QDateTime written;
    };

    explicit RecoveryStore(const QString& folder);
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    // The per-user folder the editor uses.
    static QString defaultFolder();

    // Writes this editor's copy of the project, replacing the last one only
    // once the new one is complete. A FileError says why it failed.
    void write(const Project& project);
    // Removes this editor's copy: the work is saved, or was given up.
    void discard();
    bool holdsCopy() const { return m_written; }

    // Copies that no running editor holds, newest first.
    QList<Copy> orphans() const;
    // The project file of a found copy.
    QString projectPath(const Copy& copy) const;
    // Takes a found copy over as this editor's own (the restored project),
    // so it stays until the work is saved.
    void adopt(const Copy& copy);
    // Deletes a found copy.
    void remove(const Copy& copy) const;

private:
    QString path(const QString& id, const char* suffix) const;
    bool lock();

    QString m_folder;
    QString m_id;
    std::unique_ptr<QLockFile> m_lock;
    bool m_written = false;
};

} // namespace tarvo
