// Which encoding a project file is in, as its bytes tell: a table of byte
// strings, with the traps of each rule (a code-page file with accents or a
// stray zero byte must stay in the code page).
#include "text/encoding_probe.h"

#include <gtest/gtest.h>
#include <string_view>

using namespace tarvo::text;
using namespace std::string_view_literals;

namespace {

struct Row
{
    const char* name;
    QByteArray bytes;
    FileEncoding encoding;
    std::u16string_view text; // the decoded text, mark dropped
};

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray result;
    for (int v : values)
        result.append(char(v));
    return result;
}

const Row kRows[] = {
    {"empty", {}, FileEncoding::CodePage, u""sv},
    {"plain ASCII", "<gl>|A\r\n", FileEncoding::CodePage, u"<gl>|A\r\n"sv},
    {"code-page accent", bytes({'<', 'g', 'l', '>', '|', 0xE9}), FileEncoding::CodePage,
        u"<gl>|\u00e9"sv},
    {"code-page pair that is no UTF-8", bytes({'A', 0xC3, 'b'}), FileEncoding::CodePage,
        u"A\u00c3b"sv},
    {"code page with a stray zero byte", bytes({'<', 'g', 'l', '>', 0, '|', 'A'}),
        FileEncoding::CodePage, u"<gl>\u0000|A"sv},
    {"UTF-8 accent", bytes({'<', 'g', 'l', '>', '|', 0xC3, 0xA9}), FileEncoding::Utf8,
        u"<gl>|\u00e9"sv},
    {"UTF-8 mark", bytes({0xEF, 0xBB, 0xBF, '<', 'g', 'l', '>'}), FileEncoding::Utf8WithMark,
        u"<gl>"sv},
    {"UTF-16 little-endian mark", bytes({0xFF, 0xFE, '<', 0, 0xE9, 0}),
        FileEncoding::Utf16LittleEndian, u"<\u00e9"sv},
    {"UTF-16 big-endian mark", bytes({0xFE, 0xFF, 0, '<', 0, 'g'}), FileEncoding::Utf16BigEndian,
        u"<g"sv},
    {"UTF-16 little-endian without a mark", bytes({'<', 0, 'g', 0, 'l', 0, '>', 0}),
        FileEncoding::Utf16LittleEndian, u"<gl>"sv},
    {"UTF-16 big-endian without a mark", bytes({0, '<', 0, 'g', 0, 'l', 0, '>'}),
        FileEncoding::Utf16BigEndian, u"<gl>"sv},
    {"code page with the block from 0x80", bytes({'A', 0x80, 0x9F, 0xA7}), FileEncoding::CodePage,
        u"A\u20ac\u0178\u00a7"sv},
    {"UTF-8 pair, then a stray continuation byte", bytes({0xC3, 0xA9, 0xA7}),
        FileEncoding::CodePage, u"\u00c3\u00a9\u00a7"sv},
    {"UTF-8 sequence cut short", bytes({0xE2, 0x82, 'A'}), FileEncoding::CodePage,
        u"\u00e2\u201aA"sv},
    {"overlong UTF-8", bytes({'A', 0xC0, 0x80}), FileEncoding::CodePage, u"A\u00c0\u20ac"sv},
    {"UTF-8 three-byte character", bytes({'A', 0xE2, 0x82, 0xAC}), FileEncoding::Utf8,
        u"A\u20ac"sv},
    {"a '<' and a zero, then text", bytes({'<', 0, 'g', 'l', '>', '|', 'A', 'B'}),
        FileEncoding::CodePage, u"<\u0000gl>|AB"sv},
};

TEST(EncodingProbe, EachRowIsDetectedAndDecoded)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(detectEncoding(row.bytes), row.encoding);
        EXPECT_EQ(decodeAs(row.bytes, row.encoding),
            QString::fromUtf16(row.text.data(), qsizetype(row.text.size())));
    }
}

} // namespace
