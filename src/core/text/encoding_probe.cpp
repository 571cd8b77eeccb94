#include "text/encoding_probe.h"

#include "text/code_page.h"

#include <QStringDecoder>

namespace tarvo::text {

namespace {

bool startsWith(const QByteArray& bytes, std::initializer_list<unsigned char> mark)
{
    if (bytes.size() < qsizetype(mark.size()))
        return false;
    qsizetype i = 0;
    for (unsigned char byte : mark)
        if (static_cast<unsigned char>(bytes.at(i++)) != byte)
            return false;
    return true;
}

// Without a mark, a project file saved as UTF-16 still starts with a tag:
// "<" and a zero byte in one order or the other, and its ASCII text keeps
// the zero bytes on one side. A code-page file with a stray zero byte has
// neither.
bool looksLikeUtf16(const QByteArray& bytes, int textSide)
{
    const qsizetype n = std::min<qsizetype>(bytes.size() & ~qsizetype(1), 4096);
    if (n < 4 || bytes.at(textSide) != '<' || bytes.at(1 - textSide) != 0)
        return false;
    qsizetype zeros = 0;
    for (qsizetype i = 1 - textSide; i < n; i += 2)
        zeros += bytes.at(i) == 0;
    return zeros * 10 >= (n / 2) * 9;
}

bool hasHighBytes(const QByteArray& bytes)
{
    for (char c : bytes)
        if (static_cast<unsigned char>(c) >= 0x80)
            return true;
    return false;
}

// Whether some byte sequence is certainly not UTF-8: a continuation byte
// without a lead byte, or a lead byte whose sequence ends early. Files in the
// code page nearly always hold one near their start, which spares decoding
// the whole file to find out.
bool breaksUtf8(const QByteArray& bytes)
{
    int expected = 0;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool continuation = byte >= 0x80 && byte < 0xC0;
        if (continuation != (expected > 0))
            return true;
        if (continuation)
            --expected;
        else if (byte >= 0xC2 && byte <= 0xDF)
            expected = 1;
        else if (byte >= 0xE0 && byte <= 0xEF)
            expected = 2;
        else if (byte >= 0xF0 && byte <= 0xF4)
            expected = 3;
    }
    return false;
}

bool isCleanUtf8(const QByteArray& bytes)
{
    if (breaksUtf8(bytes))
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = QString(decoder.decode(bytes));
    return !decoder.hasError() && !text.contains(QChar::ReplacementCharacter);
}

} // namespace

FileEncoding detectEncoding(const QByteArray& bytes)
{
    if (startsWith(bytes, {0xFF, 0xFE}))
        return FileEncoding::Utf16LittleEndian;
    if (startsWith(bytes, {0xFE, 0xFF}))
        return FileEncoding::Utf16BigEndian;
    if (startsWith(bytes, {0xEF, 0xBB, 0xBF}))
        return FileEncoding::Utf8WithMark;
    if (looksLikeUtf16(bytes, 0))
        return FileEncoding::Utf16LittleEndian;
    if (looksLikeUtf16(bytes, 1))
        return FileEncoding::Utf16BigEndian;
    if (hasHighBytes(bytes) && isCleanUtf8(bytes))
        return FileEncoding::Utf8;
    return FileEncoding::CodePage;
}

QString encodingName(FileEncoding encoding)
{
    switch (encoding) {
    case FileEncoding::CodePage:
        return QStringLiteral("Windows-1252");
    case FileEncoding::Utf8WithMark:
        return QStringLiteral("UTF-8 with a byte-order mark");
    case FileEncoding::Utf8:
        return QStringLiteral("UTF-8");
    case FileEncoding::Utf16LittleEndian:
        return QStringLiteral("UTF-16 (little-endian)");
    case FileEncoding::Utf16BigEndian:
        return QStringLiteral("UTF-16 (big-endian)");
    }
    return {};
}

QString decodeAs(const QByteArray& bytes, FileEncoding encoding)
{
    const auto decode = [&](QStringDecoder::Encoding from) {
        // The decoder drops a leading byte-order mark by itself.
        QStringDecoder decoder(from);
        return QString(decoder.decode(bytes));
    };
    switch (encoding) {
    case FileEncoding::CodePage:
        return decodeCodePage(bytes);
    case FileEncoding::Utf8WithMark:
    case FileEncoding::Utf8:
        return decode(QStringDecoder::Utf8);
    case FileEncoding::Utf16LittleEndian:
        return decode(QStringDecoder::Utf16LE);
    case FileEncoding::Utf16BigEndian:
        return decode(QStringDecoder::Utf16BE);
    }
    return {};
}

} // namespace tarvo::text
