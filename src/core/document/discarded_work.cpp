#include "document/discarded_work.h"

#include "base/file_error.h"
#include "base/whole_file.h"
#include "document/project_file.h"
#include "records/project.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QUuid>
#include <algorithm>

namespace tarvo {

DiscardedWork::DiscardedWork(const QString& folder)
    : m_folder(folder)
{
}

QString DiscardedWork::defaultFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
        + QStringLiteral("/discarded");
}

QString DiscardedWork::path(const QString& id, const char* suffix) const
{
    return m_folder + u'/' + id + QLatin1String(suffix);
}

void DiscardedWork::keep(const Project& project) const
{
    QByteArray bytes;
    try {
        bytes = projectFileBytes(project, TimerLayout::Opening);
    } catch (const DataError& error) {
        throw FileError(m_folder, 0,
            QStringLiteral("the discarded work could not be kept: ") + error.sentence());
    }
    if (!QDir().mkpath(m_folder))
        throw FileError(m_folder, 0, QStringLiteral("the folder cannot be written"));
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    writeWholeFile(
        path(id, ".vnsc"), bytes, QStringLiteral("the discarded work could not be kept"));
    QJsonObject info;
    info.insert(QStringLiteral("project"), project.name);
    info.insert(QStringLiteral("file"), project.hasFile ? project.filePath : QString());
    info.insert(
        QStringLiteral("discarded"), QDateTime::currentDateTime().toString(Qt::ISODateWithMs));
    writeWholeFile(path(id, ".json"), QJsonDocument(info).toJson(),
        QStringLiteral("the discarded work could not be kept"));
}

QList<DiscardedWork::Entry> DiscardedWork::entries() const
{
    QList<Entry> found;
    const QDateTime oldest = QDateTime::currentDateTime().addDays(-kKeptDays);
    for (const QString& name : QDir(m_folder).entryList({QStringLiteral("*.json")}, QDir::Files)) {
        const QString id = name.chopped(5);
        QFile file(path(id, ".json"));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QJsonObject info = QJsonDocument::fromJson(file.readAll()).object();
        const Entry entry {id, info.value(QStringLiteral("project")).toString(),
            info.value(QStringLiteral("file")).toString(),
            QDateTime::fromString(
                info.value(QStringLiteral("discarded")).toString(), Qt::ISODateWithMs)};
        if (!entry.discarded.isValid() || entry.discarded < oldest
            || !QFile::exists(path(id, ".vnsc"))) {
            remove(entry);
            continue;
        }
        found.append(entry);
    }
    std::sort(found.begin(), found.end(),
        [](const Entry& a, const Entry& b) { return a.discarded > b.discarded; });
    return found;
}

QString DiscardedWork::projectPath(const Entry& entry) const
{
    return path(entry.id, ".vnsc");
}

void DiscardedWork::remove(const Entry& entry) const
{
    QFile::remove(path(entry.id, ".vnsc"));
    QFile::remove(path(entry.id, ".json"));
}

} // namespace tarvo
