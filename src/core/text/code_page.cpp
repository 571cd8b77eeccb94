#include "text/code_page.h"

#include <algorithm>
#include <array>

namespace tarvo::text {

namespace {

// Bytes 0x80 to 0x9F; the five bytes the code page leaves undefined map to the
// control characters of the same value, as the platform's own converter does.
constexpr std::array<char16_t, 32> kHighControls = {
    0x20AC,
    0x0081,
    0x201A,
    0x0192,
    0x201E,
    0x2026,
    0x2020,
    0x2021,
    0x02C6,
    0x2030,
    0x0160,
    0x2039,
    0x0152,
    0x008D,
    0x017D,
    0x008F,
    0x0090,
    0x2018,
    0x2019,
    0x201C,
    0x201D,
    0x2022,
    0x2013,
    0x2014,
    0x02DC,
    0x2122,
    0x0161,
    0x203A,
    0x0153,
    0x009D,
    0x017E,
    0x0178,
};

// The bytes 0x80 to 0x9F that hold characters from U+0100 up, sorted by
// character for a binary search. Below U+0100 a character is its own byte,
// except that of 0x80 to 0x9F only the five undefined bytes' controls are.
struct HighByte
{
    char16_t character;
    unsigned char byte;
};

constexpr std::array<HighByte, 27> kHighBytes = [] {
    std::array<HighByte, 27> table {};
    std::size_t n = 0;
    for (std::size_t i = 0; i < kHighControls.size(); ++i) {
        if (kHighControls[i] >= 0x100)
            table[n++] = {kHighControls[i], static_cast<unsigned char>(0x80 + i)};
    }
    for (std::size_t i = 1; i < n; ++i) {
        for (std::size_t j = i; j > 0 && table[j - 1].character > table[j].character; --j) {
            const HighByte swap = table[j];
            table[j] = table[j - 1];
            table[j - 1] = swap;
        }
    }
    return table;
}();

int byteFor(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    if (c < 0x100) {
        // 0x80 to 0x9F: only the five undefined bytes' own controls.
        const int byte = c;
        return kHighControls[byte - 0x80] == c ? byte : -1;
    }
    const auto found = std::lower_bound(kHighBytes.begin(), kHighBytes.end(), c,
        [](const HighByte& entry, char16_t key) { return entry.character < key; });
    return found != kHighBytes.end() && found->character == c ? found->byte : -1;
}

} // namespace

QString decodeCodePage(const QByteArray& bytes)
{
    // Without a byte of the 0x80 to 0x9F block the code page is Latin-1,
    // which Qt converts many bytes at a time.
    if (!bytes.isEmpty() && std::none_of(bytes.begin(), bytes.end(), [](char b) {
            const auto byte = static_cast<unsigned char>(b);
            return byte >= 0x80 && byte < 0xA0;
        }))
        return QString::fromLatin1(bytes);
    QString result(bytes.size(), Qt::Uninitialized);
    QChar* out = result.data();
    for (char b : bytes) {
        const auto byte = static_cast<unsigned char>(b);
        *out++ = QChar(byte >= 0x80 && byte < 0xA0 ? kHighControls[byte - 0x80] : char16_t(byte));
    }
    return result;
}

qsizetype firstUnencodable(const QString& text)
{
    // Scripts are nearly always plain ASCII, which Qt checks many
    // characters at a time.
    if (QtPrivate::isAscii(QStringView(text)))
        return -1;
    const auto* characters = reinterpret_cast<const char16_t*>(text.constData());
    const qsizetype n = text.size();
    for (qsizetype i = 0; i < n; ++i) {
        if (characters[i] >= 0x80 && byteFor(characters[i]) < 0)
            return i;
    }
    return -1;
}

QByteArray encodeCodePage(const QString& text)
{
    // ASCII is the same in every 8-bit code page.
    if (QtPrivate::isAscii(QStringView(text)))
        return text.toLatin1();
    const qsizetype n = text.size();
    QByteArray result(n, Qt::Uninitialized);
    char* out = result.data();
    const auto* characters = reinterpret_cast<const char16_t*>(text.constData());
    for (qsizetype i = 0; i < n; ++i) {
        const char16_t c = characters[i];
        if (c < 0x80) {
            out[i] = static_cast<char>(c);
            continue;
        }
        const int b = byteFor(c);
        out[i] = static_cast<char>(b < 0 ? '?' : b);
    }
    return result;
}

QString describeCharacter(const QString& text, qsizetype position)
{
    char32_t code = text.at(position).unicode();
    QString shown = text.mid(position, 1);
    if (text.at(position).isHighSurrogate() && position + 1 < text.size()) {
        code = QChar::surrogateToUcs4(text.at(position), text.at(position + 1));
        shown = text.mid(position, 2);
    }
    return QStringLiteral("\"%1\" (U+%2)")
        .arg(shown)
        .arg(QString::number(code, 16).toUpper().rightJustified(4, u'0'));
}

} // namespace tarvo::text
