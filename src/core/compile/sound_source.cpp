#include "compile/sound_source.h"

#include "records/project.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace tarvo::sound_source {

namespace {

QString canonicalFolder(const QString& folder)
{
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    return canonical.isEmpty() ? QString() : canonical + u'/';
}

// Special file systems whose "files" are the machine's state, not sounds.
bool systemPlace(const QString& canonical)
{
    for (const char* const place : {"/proc/", "/sys/", "/dev/"}) {
        if (canonical.startsWith(QLatin1String(place)))
            return true;
    }
    return false;
}

// What the entry itself is, links not followed.
QString kindProblem(const QString& path, const QStringList& folders)
{
    const QFileInfo info(path);
    if (info.isSymLink()) {
        const QString target = info.canonicalFilePath();
        if (target.isEmpty())
            return QStringLiteral("it is a link to nothing");
        if (!liesInside(target, folders))
            return QStringLiteral("it is a link to a place outside the project's folder and the "
                                  "program folder");
    }
    const QString canonical = info.canonicalFilePath();
    if (systemPlace(canonical))
        return QStringLiteral("it lies in a folder of the system (/proc, /sys or /dev)");
#ifdef Q_OS_UNIX
    struct stat status;
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return QStringLiteral("it cannot be read");
    if (!S_ISREG(status.st_mode))
        return QStringLiteral("it is not a plain file (a folder, a device or a pipe)");
#else
    if (!info.isFile())
        return QStringLiteral("it is not a plain file (a folder or a device)");
#endif
    if (info.size() > SizeLimit)
        return QStringLiteral("it is larger than %1 MB").arg(SizeLimit / (1024 * 1024));
    return {};
}

} // namespace

QStringList homeFolders(const Project& project, const QString& programDir)
{
    QStringList folders {programDir};
    if (!project.filePath.isEmpty())
        folders.append(QFileInfo(project.filePath).absolutePath());
    return folders;
}

bool liesInside(const QString& path, const QStringList& folders)
{
    QString canonical = QFileInfo(path).canonicalFilePath();
    if (canonical.isEmpty())
        canonical = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
    for (const QString& folder : folders) {
        const QString base = canonicalFolder(folder);
        if (!base.isEmpty() && canonical.startsWith(base))
            return true;
    }
    return false;
}

QString problem(const QString& path, const QStringList& folders, QByteArray* bytes)
{
    if (const QString kind = kindProblem(path, folders); !kind.isEmpty())
        return kind;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return file.errorString();
    // The header alone first: a large file that is no sound is not read.
    const QByteArray head = file.read(12);
    if (head.size() < 12 || !head.startsWith("RIFF") || head.mid(8, 4) != "WAVE")
        return QStringLiteral("it does not start as a WAV file (no RIFF/WAVE header)");
    if (!bytes)
        return {};
    // The size said by the file system may lie (or grow): read one byte more
    // than allowed to know.
    *bytes = head + file.read(SizeLimit + 1 - head.size());
    if (file.error() != QFileDevice::NoError)
        return file.errorString();
    if (bytes->size() > SizeLimit) {
        bytes->clear();
        return QStringLiteral("it is larger than %1 MB").arg(SizeLimit / (1024 * 1024));
    }
    return {};
}

} // namespace tarvo::sound_source
