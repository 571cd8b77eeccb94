#pragma once

#include <QByteArray>
#include <QCryptographicHash>
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

// The digest of a stamp. Stamps are only compared within one run, so the
// digest needs to tell changed bytes apart, not to resist forgery: BLAKE2b
// reads a large project file about twice as fast as SHA-256 here.
inline constexpr QCryptographicHash::Algorithm kFileStampHash = QCryptographicHash::Blake2b_256;

} // namespace tarvo
