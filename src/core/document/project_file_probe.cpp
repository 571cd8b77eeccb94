#include "document/project_file_probe.h"

#include "document/project_file.h"
#include "text/text_file.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSet>
#include <algorithm>

namespace tarvo {

namespace {

QByteArray readBytes(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    // Read in one piece where the size is known: a large file is not
    // copied from one growing buffer to the next.
    QByteArray bytes;
    const qint64 size = file.size();
    if (size > 0 && !file.isSequential()) {
        bytes.resize(size);
        const qint64 got = file.read(bytes.data(), size);
        bytes.resize(std::max<qint64>(got, 0));
        if (got == size)
            bytes += file.readAll(); // whatever was added since
    } else {
        bytes = file.readAll();
    }
    if (file.error() != QFileDevice::NoError)
        throw FileError(path, 0, QStringLiteral("cannot be read: %1").arg(file.errorString()));
    return bytes;
}

} // namespace

bool holdsProjectLines(const QString& text)
{
    static const QSet<QString> tags(projectFileTags().cbegin(), projectFileTags().cend());
    bool found = false;
    text::forEachLine(text, [&](qsizetype, QStringView raw) {
        if (found)
            return;
        QString line = raw.left(64).toString();
        line.remove(u'\t');
        found = tags.contains(line.section(u'|', 0, 0));
    });
    return found;
}

ProjectFileProbe probeProjectFile(const QString& path)
{
    const QByteArray bytes = readBytes(path);
    ProjectFileProbe probe;
    probe.encoding = text::detectEncoding(bytes);
    probe.text = text::decodeAs(bytes, probe.encoding);
    probe.hasProjectLines = holdsProjectLines(probe.text);
    probe.bytes = bytes;
    return probe;
}

FileStamp stampOf(const ProjectFileProbe& probe)
{
    return {true, QCryptographicHash::hash(probe.bytes, kFileStampHash)};
}

QString encodingSentence(text::FileEncoding encoding)
{
    return QStringLiteral(
        "the file is saved as %1, not in the Windows-1252 code page of project files")
        .arg(text::encodingName(encoding));
}

QString noProjectLinesSentence()
{
    return QStringLiteral(
        "the file holds no line of a project file; it is not a project file, or it is "
        "saved in an encoding that is not recognised");
}

void requireCodePageProjectFile(const QString& path)
{
    const ProjectFileProbe probe = probeProjectFile(path);
    if (!probe.hasProjectLines)
        throw FileError(path, 0, noProjectLinesSentence());
    if (probe.encoding != text::FileEncoding::CodePage)
        throw FileError(path, 0,
            encodingSentence(probe.encoding)
                + QStringLiteral("; \"tarvo-cli repair\" reads it converted"));
}

QList<FileError> RepairProject(Workspace& workspace, const QString& path)
{
    const ProjectFileProbe probe = probeProjectFile(path);
    if (!probe.hasProjectLines)
        throw FileError(path, 0, noProjectLinesSentence());
    QList<FileError> notes;
    if (probe.encoding != text::FileEncoding::CodePage)
        notes.append(FileError(
            path, 0, encodingSentence(probe.encoding) + QStringLiteral("; it was read converted")));
    notes += readProjectText(workspace, path, probe.text, LoadMode::Repair);
    workspace.project.filePath.clear();
    workspace.project.hasFile = false;
    return notes;
}

} // namespace tarvo
