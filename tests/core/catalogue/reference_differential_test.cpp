// The fast reference routines against the step-by-step oracle: same texts,
// same failures, same prompts in the same order, on hand-picked traps and on
// many generated tables and texts.
#include "catalogue/reference_index.h"
#include "catalogue/reference_markers.h"
#include "model/file_error.h"
#include "reference_oracle.h"
#include "scripted_prompter.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>

using namespace tarvo;

namespace {

struct Outcome
{
    QString text;
    QString failure;
    QStringList prompts;

    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& o, std::ostream* os)
{
    *os << "text=\"" << o.text.toStdString() << "\" failure=\"" << o.failure.toStdString()
        << "\" prompts=[" << o.prompts.join(QStringLiteral(" | ")).toStdString() << "]";
}

Outcome outcomeOf(const std::function<QString(Prompter&)>& call)
{
    ScriptedPrompter prompter;
    Outcome outcome;
    try {
        outcome.text = call(prompter);
    } catch (const DataError& e) {
        outcome.failure = e.sentence();
    }
    for (const ScriptedPrompter::Prompt& p : prompter.prompts)
        outcome.prompts.append(
            QString::number(int(p.kind)) + u'/' + QString::number(int(p.icon)) + u'/' + p.text);
    return outcome;
}

QString ref(int row, int id)
{
    return encodedReference(row, QString::number(id));
}

void addItem(ReferenceList& list, const QString& text, qint16 id, const QString& code)
{
    list.Texts.append(text);
    list.Ids.append(id);
    list.Codes.append(code);
    list.RawCodes.append(QStringLiteral("raw:") + code);
    list.ItemCount = qint16(list.ItemCount + 1);
}

ReferenceListTable emptyTable()
{
    ReferenceListTable table;
    for (int r = 0; r < kReferenceRowCount; ++r) {
        table[size_t(r)].UsesIds = true;
        table[size_t(r)].ListName = QStringLiteral("Row%1").arg(r);
    }
    return table;
}

void expectAllAgree(const ReferenceListTable& table, const QString& text, int encodeRow)
{
    SCOPED_TRACE(text.toStdString());
    for (ResolveForm form : {ResolveForm::A, ResolveForm::B, ResolveForm::C}) {
        const Outcome fast
            = outcomeOf([&](Prompter&) { return ResolveReferences(table, text, form); });
        const Outcome slow
            = outcomeOf([&](Prompter&) { return oracle::ResolveReferences(table, text, form); });
        EXPECT_EQ(fast, slow) << "resolve form " << int(form);
    }
    EXPECT_EQ(outcomeOf([&](Prompter& p) { return DecodeReferences(table, text, p); }),
        outcomeOf([&](Prompter& p) { return oracle::DecodeReferences(table, text, p); }));
    EXPECT_EQ(outcomeOf([&](Prompter& p) { return EncodeReferences(table, encodeRow, text, p); }),
        outcomeOf(
            [&](Prompter& p) { return oracle::EncodeReferences(table, encodeRow, text, p); }));
}

} // namespace

TEST(ReferenceDifferential, ResolveKeepsTheOrderOfTheSteps)
{
    ReferenceListTable table = emptyTable();
    // Row 3, ID 0 resolves to a code that holds a reference of a later pair
    // (row 5) and one of an earlier pair (row 2): only the later one is
    // replaced again.
    addItem(table[2], QStringLiteral("two"), 0, QStringLiteral("TWO"));
    addItem(table[3], QStringLiteral("three"), 0, ref(5, 0) + u'+' + ref(2, 0));
    addItem(table[5], QStringLiteral("five"), 0, QStringLiteral("FIVE"));
    const QString text = ref(3, 0);
    EXPECT_EQ(ResolveReferences(table, text, ResolveForm::A), QStringLiteral("FIVE+") + ref(2, 0));
    expectAllAgree(table, text, 3);
    // Within a row the same holds ID by ID.
    addItem(table[3], QStringLiteral("three b"), 1, ref(3, 0) + ref(3, 2));
    addItem(table[3], QStringLiteral("three c"), 2, QStringLiteral("C"));
    EXPECT_EQ(ResolveReferences(table, ref(3, 1), ResolveForm::A), ref(3, 0) + u'C');
    expectAllAgree(table, ref(3, 1) + ref(3, 0), 3);
}

