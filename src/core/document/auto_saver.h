#pragma once

#include <QObject>
#include <QTimer>
#include <chrono>

namespace tarvo {

class ProjectDocument;
class RecoveryStore;
struct ProjectChange;

// Keeps a recovery copy of a project that differs from its file: written at
// most once per interval while the work goes on, at once when asked (before
// a compile), never over the user's own file, and removed when the project
// is saved, replaced (New, Open) or the program ends cleanly.
class AutoSaver : public QObject
{
    Q_OBJECT
public:
    AutoSaver(ProjectDocument& document, RecoveryStore& store,
        std::chrono::milliseconds interval = std::chrono::seconds(60), QObject* parent = nullptr);

    // Writes the copy now if the project is modified.
    void saveNow();
    // The program ends cleanly: nothing is left to recover.
    void finish();

Q_SIGNALS:
    // A copy could not be written; the work goes on.
    void failed(const QString& message);

private:
    void projectChanged(const ProjectChange& change);
    void modifiedChanged(bool modified);

    ProjectDocument& m_document;
    RecoveryStore& m_store;
    QTimer m_timer;
};

} // namespace tarvo
