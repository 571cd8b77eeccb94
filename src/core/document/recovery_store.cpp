#include "document/recovery_store.h"

#include "base/file_error.h"
#include "base/whole_file.h"
#include "document/project_file.h"
#include "records/project.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QStandardPaths>
#include <QUuid>
#include <algorithm>

namespace tarvo {

RecoveryStore::RecoveryStore(const QString& folder)
    : m_folder(folder)
    , m_id(QUuid::createUuid().toString(QUuid::WithoutBraces))
{
}

RecoveryStore::~RecoveryStore() = default;

QString RecoveryStore::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QStringLiteral("/recovery");
}

QString RecoveryStore::path(const QString& id, const char* suffix) const
{
    return m_folder + u'/' + id + QLatin1String(suffix);
}

bool RecoveryStore::lock()
{
    if (m_lock)
        return true;
    auto lock = std::make_unique<QLockFile>(path(m_id, ".lock"));
    if (!lock->tryLock(0))
        return false;
    m_lock = std::move(lock);
    return true;
}

void RecoveryStore::write(const Project& project)
{
    QByteArray bytes;
    try {
        // Ours, not the user's file: always in the layout that opens again.
        bytes = projectFileBytes(project, TimerLayout::Opening);
    } catch (const DataError& error) {
        throw FileError(path(m_id, ".vnsc"), 0,
            QStringLiteral("the recovery copy could not be made: ") + error.sentence());
    }
    if (!QDir().mkpath(m_folder) || !lock())
        throw FileError(m_folder, 0, QStringLiteral("the recovery folder cannot be written"));
    writeWholeFile(
        path(m_id, ".vnsc"), bytes, QStringLiteral("the recovery copy could not be written"));
    QJsonObject info;
    info.insert(QStringLiteral("project"), project.name);
    info.insert(QStringLiteral("file"), project.hasFile ? project.filePath : QString());
    info.insert(QStringLiteral("written"), QDateTime::currentDateTime().toString(Qt::ISODate));
    writeWholeFile(path(m_id, ".json"), QJsonDocument(info).toJson(),
        QStringLiteral("the recovery copy could not be written"));
    m_written = true;
}

void RecoveryStore::discard()
{
    if (!m_written)
        return;
    QFile::remove(path(m_id, ".vnsc"));
    QFile::remove(path(m_id, ".json"));
    m_written = false;
}

QList<RecoveryStore::Copy> RecoveryStore::orphans() const
{
    QList<Copy> found;
    const QStringList infos = QDir(m_folder).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString& name : infos) {
        const QString id = name.chopped(5);
        if (id == m_id)
            continue;
        // A copy whose lock can be taken belongs to no running editor.
        QLockFile probe(path(id, ".lock"));
        if (!probe.tryLock(0) || !QFile::exists(path(id, ".vnsc")))
            continue;
        probe.unlock();
        QFile file(path(id, ".json"));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonObject info = QJsonDocument::fromJson(file.readAll()).object();
        found.append({id, info.value(QStringLiteral("project")).toString(),
            info.value(QStringLiteral("file")).toString(),
            QDateTime::fromString(info.value(QStringLiteral("written")).toString(), Qt::ISODate)});
    }
    std::sort(found.begin(), found.end(),
        [](const Copy& a, const Copy& b) { return a.written > b.written; });
    return found;
}

QString RecoveryStore::projectPath(const Copy& copy) const
{
    return path(copy.id, ".vnsc");
}

void RecoveryStore::adopt(const Copy& copy)
{
    discard();
    m_lock.reset();
    QFile::remove(path(m_id, ".lock"));
    m_id = copy.id;
    m_written = lock();
}

void RecoveryStore::remove(const Copy& copy) const
{
    for (const char* suffix : {".vnsc", ".json", ".lock"})
        QFile::remove(path(copy.id, suffix));
}

} // namespace tarvo
