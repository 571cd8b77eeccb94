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

namespace {

// One walk for reading and writing: the lists are only indexed for writing
// (which detaches them) when `Owner` is not const.
template <typename Owner>
auto commentAt(Owner& project, const CommentPlace& place) -> decltype(&project.scriptComment)
{
    switch (place.mode) {
    case CommentScript:
        return &project.scriptComment;
    case CommentEvent:
        if (place.event >= 0 && place.event < project.events.size())
            return &project.events[place.event].comment;
        return nullptr;
    case CommentTimer:
        if (place.timer >= 0 && place.timer < project.timers.size())
            return &project.timers[place.timer].comment;
        return nullptr;
    default:
        return nullptr;
    }
}

} // namespace

void CommitComment(Project& project, const CommentPlace& place, const QString& commentBoxText)
{
    if (QString* stored = commentAt(project, place))
        *stored = withCrLf(commentBoxText);
}

const QString* storedComment(const Project& project, const CommentPlace& place)
{
    return commentAt(project, place);
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
