#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace tarvo {

struct Project;

// A sound's source path comes from the project file, which may have been
// shared by someone else: it could name any readable file of whoever
// compiles it (a key, a password file, /proc), and the compile would pack
// that file into the archive the author publishes. So a sound is read only
// when it is a plain file that starts as a WAV file and is of a sound's size.
namespace sound_source {

// The largest sound file the compile copies.
constexpr qint64 SizeLimit = 64 * 1024 * 1024;

// The folders a project may read its sounds from without a word: the
// project file's folder and the program folder.
QStringList homeFolders(const Project& project, const QString& programDir);

// Whether `path` (links resolved) lies inside one of `folders`.
bool liesInside(const QString& path, const QStringList& folders);

// Why the existing file at `path` may not be packed as a sound, or "".
// When `bytes` is given and the file passes, it receives the file's bytes;
// never more than the size limit is read.
QString problem(const QString& path, const QStringList& folders, QByteArray* bytes = nullptr);

} // namespace sound_source

} // namespace tarvo
