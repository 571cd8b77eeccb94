// Any bytes as the action catalogue, which also declares the list rows:
// the reader gives a FileError or a catalogue, the rows it filled answer
// every lookup, and a project loaded against them stays safe.
#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_markers.h"
#include "fuzz_support.h"
#include "model/project_file.h"

namespace {

using namespace tarvo;

const fuzz::Scratch& scratch()
{
    static const fuzz::Scratch folder = [] {
        fuzz::Scratch made;
        made.copyFixture(QStringLiteral("temp.txt"));
        made.copyFixture(QStringLiteral("table.vnsc"));
        return made;
    }();
    return folder;
}

// Every item of every row, by reference, through display and script forms.
void exerciseRows(const ReferenceListTable& tables, Prompter& prompter)
{
    for (int r = 0; r < kReferenceRowCount; ++r) {
        try {
            comboItemsFromList(tables, r);
            // The ends of the ID range are where lookups go wrong.
            const int end = NextFreeID(tables, r);
            for (int id : {-1, 0, 1, end - 1, end}) {
                const QString reference = encodedReference(r, QString::number(id));
                DecodeReferences(tables, reference, prompter);
                ResolveReferences(tables, reference, ResolveForm::B);
            }
        } catch (const DataError&) {
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = scratch().write(QStringLiteral("temp2.txt"), data, size);
    fuzz::SilentPrompter prompter;
    {
        ReferenceListTable tables;
        try {
            actionKindItems(readActionCatalogue(path, tables));
        } catch (const FileError&) {
            return 0;
        }
        SetUpReferenceRows(tables);
        exerciseRows(tables, prompter);
    }
    Workspace workspace(scratch().dir(), prompter);
    try {
        LoadProject(workspace, scratch().dir() + QStringLiteral("/table.vnsc"));
    } catch (const FileError&) {
    }
    fuzz::exerciseProject(workspace);
    exerciseRows(workspace.project.tables, prompter);
    return 0;
}