TEST(ReferenceDifferential, ReferencesFormedAcrossAReplacement)
{
    ReferenceListTable table = emptyTable();
    // Row 1, ID 0 resolves to nothing, which joins "&&" and "4$$0§" into a
    // reference of row 4 (later: replaced) or row 0 (earlier: kept).
    addItem(table[0], QStringLiteral("zero"), 0, QStringLiteral("Z"));
    addItem(table[1], QStringLiteral(""), 0, QString());
    addItem(table[4], QStringLiteral("four"), 0, QStringLiteral("F"));
    EXPECT_EQ(ResolveReferences(table, QStringLiteral("&&") + ref(1, 0) + QStringLiteral("4$$0§"),
                  ResolveForm::A),
        u"F");
    EXPECT_EQ(ResolveReferences(table, QStringLiteral("&&") + ref(1, 0) + QStringLiteral("0$$0§"),
                  ResolveForm::A),
        ref(0, 0));
    for (const QString& text : {QStringLiteral("&&") + ref(1, 0) + QStringLiteral("4$$0§"),
             QStringLiteral("&&") + ref(1, 0) + QStringLiteral("0$$0§"),
             QStringLiteral("&&&") + ref(1, 0) + QStringLiteral("&4$$0§x"),
             ref(1, 0) + ref(1, 0) + QStringLiteral("&&4$$0§")})
        expectAllAgree(table, text, 1);
}

TEST(ReferenceDifferential, DecodeReportsNegativeIdsAndBrokenReferences)
{
    ReferenceListTable table = emptyTable();
    addItem(table[7], QStringLiteral("Group A"), 0, QStringLiteral("grp[0]"));
    addItem(table[7], QStringLiteral("Ghost"), -3, QStringLiteral("grp[1]"));
    addItem(table[17], QStringLiteral("Flag"), -1, QStringLiteral("flag[0]"));
    addItem(table[17], QStringLiteral("Flag B"), 1, QStringLiteral("flag[1]"));
    ScriptedPrompter prompter;
    EXPECT_EQ(DecodeReferences(table, ref(7, -3) + ref(17, 9), prompter),
        QStringLiteral("Ghost") + ref(17, 9));
    ASSERT_EQ(prompter.messageTexts().size(), 2);
    EXPECT_EQ(prompter.messageTexts().at(0),
        u"getIDfromIndex variable Error! (Row7: 7, 1). Couldn't find variable.");
    EXPECT_TRUE(prompter.statusLines().isEmpty());
    for (const QString& text :
        {ref(7, -3), ref(17, 9), QStringLiteral("a&&b&&c"), ref(7, 0), QStringLiteral("-1"),
            QStringLiteral("?"), ref(17, -1) + QStringLiteral("x") + ref(99, 1),
            QStringLiteral("&&17$$-0§"), QStringLiteral("&&017$$1§"), QStringLiteral("&&7$$")})
        expectAllAgree(table, text, 17);
}

TEST(ReferenceDifferential, RepeatedIdsAndRowsWithoutIds)
{
    ReferenceListTable table = emptyTable();
    addItem(table[12], QStringLiteral("First"), 4, QStringLiteral("event0"));
    addItem(table[12], QStringLiteral("Second"), 4, QStringLiteral("event1"));
    addItem(table[12], QStringLiteral("Third"), 6, QStringLiteral("event2"));
    table[20].UsesIds = false;
    addItem(table[20], QStringLiteral("Red"), 9, QStringLiteral("RED"));
    addItem(table[20], QStringLiteral("Blue"), 9, QStringLiteral("BLUE"));
    // Decoding takes the first item with an ID, resolving the last.
    ScriptedPrompter prompter;
    EXPECT_EQ(DecodeReferences(table, ref(12, 4), prompter), u"First");
    EXPECT_EQ(ResolveReferences(table, ref(12, 4), ResolveForm::A), u"event1");
    for (const QString& text : {ref(12, 4), ref(12, 5), ref(12, 7), ref(12, 8), ref(20, 1),
             ref(20, 9), ref(20, 10) + QStringLiteral("Red Blue"), QStringLiteral("First Third")})
        expectAllAgree(table, text, 12);
    expectAllAgree(table, QStringLiteral("Red and Blue"), 20);
}

