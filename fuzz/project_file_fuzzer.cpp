// Any bytes as a project file: the load ends with a FileError or succeeds,
// whatever was read stays usable, and what a save writes loads again.
#include "fuzz_support.h"
#include "model/project_file.h"

namespace {

using namespace tarvo;

const fuzz::Scratch& scratch()
{
    static const fuzz::Scratch folder;
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QString path = scratch().write(QStringLiteral("input.vnsc"), data, size);
    fuzz::SilentPrompter prompter;
    Workspace workspace(fuzz::fixtureDir(), prompter);
    bool loaded = true;
    try {
        LoadProject(workspace, path);
    } catch (const FileError&) {
        loaded = false;
    }
    // A failed load leaves a partly read project that the editor keeps
    // showing, saving and compiling: it must be as safe as a complete one.
    fuzz::exerciseProject(workspace);
    if (!loaded)
        return 0;

    QByteArray saved;
    try {
        saved = projectFileBytes(workspace.project);
    } catch (const DataError&) {
        return 0;
    }
    const QString again = scratch().write(QStringLiteral("again.vnsc"), saved);
    Workspace reloaded(fuzz::fixtureDir(), prompter);
    try {
        LoadProject(reloaded, again);
    } catch (const FileError&) {
        // Only the one-slot timer rule may refuse what the writer wrote.
        if (workspace.project.timerCount < 2)
            __builtin_trap();
    }
    return 0;
}
