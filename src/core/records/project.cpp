#include "records/project.h"

#include "base/checked.h"

#include <QDir>
#include <QFileInfo>

namespace tarvo {

qint16 NextVariableID(const Project& project, int table)
{
    const ReferenceList& list = referenceRow(project.tables, table);
    if (list.ItemCount < 1)
        return 0;
    int best = -1;
    for (int i = 0; i < list.ItemCount; ++i) {
        const qint16 id = at(list.Ids, i, "list of IDs");
        if (id > best)
            best = id;
    }
    if (best + 1 > 32767)
        throw DataError(QStringLiteral("no ID is left in list row %1").arg(table));
    return static_cast<qint16>(best + 1);
}

namespace {
template <typename Records> qint16 upperId(const Records& records, qint16 count)
{
    int best = -1;
    for (int i = 0; i < count; ++i) {
        const qint16 id = at(records, i).id;
        if (id > best)
            best = id;
    }
    if (best == -1)
        return count;
    if (best + 1 > 32767)
        throw DataError(QStringLiteral("no ID is left"));
    return static_cast<qint16>(best + 1);
}
} // namespace

qint16 UpperSndID(const Project& project)
{
    return upperId(project.sounds, project.soundCount);
}

qint16 UpperMsgID(const Project& project)
{
    return upperId(project.messages, project.messageCount);
}

static QString withCrLf(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
    return text;
}

void CommitComment(Project& project, const QString& commentBoxText)
{
    const QString text = withCrLf(commentBoxText);
    switch (project.commentMode) {
    case CommentScript:
        project.scriptComment = text;
        break;
    case CommentEvent:
        if (project.selectedEvent >= 0 && project.selectedEvent < project.events.size())
            project.events[project.selectedEvent].comment = text;
        break;
    case CommentTimer:
        if (project.selectedTimer >= 0 && project.selectedTimer < project.timers.size())
            project.timers[project.selectedTimer].comment = text;
        break;
    default:
        break;
    }
}

QString soundFilePath(const Project& project, const SoundRecord& sound)
{
    if (sound.secondText.isEmpty() || QFileInfo(sound.secondText).isAbsolute()
        || project.filePath.isEmpty())
        return sound.secondText;
    return QDir(QFileInfo(project.filePath).absolutePath()).filePath(sound.secondText);
}

qint16 raisedCount(qint16 count, const char* what)
{
    if (count >= 32767)
        throw DataError(QStringLiteral("too many %1: at most 32767").arg(QLatin1String(what)));
    return static_cast<qint16>(count + 1);
}

} // namespace tarvo