TEST(ReferenceDifferential, InconsistentRowsFailAlike)
{
    ReferenceListTable table = emptyTable();
    addItem(table[3], QStringLiteral("Tank"), -2, QStringLiteral("T"));
    addItem(table[5], QStringLiteral("Jeep"), 0, QStringLiteral("J"));
    addItem(table[9], QStringLiteral("Ship"), 0, QStringLiteral("S"));
    table[9].Ids.clear(); // fewer IDs than items
    table[5].Codes.clear(); // fewer codes than items
    for (const QString& text : {ref(3, -2), ref(5, 0), ref(9, 0), QStringLiteral("Jeep Tank")})
        expectAllAgree(table, text, 3);
    table[9].Ids.append(0);
    table[5].Texts.clear();
    for (const QString& text : {ref(5, 0), ref(3, -2), QStringLiteral("Jeep")})
        expectAllAgree(table, text, 5);
}

TEST(ReferenceDifferential, EncodeTraps)
{
    ReferenceListTable table = emptyTable();
    ReferenceList& units = table[3];
    addItem(units, QStringLiteral("Tank"), 0, QStringLiteral("T0"));
    addItem(units, QStringLiteral("Tank0"), 1, QStringLiteral("T1"));
    addItem(units, QString(), 2, QStringLiteral("T2"));
    addItem(units, QStringLiteral("3"), 3, QStringLiteral("T3"));
    addItem(units, QStringLiteral("$$"), 10, QStringLiteral("T4"));
    addItem(units, ref(3, 1), 11, QStringLiteral("T5")); // an item that reads like a reference
    addItem(units, QStringLiteral("Jeep"), -4, QStringLiteral("T6"));
    addItem(units, QStringLiteral("Tank"), 12, QStringLiteral("T7"));
    for (const QString& text : {QStringLiteral("Tank0"), QStringLiteral("Tank Tank0 Jeep"),
             QStringLiteral("3 Tank 3"), ref(3, 1), ref(3, 1) + QStringLiteral("Tank"),
             QStringLiteral("$$$$$"), QStringLiteral("Jeep"), QStringLiteral("nothing")})
        expectAllAgree(table, text, 3);
    // A text past the first best length is only encoded if that brings it below.
    expectAllAgree(table, QString(9990, u'x') + QStringLiteral("Tank0Tank0Tank0"), 3);
    expectAllAgree(table, QString(10010, u'x') + QStringLiteral("Tank0"), 3);
}

// Generated tables: small alphabets so that texts collide, repeat and
// contain each other; codes and texts that hold references; IDs that repeat,
// go negative or leave gaps; some rows without IDs.
class Generator
{
public:
    // `wideIds`: IDs of every length a 16-bit number can have, so that trial
    // references differ in length from pass to pass.
    explicit Generator(unsigned seed, bool wideIds = false)
        : m_random(seed)
        , m_wideIds(wideIds)
    {
    }

    int id()
    {
        if (!m_wideIds)
            return number(0, 9) == 0 ? number(-3, -1) : number(0, 8);
        static const int bounds[] = {-32768, -100, -1, 0, 9, 10, 99, 100, 9999, 10000, 32767};
        return number(0, 4) == 0 ? bounds[number(0, 10)] : number(0, 12);
    }

    int number(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }

