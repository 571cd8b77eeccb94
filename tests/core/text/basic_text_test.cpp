#include "model/file_error.h"
#include "text/basic_text.h"
#include "text/code_page.h"
#include "text/text_file.h"

#include <gtest/gtest.h>

using namespace tarvo;
using namespace tarvo::text;

TEST(BasicText, ReplaceWithEmptySearchLeavesTextAlone)
{
    EXPECT_EQ(basicReplace(QStringLiteral("abc"), QString(), QStringLiteral("x")), u"abc");
    EXPECT_EQ(basicReplace(QStringLiteral("a.b.c"), QStringLiteral("."), QString()), u"abc");
    EXPECT_EQ(basicReplace(QStringLiteral("Aa"), QStringLiteral("a"), QStringLiteral("b")), u"Ab");
}

TEST(BasicText, TrimRemovesBlanksOnly)
{
    EXPECT_EQ(basicTrim(QStringLiteral("  a b  ")), u"a b");
    EXPECT_EQ(basicTrim(QStringLiteral("\ta\t")), u"\ta\t");
    EXPECT_EQ(basicTrim(QStringLiteral("   ")), u"");
}

TEST(BasicText, SplitKeepsEmptyPieces)
{
    EXPECT_EQ(basicSplit(QStringLiteral("<s>;;a;"), u';'),
        (QStringList {QStringLiteral("<s>"), QString(), QStringLiteral("a"), QString()}));
    EXPECT_EQ(basicSplit(QString(), u';').size(), 1);
}

TEST(BasicText, ValReadsTheLeadingNumber)
{
    EXPECT_EQ(val(QStringLiteral(" 12abc")), 12.0);
    EXPECT_EQ(val(QStringLiteral("-3.5x")), -3.5);
    EXPECT_EQ(val(QStringLiteral("abc")), 0.0);
    EXPECT_EQ(val(QString()), 0.0);
    EXPECT_EQ(valInt16(QStringLiteral("17;")), 17);
    EXPECT_THROW(valInt16(QStringLiteral("99999")), DataError);
}

TEST(BasicText, ToInt16RoundsHalfToEvenAndRejectsTheRest)
{
    EXPECT_EQ(toInt16(QStringLiteral(" 42 ")), 42);
    EXPECT_EQ(toInt16(QStringLiteral("-7")), -7);
    EXPECT_EQ(toInt16(QStringLiteral("2.5")), 2);
    EXPECT_EQ(toInt16(QStringLiteral("3.5")), 4);
    EXPECT_EQ(toInt16(QStringLiteral("-32768")), -32768);
    EXPECT_THROW(toInt16(QStringLiteral("32768")), DataError);
    EXPECT_THROW(toInt16(QStringLiteral("")), DataError);
    EXPECT_THROW(toInt16(QStringLiteral("1x")), DataError);
    EXPECT_THROW(toInt16(QStringLiteral("abc")), DataError);
}

TEST(BasicText, ToInt16TakesEveryFormOfNumberAndNothingElse)
{
    EXPECT_EQ(toInt16(QStringLiteral("  +1.5e1  ")), 15);
    EXPECT_EQ(toInt16(QStringLiteral("1.5E+1")), 15);
    EXPECT_EQ(toInt16(QStringLiteral("250e-2")), 2);
    EXPECT_EQ(toInt16(QStringLiteral(".5")), 0);
    EXPECT_EQ(toInt16(QStringLiteral("1.")), 1);
    EXPECT_EQ(toInt16(QStringLiteral("-2.5")), -2);
    EXPECT_EQ(toInt16(QStringLiteral("-0")), 0);
    EXPECT_EQ(toInt16(QStringLiteral("0000012")), 12);
    EXPECT_EQ(toInt16(QStringLiteral("32767.4")), 32767);
    EXPECT_EQ(toInt16(QStringLiteral("-32768.5")), -32768);
    for (const char* bad : {"+", "-", ".", "1e", "1e+", "e5", "1 2", "\t1", "1\t", "1..2", "--1",
             "0x10", "1,5", "\xd9\xa3"})
        EXPECT_THROW(toInt16(QString::fromUtf8(bad)), DataError) << bad;
    for (const char* big : {"32767.5", "-32769", "99999999", "1e999"}) {
        try {
            toInt16(QString::fromUtf8(big));
            ADD_FAILURE() << big;
        } catch (const DataError& error) {
            EXPECT_TRUE(error.sentence().contains("does not fit in a 16-bit number")) << big;
        }
    }
}

TEST(BasicText, ToBoolAcceptsWordsAndNumbers)
{
    EXPECT_TRUE(toBool(QStringLiteral("True")));
    EXPECT_TRUE(toBool(QStringLiteral("TRUE")));
    EXPECT_FALSE(toBool(QStringLiteral("false")));
    EXPECT_TRUE(toBool(QStringLiteral("-1")));
    EXPECT_FALSE(toBool(QStringLiteral("0")));
    EXPECT_THROW(toBool(QStringLiteral("yes")), DataError);
    EXPECT_THROW(toBool(QString()), DataError);
}

TEST(CodePage, RoundTripsEveryByte)
{
    QByteArray all;
    for (int b = 0; b < 256; ++b)
        all.append(char(b));
    const QString decoded = decodeCodePage(all);
    EXPECT_EQ(decoded.at(0x80), QChar(0x20AC));
    EXPECT_EQ(decoded.at(0xA7), QChar(u'§'));
    EXPECT_EQ(firstUnencodable(decoded), -1);
    EXPECT_EQ(encodeCodePage(decoded), all);
}

TEST(CodePage, FindsCharactersItCannotHold)
{
    const QString text = QStringLiteral("abc\u0142d");
    EXPECT_EQ(firstUnencodable(text), 3);
    EXPECT_EQ(describeCharacter(text, 3), QStringLiteral("\"\u0142\" (U+0142)"));
}

TEST(TextFile, SplitsOnEveryKindOfLineEnd)
{
    EXPECT_EQ(splitLines(QStringLiteral("a\r\nb\nc\rd")),
        (QStringList {
            QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"), QStringLiteral("d")}));
    EXPECT_EQ(
        splitLines(QStringLiteral("a\r\n\r\n")), (QStringList {QStringLiteral("a"), QString()}));
    EXPECT_TRUE(splitLines(QString()).isEmpty());
}

TEST(TextFile, MissingFileIsAnErrorNamingIt)
{
    try {
        readTextLines(QStringLiteral("/nonexistent/x.txt"));
        FAIL();
    } catch (const FileError& error) {
        EXPECT_EQ(error.file(), u"/nonexistent/x.txt");
        EXPECT_TRUE(error.message().startsWith(u"/nonexistent/x.txt: cannot be read"));
    }
}
