#include "text/code_page.h"

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

int byteFor(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return c;
    for (int i = 0; i < 32; ++i) {
        if (kHighControls[i] == c)
            return 0x80 + i;
    }
    return -1;
}

} // namespace

QString decodeCodePage(const QByteArray& bytes)
{
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
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (byteFor(text.at(i).unicode()) < 0)
            return i;
    }
    return -1;
}

QByteArray encodeCodePage(const QString& text)
{
    QByteArray result(text.size(), Qt::Uninitialized);
    char* out = result.data();
    for (QChar c : text) {
        const int b = byteFor(c.unicode());
        *out++ = static_cast<char>(b < 0 ? '?' : b);
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
