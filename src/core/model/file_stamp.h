#pragma once

#include <QByteArray>
#include <QString>

namespace tarvo {

// What a project file looked like when the editor last read or wrote it, so
// that Save can tell whether someone else (another editor, a version
// control checkout) changed it since. The bytes' digest decides; the time
// alone misses two writes within its resolution.
struct FileStamp
{
    bool exists = false;
    QByteArray digest;

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

FileStamp fileStampOf(const QString& path);

} // namespace tarvo
