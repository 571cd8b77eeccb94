#pragma once

#include "records/records.h"
#include "records/reference_list.h"

namespace tarvo {

// What the shared comment box on the main page is editing.
enum CommentMode : qint16 {
    CommentNone = 0,
    CommentScript = 1,
    CommentEvent = 2,
    CommentTimer = 3,
};

// The one document of the editor. Lists are arrays with a separate count:
// an array may hold spare slots beyond its count, and loops run to the count.
struct Project
{
    QString name;
    QString filePath;
    bool hasFile = false;
    QString scriptComment;
    QList<EventRecord> events;
    qint16 eventCount = 0;
    QList<TimerRecord> timers;
    qint16 timerCount = 0;
    // What the timers list shows. It follows the timers only where the
    // editing rules change it: deleting a timer that is not the last one
    // leaves the list and the timers different on purpose.
    QStringList timerListLines;
    ReferenceListTable tables;
    QList<SoundRecord> sounds;
    qint16 soundCount = 0;
    QList<MessageRecord> messages;
    qint16 messageCount = 0;
};

// Where the shared comment box stores its text: the comment mode and the
// event or timer line it was filled for. The box's place is the main page's
// own state, not the project's.
struct CommentPlace
{
    qint16 mode = CommentNone;
    qint16 event = -1;
    qint16 timer = -1;
};

// ID for a new entry of variable table `table` (0 to 29): the highest ID so
// far plus one, 0 for an empty table.
qint16 NextVariableID(const Project& project, int table);

// ID for a new sound or message: the highest ID plus one, or the count when
// no entry has an ID of 0 or more.
qint16 UpperSndID(const Project& project);
qint16 UpperMsgID(const Project& project);

// Stores the comment box text where `place` says: the script comment, the
// event's or the timer's comment. Line ends become CR LF.
void CommitComment(Project& project, const CommentPlace& place, const QString& commentBoxText);

// The comment stored at `place`; null when the place holds none (mode 0, a
// line that does not exist).
const QString* storedComment(const Project& project, const CommentPlace& place);

// The wav file of a sound. A relative path (as in a project shipped with its
// sounds beside it) is taken relative to the project file's folder.
QString soundFilePath(const Project& project, const SoundRecord& sound);

// A count that is about to pass 32767 is an error, never a wrap.
qint16 raisedCount(qint16 count, const char* what);

} // namespace tarvo
