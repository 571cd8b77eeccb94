#pragma once

#include <QByteArray>
#include <QString>

namespace tarvo::text {

// How the bytes of a text file are encoded, as far as they tell. Project
// files are in the Windows-1252 code page; a text editor may have saved one
// in another encoding, which the code page would read as something else
// (UTF-16 as no line at all, UTF-8 as "Ã©" pairs).
enum class FileEncoding {
    CodePage,
    Utf8WithMark,
    Utf8,
    Utf16LittleEndian,
    Utf16BigEndian,
};

// UTF-16 by its byte-order mark or, without one, by a first "<" followed by
// zero bytes every other byte; UTF-8 by its mark, or when the file has bytes
// above 127 that all form clean UTF-8 sequences; the code page otherwise.
FileEncoding detectEncoding(const QByteArray& bytes);

// "UTF-16 (little-endian)", for messages.
QString encodingName(FileEncoding encoding);

// The text of the bytes in that encoding, without a byte-order mark.
QString decodeAs(const QByteArray& bytes, FileEncoding encoding);

} // namespace tarvo::text
