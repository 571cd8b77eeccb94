#pragma once

#include <QString>
#include <QStringList>

namespace tarvo::text {

// Reads a Windows-1252 text file into lines. Lines may end in CR LF, CR or LF;
// a final line end does not make an extra empty line. A file that cannot be
// read is a FileError naming it.
QStringList readTextLines(const QString& path);

// Splits decoded text into lines by the same rule.
QStringList splitLines(const QString& text);

} // namespace tarvo::text
