// The reference routines and their step-by-step oracle: one table of
// hand-picked cases whose outcome both must give, then generated tables and
// texts on which both must agree.
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "base/file_error.h"
#include "reference_oracle.h"
#include "scripted_prompter.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <span>

using namespace tarvo;
using namespace Qt::StringLiterals;

namespace {

// A call's outcome as one text: the result ("<fails>" for a DataError), then a
// line per prompt: status lines as shown, message boxes as "critical: " + text.
std::string capture(const std::function<QString(Prompter&)>& call)
{
    ScriptedPrompter p;
    QString outcome;
    try {
        outcome = call(p);
    } catch (const DataError&) {
        outcome = u"<fails>"_s;
    }
    for (const ScriptedPrompter::Prompt& shown : p.prompts)
        outcome
            += (shown.icon == Prompter::Icon::Critical ? u"\ncritical: "_s : u"\n"_s) + shown.text;
    return outcome.toStdString();
}

struct Routines
{
    decltype(&tarvo::getIDfromIndex) idOf;
    decltype(&tarvo::GetIndexFromID) indexOf;
    decltype(&tarvo::NextFreeID) nextFree;
    decltype(&tarvo::EncodeReferences) encode;
    decltype(&tarvo::DecodeReferences) decode;
    decltype(&tarvo::ResolveReferences) resolve;
};
const Routines kProduction {&tarvo::getIDfromIndex, &tarvo::GetIndexFromID, &tarvo::NextFreeID,
    &tarvo::EncodeReferences, &tarvo::DecodeReferences, &tarvo::ResolveReferences};
const Routines kOracle {&oracle::getIDfromIndex, &oracle::GetIndexFromID, &oracle::NextFreeID,
    &oracle::EncodeReferences, &oracle::DecodeReferences, &oracle::ResolveReferences};

enum Call { IdOf, IndexOf, NextFree, Encode, Decode, ResolveA, ResolveB, ResolveC };

// `text` holds the position or ID of a lookup; Decode and Resolve take no row.
std::string outcomeOf(
    const Routines& r, const ReferenceListTable& t, Call call, int row, const QString& text)
{
    return capture([&](Prompter& p) {
        if (call == IdOf || call == IndexOf)
            return call == IdOf ? r.idOf(t, row, text.toInt(), p) : r.indexOf(t, row, text.toInt());
        if (call == NextFree)
            return QString::number(r.nextFree(t, row));
        if (call == Encode || call == Decode)
            return call == Encode ? r.encode(t, row, text, p) : r.decode(t, text, p);
        return r.resolve(t, text, ResolveForm(call - ResolveA));
    });
}

void expectAllAgree(const ReferenceListTable& table, const QString& text, int encodeRow)
{
    SCOPED_TRACE(text.toStdString());
    for (Call call : {Encode, Decode, ResolveA, ResolveB, ResolveC})
        EXPECT_EQ(outcomeOf(kProduction, table, call, encodeRow, text),
            outcomeOf(kOracle, table, call, encodeRow, text))
            << "call " << call;
}

// "~" leaves a field out, so that its list is shorter than the item count.
void addItem(ReferenceList& list, const QString& text, const QString& id, const QString& code)
{
    if (text != u"~")
        list.Texts.append(text);
    if (id != u"~")
        list.Ids.append(qint16(id.toInt()));
    if (code != u"~")
        list.Codes.append(code);
    if (code != u"~")
        list.RawCodes.append(u"raw:"_s + code);
    list.ItemCount = qint16(list.ItemCount + 1);
}

ReferenceListTable emptyTable()
{
    ReferenceListTable t;
    for (int r = 0; r < kReferenceRowCount; ++r) {
        t[size_t(r)].UsesIds = r != 20; // row 20 numbers its items by position
        t[size_t(r)].ListName = u"Row%1"_s.arg(r);
    }
    return t;
}

enum Fixture {
    Units,
    Negative,
    Repeated,
    Chained,
    Joined,
    ShortIds,
    ShortTexts,
    Traps,
    TopId,
    SameLengths
};

// Per fixture, its rows written "row: text:id:code|text:id:code; row: ...".
const char16_t* const kItems[] = {
    // Names that are prefixes of each other; the fixed integers; gaps in IDs.
    u"3: Tank:0:U_TANK|Tank0:1:U_TANK0|Jeep:2:U_JEEP; 12: Start:4:event0|Attack:9:event1; "
    u"0: Fixed0:0:integ[0]|Fixed1:1:integ[1]|Fixed2:2:integ[2]|Fixed3:3:integ[3]|"
    u"Fixed4:4:integ[4]|Score:5:integ[0]",
    u"7: Group A:0:grp[0]|Ghost:-3:grp[1]; 17: Flag:-1:flag[0]|Flag B:1:flag[1]",
    u"12: First:4:event0|Second:4:event1|Third:6:event2; 20: Red:9:RED|Blue:9:BLUE",
    // Codes that hold references of earlier and later pairs.
    u"2: two:0:TWO; 3: three:0:&&5$$0§+&&2$$0§|three b:1:&&3$$0§&&3$$2§|three c:2:C; "
    u"5: five:0:FIVE",
    u"0: zero:0:Z; 1: :0:; 4: four:0:F", // an empty code joins the text around it
    u"3: Tank:-2:T; 5: Jeep:0:~; 9: Ship:~:S",
    u"3: Tank:-2:T; 5: ~:0:~",
    // An empty name, names inside references, a repeated name.
    u"3: Tank:0:T0|Tank0:1:T1|:2:T2|3:3:T3|$$:10:T4|&&3$$1§:11:T5|Tank:12:T6",
    u"2: Top:32767:TOP",
    // Names as long as the reference that replaces them.
    u"3: Tractor:0:TR|Trailer:1:TL",
};

ReferenceListTable fixture(Fixture f)
{
    ReferenceListTable t = emptyTable();
    for (const QString& line : QString::fromUtf16(kItems[f]).split(u"; "_s)) {
        ReferenceList& list = t[size_t(line.section(u':', 0, 0).toInt())];
        for (const QString& item : line.section(u": "_s, 1).split(u'|')) {
            const QStringList field = item.split(u':');
            addItem(list, field[0], field[1], field[2]);
        }
    }
    return t;
}

QString noId(int row, int position)
{
    return u"critical: getIDfromIndex variable Error! (Row%1: %1, %2). Couldn't find variable."_s
        .arg(row)
        .arg(position);
}

QString unparsed(int row)
{
    return u"Error: Couldn't parse 'Row%1' variable"_s.arg(row);
}

struct Case
{
    const char* name;
    Fixture fixture;
    Call call;
    int row; // for Encode and the lookups
    const char16_t* text; // "…" stands for 9990 "x"
    const char16_t* expected;
    QStringList prompts = {};
};

void PrintTo(const Case& c, std::ostream* os)
{
    *os << c.name;
}

QString expand(const char16_t* text)
{
    return QString::fromUtf16(text).replace(u"…"_s, QString(9990, u'x'));
}

// clang-format off
const std::vector<Case> kCases = {
    {"EncodeWithoutRowKeepsTheText", Units, Encode, -1, u"Tank", u"Tank"},
    {"EncodeKeepsAnEmptyText", Units, Encode, 3, u"", u""},
    {"EncodeKeepsATextWithoutItems", Units, Encode, 3, u"Truck", u"Truck"},
    {"EncodePrefersTheItemThatSavesMost", Units, Encode, 3, u"Tank0", u"&&3$$1§"},
    {"EncodeNeverResetsTheBestLength", Units, Encode, 3, u"Jeep and Tank0", u"Jeep and &&3$$1§"},
    {"EncodeWritesIdsNotPositions", Units, Encode, 12, u"Attack", u"&&12$$9§"},
    {"EncodeCountsIdZeroAsOneDigit", SameLengths, Encode, 3, u"TractorTrailer",
        u"&&3$$0§Trailer"},
    {"EncodeInARowOutsideTheTableFails", Units, Encode, 30, u"Tank", u"<fails>"},
    {"DecodeShowsItemTexts", Units, Decode, 0, u"&&3$$1§ + &&12$$4§", u"Tank0 + Start"},
    {"DecodeKeepsAnEmptyText", Units, Decode, 0, u"", u""},
    {"DecodeKeepsAShortTextWithAmpersands", Units, Decode, 0, u"a&&b", u"a&&b"},
    {"DecodeWithOneKnownReferenceIsSilent", Units, Decode, 0, u"&&3$$2§&&3$$7§", u"Jeep&&3$$7§"},
    {"DecodeOfADeletedItemIsAQuestionMark", Units, Decode, 0, u"&&3$$7§", u"?",
        {u"Error: Couldn't parse 'Row3' variable"_s}},
    {"DecodeOfTextThatLooksBroken", Units, Decode, 0, u"x && y", u"?", {unparsed(0)}},
    {"DecodeOfTextWithoutDollarsNamesRowZero", Units, Decode, 0, u"a&&b&&c", u"?", {unparsed(0)}},
    {"DecodeOfAShortBrokenTextNamesRowZero", Units, Decode, 0, u"&&3$$", u"?", {unparsed(0)}},
    {"DecodeComparesIdsAsTexts", Units, Decode, 0, u"&&3$$-0§", u"?", {unparsed(3)}},
    {"DecodeReadsTheRowOfABrokenReference", Units, Decode, 0, u"&&03$$0§", u"?", {unparsed(3)}},
    {"DecodeOfAReferenceToRowThirtyNamesNoRow", Units, Decode, 0, u"&&30$$1§", u"?",
        {u"Error: Couldn't parse '' variable"_s}},
    {"DecodeOfAReferenceToANegativeRowNamesNoRow", Units, Decode, 0, u"&&-1$$5§", u"?",
        {u"Error: Couldn't parse '' variable"_s}},
    {"DecodeOfAFixedIntegerShowsItsText", Units, Decode, 0, u"&&0$$2§", u"Fixed2"},
    {"ResolveFormAWritesCodes", Units, ResolveA, 0, u"&&0$$2§+&&0$$5§+&&3$$1§",
        u"integ[2]+integ[0]+U_TANK0"},
    {"ResolveFormBWritesRawCodesOfFixedIntegers", Units, ResolveB, 0, u"&&0$$2§+&&0$$5§+&&3$$1§",
        u"raw:integ[2]+integ[0]+U_TANK0"},
    {"ResolveFormCAddsParentheses", Units, ResolveC, 0, u"&&0$$2§+&&0$$5§+&&3$$1§",
        u"(integ[2]+integ[0]+U_TANK0)"},
    {"ResolveRunsToTheNextFreeIdInclusive", Units, ResolveA, 0, u"&&12$$5§ &&12$$10§ &&12$$11§",
        u"? ? &&12$$11§"},
    {"ResolveKeepsNothingChosen", Units, ResolveC, 0, u"-1", u"(-1)"},
    {"IdOfAPosition", Units, IdOf, 12, u"1", u"9"},
    {"IdOfNothingChosen", Units, IdOf, 12, u"-1", u"-1"},
    {"IdOfAPositionPastTheRowFails", Units, IdOf, 12, u"2", u"<fails>"},
    {"IndexOfAnId", Units, IndexOf, 12, u"9", u"1"},
    {"IndexOfAMissingId", Units, IndexOf, 12, u"5", u"-1"},
    {"IndexOfNothingChosen", Units, IndexOf, 12, u"-1", u"-1"},
    {"IndexOfIdZero", Units, IndexOf, 3, u"0", u"0"},
    {"NextFreeIdFollowsTheGreatestId", Units, NextFree, 12, u"", u"10"},
    {"NextFreeIdOfAnEmptyRow", Units, NextFree, 20, u"", u"0"},
    {"IdOfANegativeIdIsReportedAndUsed", Negative, IdOf, 7, u"1", u"-3",
        {u"critical: getIDfromIndex variable Error! (Row7: 7, 1). Couldn't find variable."_s}},
    {"IndexOfNothingChosenSkipsAnItemWithIdMinusOne", Negative, IndexOf, 17, u"-1", u"-1"},
    {"DecodeReportsEveryNegativeIdInOrder", Negative, Decode, 0, u"&&7$$-3§&&17$$9§",
        u"Ghost&&17$$9§", {noId(7, 1), noId(17, 0)}},
    {"DecodeReadsAStoredIdMinusOne", Negative, Decode, 0, u"&&17$$-1§x&&99$$1§", u"Flagx&&99$$1§",
        {noId(7, 1), noId(17, 0)}},
    {"EncodeReportsTheNegativeIdOfATrial", Negative, Encode, 17, u"Flag B", u"&&17$$1§",
        {noId(17, 0)}},
    {"EncodeOfAnItemWithIdMinusOne", Negative, Encode, 17, u"Flag", u"&&17$$-1§",
        {noId(17, 0), noId(17, 0)}},
    {"EncodeWritesANegativeIdAfterReportingIt", Negative, Encode, 7, u"Ghost", u"&&7$$-3§",
        {noId(7, 1), noId(7, 1)}},
    {"EncodeReportsANegativeIdForPlainText", Negative, Encode, 7, u"nothing", u"nothing",
        {noId(7, 1)}},
    {"IndexOfARepeatedIdIsTheLastPosition", Repeated, IndexOf, 12, u"4", u"1"},
    {"IndexInARowWithoutIdsIsTheId", Repeated, IndexOf, 20, u"7", u"7"},
    {"IdInARowWithoutIdsIsThePosition", Repeated, IdOf, 20, u"5", u"5"},
    {"DecodeOfARepeatedIdShowsTheFirstItem", Repeated, Decode, 0, u"&&12$$4§", u"First"},
    {"ResolveOfARepeatedIdWritesTheLastItem", Repeated, ResolveA, 0, u"&&12$$4§", u"event1"},
    {"ResolveInARowWithoutIdsTakesThePosition", Repeated, ResolveA, 0, u"&&20$$1§", u"BLUE"},
    {"ResolveOfAPositionPastTheCodesFails", Repeated, ResolveA, 0, u"&&20$$9§", u"<fails>"},
    {"EncodeFirstPositionWinsATie", Repeated, Encode, 12, u"First Third", u"&&12$$4§ Third"},
    {"EncodeInARowWithoutIdsWritesPositions", Repeated, Encode, 20, u"Red and Blue",
        u"Red and &&20$$1§"},
    {"ResolveReplacesLaterRowsAgain", Chained, ResolveA, 0, u"&&3$$0§", u"FIVE+&&2$$0§"},
    {"ResolveReplacesLaterIdsOfTheSameRowAgain", Chained, ResolveA, 0, u"&&3$$1§&&3$$0§",
        u"&&3$$0§CFIVE+&&2$$0§"},
    {"ResolveJoinsAReferenceOfALaterRow", Joined, ResolveA, 0, u"&&&&1$$0§4$$0§", u"F"},
    {"ResolveKeepsAJoinedReferenceOfAnEarlierRow", Joined, ResolveA, 0, u"&&&&1$$0§0$$0§",
        u"&&0$$0§"},
    {"ResolveFindsAJoinedReferenceLeftToRight", Joined, ResolveA, 0, u"&&&&&1$$0§&4$$0§x", u"&&Fx"},
    {"ResolveReplacesEveryOccurrence", Joined, ResolveA, 0, u"&&1$$0§&&1$$0§&&4$$0§", u"F"},
    {"DecodeFailsOnAMissingId", ShortIds, Decode, 0, u"&&3$$-2§", u"<fails>", {noId(3, 0)}},
    {"ResolveFailsOnAMissingId", ShortIds, ResolveA, 0, u"plain", u"<fails>"},
    {"EncodeFailsOnAMissingId", ShortIds, Encode, 9, u"Ship", u"<fails>"},
    {"EncodeMayMakeTheTextLonger", ShortIds, Encode, 3, u"Jeep Tank", u"Jeep &&3$$-2§",
        {noId(3, 0), noId(3, 0)}},
    {"ResolveFailsOnAMissingCodeItWrites", ShortTexts, ResolveA, 0, u"&&5$$0§", u"<fails>"},
    {"ResolveFetchesOnlyTheCodesItWrites", ShortTexts, ResolveA, 0, u"&&3$$-2§", u"&&3$$-2§"},
    {"DecodeFailsOnAMissingTextItWrites", ShortTexts, Decode, 0, u"&&5$$0§", u"<fails>",
        {noId(3, 0)}},
    {"DecodeFetchesOnlyTheTextsItWrites", ShortTexts, Decode, 0, u"&&3$$-2§", u"Tank", {noId(3, 0)}},
    {"EncodeFailsOnAMissingText", ShortTexts, Encode, 5, u"Jeep", u"<fails>"},
    {"EncodeIgnoresEmptyAndRepeatedNames", Traps, Encode, 3, u"Tank0", u"&&3$$1§"},
    {"EncodeLeavesNamesThatLengthenTheText", Traps, Encode, 3, u"Tank Tank0 3", u"Tank &&3$$1§ 3"},
    {"EncodeLeavesNamesInsideWrittenReferences", Traps, Encode, 3, u"3 Tank 3", u"3 &&3$$0§ 3"},
    {"EncodeWritesTheIdOfTheItemFound", Traps, Encode, 3, u"&&3$$1§", u"&&3$$11§"},
    {"EncodeOfAReferenceLikeItemLeavesTheRest", Traps, Encode, 3, u"&&3$$1§Tank", u"&&3$$11§Tank"},
    {"EncodeReplacesWithoutOverlaps", Traps, Encode, 3, u"$$$$$", u"&&3$$10§&&3$$10§$"},
    {"EncodeOfALongTextEndingBelowTheBestLength", Traps, Encode, 3, u"…Tank0xx", u"…&&3$$1§xx"},
    {"EncodeOfALongTextReachingTheBestLength", Traps, Encode, 3, u"…Tank0xxx", u"…Tank0xxx"},
    {"EncodeOfATextPastTheBestLength", Traps, Encode, 3, u"…Tank0Tank0Tank0", u"…Tank0Tank0Tank0"},
    {"DecodeOfTheGreatestId", TopId, Decode, 0, u"&&2$$32767§", u"Top"},
    {"NextFreeIdPastTheGreatestIdFails", TopId, NextFree, 2, u"", u"<fails>"},
    {"ResolveOfTheGreatestId", TopId, ResolveA, 0, u"&&2$$32767§", u"TOP"},
};
// clang-format on

using ReferenceCases = testing::TestWithParam<Case>;

TEST_P(ReferenceCases, Outcome)
{
    const Case& c = GetParam();
    const ReferenceListTable table = fixture(c.fixture);
    const QString text = expand(c.text);
    const std::string expected
        = (QStringList {expand(c.expected)} + c.prompts).join(u'\n').toStdString();
    EXPECT_EQ(outcomeOf(kOracle, table, c.call, c.row, text), expected) << "oracle";
    EXPECT_EQ(outcomeOf(kProduction, table, c.call, c.row, text), expected) << "production";
    ScriptedPrompter p;
    if (c.call == Encode && expand(c.expected) != u"<fails>") {
        EXPECT_EQ(referenceBoxNamesItem(table, c.row, text, p), expand(c.expected) != text);
    }
    expectAllAgree(table, text, c.row);
}

INSTANTIATE_TEST_SUITE_P(Traps, ReferenceCases, testing::ValuesIn(kCases),
    [](const testing::TestParamInfo<Case>& info) { return std::string(info.param.name); });

// Generated tables: small alphabets so that texts collide, repeat and contain
// each other; codes and texts that hold references; IDs that repeat, go
// negative or leave gaps; some rows without IDs. Wide IDs have every length a
// 16-bit number can have, so that trial references differ in length from pass
// to pass, short of the greatest number (a case of the table).
struct Generator
{
    std::mt19937 random;
    bool wideIds;

