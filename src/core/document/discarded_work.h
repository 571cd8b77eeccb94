#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

namespace tarvo {

struct Project;

// Unsaved work that the author chose to give up (Yes to "Are you sure? All
// changes will not be saved." on New or Open, or to the question on Exit).
// It is kept in a per-user folder for a week, so that a hasty Enter never
// loses work for good; File > Recover Discarded Work brings it back.
class DiscardedWork
{
public:
    static constexpr int kKeptDays = 7;

    struct Entry
    {
        QString id;
        QString projectName;
        QString projectFile; // the file the project came from, if any
        QDateTime discarded;
    };

    explicit DiscardedWork(const QString& folder);

    // The per-user folder the editor uses.
    static QString defaultFolder();

    // Keeps the project as it stands. A FileError says why it failed.
    void keep(const Project& project) const;
    // What is kept, newest first. Entries older than kKeptDays are deleted.
    QList<Entry> entries() const;
    // The project file of an entry.
    QString projectPath(const Entry& entry) const;
    void remove(const Entry& entry) const;

private:
    QString path(const QString& id, const char* suffix) const;

    QString m_folder;
};

} // namespace tarvo
