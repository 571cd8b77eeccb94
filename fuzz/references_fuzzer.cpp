// Arbitrary stored text against a loaded table. The table is the fixture
// project's, changed by a few edits taken from the input (IDs, texts,
// counts and flags a hostile project file could give a row), so that the
// routines meet negative, repeated and missing IDs as well as good ones.
#include "catalogue/reference_markers.h"
#include "fuzz_support.h"
#include "model/project_file.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

using namespace tarvo;

const ReferenceListTable& loadedTable()
{
    static const ReferenceListTable table = [] {
        fuzz::SilentPrompter prompter;
        Workspace workspace(fuzz::fixtureDir(), prompter);
        LoadProject(workspace, fuzz::fixtureDir() + QStringLiteral("/table.vnsc"));
        return workspace.project.tables;
    }();
    return table;
}

QString consumeText(FuzzedDataProvider& input, size_t maxBytes)
{
    const std::string bytes = input.ConsumeRandomLengthString(maxBytes);
    return QString::fromLatin1(bytes.data(), qsizetype(bytes.size()))
        .replace(u'~', QStringLiteral("§"));
}

void editTable(ReferenceListTable& table, FuzzedDataProvider& input)
{
    const int edits = input.ConsumeIntegralInRange(0, 6);
    for (int i = 0; i < edits; ++i) {
        ReferenceList& list = table[input.ConsumeIntegralInRange(0, kReferenceRowCount - 1)];
        const int position = input.ConsumeIntegralInRange(0, int(list.ItemCount));
        switch (input.ConsumeIntegralInRange(0, 4)) {
        case 0: // a "<vv>" line with any ID
            if (position < list.Ids.size())
                list.Ids[position] = input.ConsumeIntegral<qint16>();
            break;
        case 1: // any display name
            if (position < list.Texts.size())
                list.Texts[position] = consumeText(input, 12);
            break;
        case 2: // any script code
            if (position < list.Codes.size())
                list.Codes[position] = consumeText(input, 12);
            break;
        case 3: // "<vg>" says whether the row looks IDs up
            list.UsesIds = input.ConsumeBool();
            break;
        case 4: { // "<vg>" sets a count; the reader sizes the arrays by it
            const qint16 count = input.ConsumeIntegralInRange<qint16>(0, 40);
            list.ItemCount = count;
            list.Codes.resize(count + 1);
            list.Texts.resize(count + 1);
            list.Ids.resize(count + 1);
            list.RawCodes.resize(count + 1);
            break;
        }
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    FuzzedDataProvider input(data, size);
    ReferenceListTable table = loadedTable();
    editTable(table, input);
    const int row = input.ConsumeIntegralInRange(-1, kReferenceRowCount - 1);
    // "~" stands for the section sign so that short inputs reach it.
    const QString stored = consumeText(input, size);
    const QString typed = consumeText(input, size);
    fuzz::SilentPrompter prompter;

    try {
        DecodeReferences(table, stored, prompter);
    } catch (const DataError&) {
    }
    for (ResolveForm form : {ResolveForm::A, ResolveForm::B, ResolveForm::C}) {
        try {
            ResolveReferences(table, stored, form);
        } catch (const DataError&) {
        }
    }
    RowOfReference(stored);
    IdOfReference(stored);
    try {
        const QString encoded = EncodeReferences(table, row, typed, prompter);
        DecodeReferences(table, encoded, prompter);
        referenceBoxNamesItem(table, row, typed, prompter);
    } catch (const DataError&) {
    }
    try {
        comboItemsFromList(table, row);
        GetIndexFromID(table, row < 0 ? 0 : row, IdOfReference(stored));
        NextFreeID(table, row < 0 ? 0 : row);
    } catch (const DataError&) {
    }
    return 0;
}
