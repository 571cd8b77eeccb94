#pragma once

#include <QByteArray>
#include <QString>

namespace tarvo {

// Writes `bytes` as the whole file through a QSaveFile, unbuffered so that a
// failed write shows in its count: the old file stays on any failure, and a
// FileError says `failure` + ": " + the reason.
void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& failure);

} // namespace tarvo
