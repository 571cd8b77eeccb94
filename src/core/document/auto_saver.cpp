#include "document/auto_saver.h"

#include "base/file_error.h"
#include "document/project_document.h"
#include "document/recovery_store.h"

namespace tarvo {

AutoSaver::AutoSaver(ProjectDocument& document, RecoveryStore& store,
    std::chrono::milliseconds interval, QObject* parent)
    : QObject(parent)
    , m_document(document)
    , m_store(store)
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &AutoSaver::saveNow);
    connect(&document, &ProjectDocument::changed, this, &AutoSaver::projectChanged);
    connect(&document, &ProjectDocument::modifiedChanged, this, &AutoSaver::modifiedChanged);
    // Typing is a change like any other for the copy: it is kept on the
    // same interval.
    connect(&document, &ProjectDocument::pendingTextChanged, this, [this] {
        if (m_document.isModified() && !m_timer.isActive())
            m_timer.start();
    });
}

void AutoSaver::saveNow()
{
    m_timer.stop();
    if (!m_document.isModified())
        return;
    try {
        m_store.write(m_document.projectWithPendingText());
    } catch (const FileError& error) {
        Q_EMIT failed(error.message());
    }
}

void AutoSaver::finish()
{
    m_timer.stop();
    m_store.discard();
}

void AutoSaver::projectChanged(const ProjectChange& change)
{
    if (change.everything) {
        // New or Open: whatever was kept belonged to the project before.
        m_timer.stop();
        m_store.discard();
        return;
    }
    if (m_document.isModified() && !m_timer.isActive())
        m_timer.start();
}

void AutoSaver::modifiedChanged(bool modified)
{
    if (modified) {
        if (!m_timer.isActive())
            m_timer.start();
        return;
    }
    m_timer.stop();
    m_store.discard();
}

} // namespace tarvo