    int number(int low, int high) { return std::uniform_int_distribution(low, high)(random); }

    int id()
    {
        static const int bounds[] = {-32768, -100, -1, 0, 9, 10, 99, 100, 9999, 10000, 32766};
        if (!wideIds)
            return number(0, 9) == 0 ? number(-3, -1) : number(0, 8);
        return number(0, 4) == 0 ? bounds[number(0, 10)] : number(0, 12);
    }

    // Texts whose broken reference names no row are a case of the table.
    QString text(const ReferenceListTable& table, int maxPieces)
    {
        static const QStringList pieces = {u"a"_s, u"b"_s, u"ab"_s, u"0"_s, u"1"_s, u"&"_s, u"&&"_s,
            u"$$"_s, u"§"_s, u"-"_s, u" "_s};
        QString result;
        for (int i = number(0, maxPieces); i > 0; --i) {
            const int kind = number(0, 9);
            const ReferenceList& list = table[size_t(number(0, 5))];
            if (kind < 4)
                result += encodedReference(
                    number(0, 5), QString::number(wideIds ? id() : number(-2, 6)));
            else if (kind < 6 && list.ItemCount > 0)
                result += list.Texts.at(number(0, list.ItemCount - 1));
            else
                result += pieces.at(number(0, int(pieces.size()) - 1));
        }
        const int row = RowOfReference(result);
        return row < 0 || row >= kReferenceRowCount ? text(table, maxPieces) : result;
    }