    QString fragment(const ReferenceListTable* table)
    {
        static const QStringList pieces = {QStringLiteral("a"), QStringLiteral("b"),
            QStringLiteral("ab"), QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("&"),
            QStringLiteral("&&"), QStringLiteral("$$"), QStringLiteral("§"), QStringLiteral("-"),
            QStringLiteral(" ")};
        const int kind = number(0, 9);
        if (kind < 4) {
            const int row = number(0, 5);
            return ref(row, m_wideIds ? id() : number(-2, 6));
        }
        if (kind < 6 && table) {
            const ReferenceList& list = (*table)[size_t(number(0, 5))];
            if (list.ItemCount > 0)
                return list.Texts.at(number(0, list.ItemCount - 1));
        }
        return pieces.at(number(0, int(pieces.size()) - 1));
    }

    QString text(const ReferenceListTable* table, int maxPieces)
    {
        QString result;
        for (int i = number(0, maxPieces); i > 0; --i)
            result += fragment(table);
        return result;
    }

    ReferenceListTable table()
    {
        ReferenceListTable table = emptyTable();
        for (int r = 0; r < 6; ++r) {
            ReferenceList& list = table[size_t(r)];
            list.UsesIds = number(0, 5) > 0;
            const int count = number(0, 7);
            for (int k = 0; k < count; ++k) {
                addItem(list, text(nullptr, 3), qint16(id()), text(nullptr, 2));
            }
            for (int k = int(list.RawCodes.size()); k < 5; ++k)
                list.RawCodes.append(text(nullptr, 2));
        }
        return table;
    }

private:
    std::mt19937 m_random;
    bool m_wideIds;
};

TEST(ReferenceDifferential, GeneratedTablesAndTexts)
{
    for (unsigned seed = 1; seed <= 400; ++seed) {
        Generator generator(seed);
        const ReferenceListTable table = generator.table();
        for (int t = 0; t < 12; ++t) {
            SCOPED_TRACE(seed);
            const QString text = generator.text(&table, 8);
            expectAllAgree(table, text, generator.number(0, 5));
            if (HasFailure())
                return;
        }
    }
}

TEST(ReferenceDifferential, GeneratedTablesWithIdsOfEveryLength)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Generator generator(seed, true);
        const ReferenceListTable table = generator.table();
        for (int t = 0; t < 10; ++t) {
            SCOPED_TRACE(seed);
            expectAllAgree(table, generator.text(&table, 8), generator.number(0, 5));
            if (HasFailure())
                return;
        }
    }
}

TEST(ReferenceDifferential, OneIndexServesManyTexts)
{
    Generator generator(7);
    const ReferenceListTable table = generator.table();
    const ReferenceIndex index(table);
    for (int t = 0; t < 300; ++t) {
        const QString text = generator.text(&table, 10);
        EXPECT_EQ(outcomeOf([&](Prompter&) { return index.resolve(text, ResolveForm::B); }),
            outcomeOf(
                [&](Prompter&) { return oracle::ResolveReferences(table, text, ResolveForm::B); }));
        EXPECT_EQ(outcomeOf([&](Prompter& p) { return index.decode(text, p); }),
            outcomeOf([&](Prompter& p) { return oracle::DecodeReferences(table, text, p); }));
    }
}

TEST(ReferenceDifferential, LargeRowEncodesAlike)
{
    // Names that are prefixes of one another ("Unit 1", "Unit 12", ...),
    // a few of them repeated, with IDs in a different order than positions.
    ReferenceListTable table = emptyTable();
    ReferenceList& list = table[12];
    for (int k = 0; k < 400; ++k)
        addItem(list, QStringLiteral("Unit %1").arg(k % 370), qint16((k * 7) % 401),
            QStringLiteral("event%1").arg(k));
    for (const QString& text :
        {QStringLiteral("Unit 12"), QStringLiteral("Unit 1 and Unit 123, Unit 369"),
            QStringLiteral("Unit 3Unit 30Unit 300"), QStringLiteral("Unit"), ref(12, 7)})
        expectAllAgree(table, text, 12);
}
