#pragma once

// Case folders for the verbs that run on the project document
// (tests/data/<area>/<case>/script.txt and expected.txt, the project and
// catalogues of <area>): each verb's result, the prompts it gave, what the
// document announced and the history it left. Steps the document does not
// take (answers, dumps) are those of workspace_case.h.

#include "document/project_document.h"
#include "resources/resource_commands.h"
#include "variables/variable_commands.h"
#include "workspace_case.h"

namespace golden {

// The fields of a change announcement, in the order of ProjectChange.
inline QString changeText(const tarvo::ProjectChange& change)
{
    QStringList parts;
    if (change.sounds)
        parts << QStringLiteral("sounds");
    if (change.messages)
        parts << QStringLiteral("messages");
    if (change.events)
        parts << QStringLiteral("events");
    for (size_t row = 0; row < change.rows.size(); ++row) {
        if (change.rows.test(row))
            parts << QStringLiteral("row %1").arg(row);
    }
    if (change.fromHistory)
        parts << QStringLiteral("from history");
    return QStringLiteral("changed ") + parts.join(QStringLiteral(", "));
}

inline QString historyText(const tarvo::ProjectDocument& document)
{
    return line("history undo", document.canUndo() ? document.undoLabel() : QString(), "redo",
        document.canRedo() ? document.redoLabel() : QString());
}

inline QString documentStep(tarvo::ProjectDocument& document, const QStringList& words)
{
    using namespace tarvo;
    const auto t = [&](int k) { return words.at(k); };
    const auto n = [&](int k) { return words.at(k).toInt(); };
    const auto removal
        = [](const RemovalResult& r) { return line("removed", r.removed, "select", r.selection); };
    const std::map<QString, std::function<QString()>> steps = {
        {"add-sound", [&] { return str(AddSound(document, t(1))); }},
        {"remove-sound", [&] { return removal(RemoveSound(document, n(1))); }},
        {"add-message", [&] { return str(AddMessage(document, t(1))); }},
        {"update-message", [&] { return str(UpdateMessage(document, n(1), t(2))); }},
        {"remove-message", [&] { return removal(RemoveMessage(document, n(1))); }},
        {"close-sounds", [&] { return CloseSounds(document), QString(); }},
        {"new-group", [&] { return str(NewGroup(document)); }},
        {"new-number", [&] { return str(NewNumber(document)); }},
        {"delete-group", [&] { return str(DeleteGroup(document, n(1))); }},
        {"delete-number", [&] { return str(DeleteNumber(document, n(1))); }},
        {"rename", [&] { return str(RenameVariable(document, n(1), n(2), t(3))); }},
        {"set-flag", [&] { return SetFlagValue(document, n(1), t(2)), QString(); }},
        {"update-number", [&] { return str(UpdateNumberValue(document, n(1), t(2))); }},
        {"undo", [&] { return document.undo(), QString(); }},
        {"redo", [&] { return document.redo(), QString(); }},
    };
    const auto found = steps.find(t(0));
    if (found == steps.end())
        return step(document.workspace(),
            static_cast<ScriptedPrompter&>(document.workspace().prompter), words);
    QStringList out;
    const QMetaObject::Connection listening = QObject::connect(&document, &ProjectDocument::changed,
        [&](const ProjectChange& change) { out << changeText(change); });
    out.prepend(outcome([&] { return Raw {found->second()}; }).text);
    QObject::disconnect(listening);
    out << historyText(document);
    out.removeAll(QString());
    return out.join(u'\n');
}

inline void checkDocumentCase(const Case& c)
{
    const TestProgramFolder program {QString(), QString()};
    writeBytes(program.file(QStringLiteral("temp.txt")), readBytes(c.conditions));
    writeBytes(program.file(QStringLiteral("temp2.txt")), readBytes(c.actions));
    ScriptedPrompter prompter;
    tarvo::Workspace workspace(program.path(), prompter);
    const QString input = program.file(QStringLiteral("input.vnsc"));
    tarvo::ResetProject(workspace);
    writeBytes(input, readBytes(c.project));
    tarvo::LoadProject(workspace, input);
    tarvo::ProjectDocument document(workspace);
    QStringList out;
    for (const QString& text :
        QString::fromUtf8(readBytes(c.script)).split(u'\n', Qt::SkipEmptyParts)) {
        const qsizetype from = prompter.prompts.size();
        out << QStringLiteral("> ") + text << documentStep(document, words(text));
        shown(out, prompter, from);
    }
    out.removeAll(QString());
    expectFileHolds(c.expected, (out.join(u'\n') + u'\n').toUtf8());
}

} // namespace golden

// One test per case folder under tests/data/<root>.
#define DOCUMENT_CASE_FOLDERS(Suite, root)                                                         \
    class Suite : public testing::TestWithParam<golden::Case>                                      \
    {                                                                                              \
    };                                                                                             \
    TEST_P(Suite, MatchTheGoldenFiles)                                                             \
    {                                                                                              \
        golden::checkDocumentCase(GetParam());                                                     \
    }                                                                                              \
    INSTANTIATE_TEST_SUITE_P(Folders, Suite,                                                       \
        testing::ValuesIn(golden::folderCases(QStringLiteral(root))), golden::caseName)
