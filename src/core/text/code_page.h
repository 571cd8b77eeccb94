#pragma once

#include <QByteArray>
#include <QString>

// Every text file the program reads or writes is in the Windows-1252 code
// page. The table is our own so that the program behaves the same on every
// platform and can say exactly which character does not fit.
namespace tarvo::text {

QString decodeCodePage(const QByteArray& bytes);

// Position of the first character that Windows-1252 cannot hold, or -1.
qsizetype firstUnencodable(const QString& text);

// Encodes text that firstUnencodable() accepted; other characters become '?'.
QByteArray encodeCodePage(const QString& text);

// "ł" (U+0142), for messages about a character that does not fit.
QString describeCharacter(const QString& text, qsizetype position);

} // namespace tarvo::text