    ReferenceListTable table()
    {
        ReferenceListTable t = emptyTable();
        const ReferenceListTable none = emptyTable();
        for (ReferenceList& list : std::span(t).first(6)) {
            list.UsesIds = number(0, 5) > 0;
            for (int k = number(0, 7); k > 0; --k)
                addItem(list, text(none, 3), QString::number(id()), text(none, 2));
            while (list.RawCodes.size() < 5) // form B reads IDs 0 to 4 of row 0
                list.RawCodes.append(text(none, 2));
        }
        return t;
    }
};

TEST(ReferenceDifferential, GeneratedTablesAndTexts)
{
    for (const bool wideIds : {false, true}) {
        for (unsigned seed = 1; seed <= (wideIds ? 40u : 400u) && !HasFailure(); ++seed) {
            Generator generator {std::mt19937(seed), wideIds};
            const ReferenceListTable table = generator.table();
            for (int t = 0; t < 12; ++t) {
                SCOPED_TRACE(seed);
                const QString text = generator.text(table, 8);
                expectAllAgree(table, text, generator.number(0, 5));
            }
        }
    }
}

TEST(ReferenceDifferential, OneIndexServesManyTexts)
{
    Generator generator {std::mt19937(7), false};
    const ReferenceListTable table = generator.table();
    const ReferenceIndex index(table);
    for (int t = 0; t < 300; ++t) {
        const QString text = generator.text(table, 10);
        EXPECT_EQ(capture([&](Prompter&) { return index.resolve(text, ResolveForm::B); }),
            outcomeOf(kOracle, table, ResolveB, 0, text));
        EXPECT_EQ(capture([&](Prompter& p) { return index.decode(text, p); }),
            outcomeOf(kOracle, table, Decode, 0, text));
    }
}

TEST(ReferenceDifferential, LargeRowEncodesAlike)
{
    // Names that are prefixes of one another ("Unit 1", "Unit 12", ...), a
    // few of them repeated, with IDs in a different order than positions.
    ReferenceListTable table = emptyTable();
    for (int k = 0; k < 400; ++k)
        addItem(table[12], u"Unit %1"_s.arg(k % 370), QString::number(k * 7 % 401),
            u"event%1"_s.arg(k));
    for (const QString& text : {u"Unit 12"_s, u"Unit 1 and Unit 123, Unit 369"_s,
             u"Unit 3Unit 30Unit 300"_s, u"Unit"_s, u"&&12$$7§"_s})
        expectAllAgree(table, text, 12);
}

} // namespace
