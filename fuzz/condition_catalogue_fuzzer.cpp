// Any bytes as the condition catalogue: the reader gives a FileError or a
// catalogue, and a project whose conditions are rebuilt from it loads or
// fails cleanly.
#include "catalogue/catalogue_loader.h"
#include "fuzz_support.h"
#include "model/project_file.h"

namespace {

using namespace tarvo;

const fuzz::Scratch& scratch()
{
    static const fuzz::Scratch folder = [] {
        fuzz::Scratch made;
        made.copyFixture(QStringLiteral("temp2.txt"));
        made.copyFixture(QStringLiteral("table.vnsc"));
        return made;
    }();
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = scratch().write(QStringLiteral("temp.txt"), data, size);
    try {
        conditionKindItems(readConditionCatalogue(path));
    } catch (const FileError&) {
        return 0;
    }
    fuzz::SilentPrompter prompter;
    Workspace workspace(scratch().dir(), prompter);
    try {
        LoadProject(workspace, scratch().dir() + QStringLiteral("/table.vnsc"));
    } catch (const FileError&) {
    }
    fuzz::exerciseProject(workspace);
    return 0;
}
