#pragma once

// Case folders (tests/data/<area>/<case>/): catalogues, optionally a project
// file and a script of steps, and the golden files of what they give. The
// dump names every field of every record and list row, so a value put into
// the wrong place shows as a changed line. TARVO_WRITE_EXPECTED=1 rewrites the
// golden files from what the program does now; read the diff before keeping it.

#include "case_files.h"
#include "catalogue/catalogue_loader.h"
#include "catalogue/project_lists.h"
#include "catalogue/reference_checks.h"
#include "document/project_file.h"
#include "program_folder.h"
#include "resources/resource_items.h"
#include "resources/resource_removal.h"
#include "scripted_prompter.h"
#include "test_paths.h"
#include "text/basic_text.h"
#include "text/code_page.h"
#include "text/shown_text.h"
#include "text/text_file.h"
#include "variables/variable_operations.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <functional>
#include <gtest/gtest.h>
#include <map>

namespace golden {

// Text that goes into a dump line as it is.
struct Raw
{
    QString text;
};

// Texts as JSON strings: in quotes, with line breaks, tabs and control
// characters escaped.
inline QString quoted(const QString& text)
{
    const QByteArray json = QJsonDocument(QJsonArray {text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(json.mid(1, json.size() - 2));
}

// One value of a dump line: texts quoted, truth values yes or no, labels bare.
template <typename T> QString str(const T& v)
{
    if constexpr (std::is_same_v<T, Raw>)
        return v.text;
    else if constexpr (std::is_same_v<T, bool>)
        return v ? QStringLiteral("yes") : QStringLiteral("no");
    else if constexpr (std::is_arithmetic_v<T>)
        return QString::number(v);
    else if constexpr (std::is_same_v<T, QString>)
        return quoted(v);
    else if constexpr (std::is_same_v<T, QStringList>)
        return QString::fromUtf8(
            QJsonDocument(QJsonArray::fromStringList(v)).toJson(QJsonDocument::Compact));
    else
        return QString::fromUtf8(v); // a label
}

template <typename... Parts> QString line(const Parts&... parts)
{
    return QStringList {str(parts)...}.join(u' ');
}

// What a step gives, or the sentence of the error it stops with.
template <typename Step> Raw outcome(Step step)
{
    try {
        return {str(step())};
    } catch (const tarvo::DataError& error) {
        return {QStringLiteral("error ") + error.sentence()};
    } catch (const tarvo::FileError& e) { // without the system's words for the reason
        return {line("error", e.file(), e.line(), e.sentence().section(':', 0, 0))};
    }
}

inline void entry(
    QStringList& out, const QString& indent, const QString& head, const tarvo::CatalogueEntry& e)
{
    out << indent + head + u' '
            + line(e.Title, "kind", e.Kind, "call", e.CallName, "result", e.ResultA, e.ResultB,
                e.ResultText, "form", e.CodeMode, "code", e.CodeLineCount, e.CodeLines, "args",
                e.ArgCount, "slots", e.Args.size());
    if (!e.Description.isEmpty())
        out << indent + line("  about", e.Description);
    for (qsizetype k = 0; k < e.Args.size(); ++k) {
        const tarvo::ArgumentSlot& a = e.Args.at(k);
        out << indent
                + line("  arg", k, a.Label, a.Hint, "kind", a.ValueKind, "list", a.ListRef, "alt",
                    a.UseAltBox, "value", a.Value);
    }
}

template <typename Record> Raw trigger(const Record& r)
{
    return {line("kind", r.triggerKind, "args", r.triggerArgCount, r.triggerArgTexts[0],
        r.triggerArgTexts[1], r.triggerArgTexts[2], "types", r.triggerArgTypes[0],
        r.triggerArgTypes[1], r.triggerArgTypes[2], "ID", r.id)};
}

// A list row with every slot of its four per-item arrays that holds anything.
inline void dumpRow(QStringList& out, const tarvo::Project& p, int t)
{
    const tarvo::ReferenceList& r = p.tables[size_t(t)];
    out << line("row", t, r.ListName, "scope", r.Scope, r.CodeTemplate, r.ValueType, "ids",
        r.UsesIds, "saved", r.Saved, "items", r.ItemCount, "slots", r.Texts.size(), r.Codes.size(),
        r.Ids.size(), r.RawCodes.size(), "next", outcome([&] { return NextVariableID(p, t); }));
    const qsizetype slots
        = std::max({r.Texts.size(), r.Codes.size(), r.Ids.size(), r.RawCodes.size()});
    for (qsizetype i = 0; i < slots; ++i)
        out << line("  item", i, r.Texts.value(i), r.Codes.value(i), r.RawCodes.value(i), "ID",
            r.Ids.value(i));
}

inline void dumpProject(QStringList& out, const tarvo::Project& p, const QString& path)
{
    using namespace tarvo;
    out << line("project", p.name, "file", p.hasFile, "path", p.filePath == path, "comment",
        p.scriptComment);
    out << line("sounds", p.soundCount, "slots", p.sounds.size(), "next",
        outcome([&] { return UpperSndID(p); }));
    for (const SoundRecord& s : p.sounds)
        out << line("  sound", s.firstText, s.secondText, "ID", s.id, s.thirdText);
    out << line("messages", p.messageCount, "slots", p.messages.size(), "next",
        outcome([&] { return UpperMsgID(p); }));
    for (const MessageRecord& m : p.messages)
        out << line("  message", "ID", m.id, m.text);
    out << line("timers", p.timerCount, "slots", p.timers.size(), "list", p.timerListLines);
    for (const TimerRecord& t : p.timers)
        out << line("  timer", t.name, trigger(t), "comment", t.comment);
    out << line("events", p.eventCount, "slots", p.events.size());
    for (qsizetype i = 0; i < p.events.size(); ++i) {
        const EventRecord& e = p.events.at(i);
        out << line("  event", i, e.name, trigger(e), "off", e.disabled, "conditions",
            e.conditionCount, "slots", e.conditions.size(), "actions", e.actionCount, "slots",
            e.actions.size(), "comment", e.comment);
        for (qsizetype k = 0; k < e.conditions.size(); ++k) {
            const ConditionRecord& c = e.conditions.at(k);
            entry(out, QStringLiteral("    "),
                line("condition", k, "not", c.negation, "op", c.operatorIndex, "value",
                    c.comparisonValue, "off", c.inactive, "comment", c.comment),
                c);
        }
        for (qsizetype k = 0; k < e.actions.size(); ++k) {
            const ActionRecord& a = e.actions.at(k);
            entry(out, QStringLiteral("    "),
                line("action", k, "text", a.text, "off", a.inactive, "comment", a.comment), a);
        }
    }
    ReferenceList blank;
    blank.UsesIds = true;
    for (int t = 0; t < kReferenceRowCount; ++t) {
        if (p.tables[size_t(t)] != blank && p.tables[size_t(t)] != ReferenceList {})
            dumpRow(out, p, t);
    }
}

inline void dumpCatalogues(QStringList& out, const tarvo::Workspace& w)
{
    out << line("condition kinds", tarvo::conditionKindItems(w.conditionCatalogue));
    for (qsizetype i = 0; i < w.conditionCatalogue.size(); ++i)
        entry(out, QStringLiteral("  "), line("condition", i), w.conditionCatalogue.at(i));
    out << line("action kinds", tarvo::actionKindItems(w.actionCatalogue));
    for (qsizetype i = 0; i < w.actionCatalogue.size(); ++i)
        entry(out, QStringLiteral("  "), line("action", i), w.actionCatalogue.at(i));
}

template <typename Dump> QString dump(Dump add)
{
    QStringList out;
    add(out);
    return out.join(u'\n');
}

// The words of a script line: the verb, then its fields.
inline QStringList words(const QString& text)
{
    const CaseStep step = parseStep(text);
    return QStringList {step.word} + step.fields;
}

// The steps a script may name: each runs one routine and gives what it gave
// as text ("" for nothing), or the sentence of the error it stops with.
inline QString step(tarvo::Workspace& w, ScriptedPrompter& ask, const QStringList& words)
{
    using namespace tarvo;
    using namespace tarvo::text;
    Project& p = w.project;
    const auto t = [&](int k) { return words.at(k); };
    const auto n = [&](int k) { return words.at(k).toInt(); };
    const std::map<QString, std::function<QString()>> steps = {
        {"answer-yes", [&] { return ask.answers << Prompter::Answer::Yes, QString(); }},
        {"answer-no", [&] { return ask.answers << Prompter::Answer::No, QString(); }},
        {"input", [&] { return ask.inputs << words.value(1), QString(); }},
        {"row", [&] { return dump([&](QStringList& out) { dumpRow(out, p, n(1)); }); }},
        {"project", [&] { return dump([&](QStringList& out) { dumpProject(out, p, {}); }); }},
        {"repeat",
            [&] {
                QStringList out;
                for (int i = 0; i < n(1); ++i)
                    out << step(w, ask, words.mid(2));
                out.removeAll(QString());
                return out.join(u' ');
            }},
        {"new-group", [&] { return str(NewGroup(p, ask)); }},
        {"new-number", [&] { return str(NewNumber(p, ask)); }},
        {"delete-group", [&] { return str(DeleteGroup(p, ask, n(1))); }},
        {"delete-number", [&] { return str(DeleteNumber(p, ask, n(1))); }},
        {"rename", [&] { return str(RenameVariable(p, ask, n(1), n(2))); }},
        {"names", [&] { return str(variableNames(p, n(1))); }},
        {"set-flag", [&] { return SetFlagValue(p, n(1), t(2)), QString(); }},
        {"flag-choice", [&] { return str(flagChoice(p, n(1))); }},
        {"update-number", [&] { return str(UpdateNumberValue(p, ask, n(1), t(2))); }},
        {"number-value", [&] { return str(numberValueText(p, n(1))); }},
        {"add-sound", [&] { return str(AddSound(p, t(1))); }},
        {"add-message", [&] { return str(AddMessage(p, ask, t(1))); }},
        {"update-message", [&] { return str(UpdateMessage(p, ask, n(1), t(2))); }},
        {"refresh-lists", [&] { return RefreshProjectLists(p), QString(); }},
        {"selection-after", [&] { return str(selectionAfterRemoval(n(1), n(2))); }},
        {"event-in-use", [&] { return str(CheckEventInUse(w, t(1)).size()); }},
        {"next-id", [&] { return str(NextVariableID(p, n(1))); }},
        {"replace", [&] { return str(basicReplace(t(1), t(2), t(3))); }},
        {"trim", [&] { return str(basicTrim(t(1))); }},
        {"split", [&] { return str(basicSplit(t(1), t(2).at(0))); }},
        {"val", [&] { return str(val(t(1))); }},
        {"val-int16", [&] { return str(valInt16(t(1))); }},
        {"to-int16", [&] { return str(toInt16(t(1))); }},
        // A text repeated n times: long inputs without long case files.
        {"to-int16-repeated", [&] { return str(toInt16(t(1).repeated(n(2)))); }},
        {"shown", [&] { return str(shownText(t(1).repeated(n(2)), n(3), n(4))); }},
        {"to-bool", [&] { return str(toBool(t(1))); }},
        {"decode", [&] { return str(decodeCodePage(QByteArray::fromHex(t(1).toLatin1()))); }},
        {"split-lines", [&] { return str(splitLines(t(1))); }},
        {"remove",
            [&] {
                const RemovalResult r = RemoveResource(p, ask, n(1), n(2));
                return line("removed", r.removed, "select", r.selection);
            }},
        {"commit-comment",
            [&] {
                const CommentPlace place {qint16(n(1)), qint16(n(2)), qint16(n(3))};
                return CommitComment(p, place, t(4)), QString();
            }},
        {"sound-file-path",
            [&] {
                p.filePath = t(1);
                return str(soundFilePath(p, SoundRecord {{}, t(2), 0, {}}));
            }},
        {"encode",
            [&] {
                const qsizetype bad = firstUnencodable(t(1));
                return bad < 0 ? QString::fromLatin1(encodeCodePage(t(1)).toHex(' '))
                               : line("cannot", bad, describeCharacter(t(1), bad));
            }},
        {"read-lines", [&] { return str(readTextLines(t(1))); }},
        {"spare-slots", // records behind the counts, as a damaged file leaves them
            [&] {
                return p.sounds << SoundRecord {t(1), {}, 99, {}},
                       p.messages << MessageRecord {t(1), 99}, "";
            }},
    };
    const auto found = steps.find(t(0));
    if (found == steps.end())
        throw std::runtime_error("unknown step " + t(0).toStdString());
    return outcome([&] { return Raw {found->second()}; }).text;
}

// The prompts shown since `from`, a run of equal ones as one line.
inline void shown(QStringList& out, const ScriptedPrompter& prompter, qsizetype from)
{
    static const char* const kinds[] = {"message", "input", "open", "save", "beep", "status"};
    static const char* const icons[] = {"plain", "information", "exclamation", "critical", "?"};
    QStringList lines;
    for (const ScriptedPrompter::Prompt& p : prompter.prompts.mid(from))
        lines << line("?", kinds[int(p.kind)], p.text, p.title, icons[int(p.icon)],
            p.buttons == tarvo::Prompter::Buttons::YesNo ? "yes/no" : "ok", "default",
            p.defaultText);
    for (qsizetype k = 0, run = 1; k < lines.size(); k += run, run = 1) {
        while (k + run < lines.size() && lines.at(k + run) == lines.at(k))
            ++run;
        out << lines.at(k) + (run > 1 ? QStringLiteral(" x%1").arg(run) : QString());
    }
}

// Catalogue files (none: empty), the project file to load (none: only the
// catalogues are loaded, and dumped), a script of steps, the golden output,
// and the golden bytes of a save after a clean load (missing: the input).
struct Case
{
    std::string name;
    QString conditions, actions, project, script, expected, resaved;
    friend void PrintTo(const Case& c, std::ostream* out) { *out << c.name; }
};

inline void checkCase(const Case& c)
{
    const TestProgramFolder program {QString(), QString()};
    for (const auto& [from, to] : {std::pair {c.conditions, QStringLiteral("temp.txt")},
             std::pair {c.actions, QStringLiteral("temp2.txt")}})
        writeBytes(program.file(to), from.isEmpty() ? QByteArray() : readBytes(from));
    ScriptedPrompter prompter;
    tarvo::Workspace workspace(program.path(), prompter);
    const QString input = program.file(QStringLiteral("input.vnsc"));
    QStringList out {QStringLiteral("loaded")};
    try {
        tarvo::ResetProject(workspace);
        if (!c.project.isEmpty()) {
            writeBytes(input, readBytes(c.project));
            tarvo::LoadProject(workspace, input);
        }
    } catch (const tarvo::FileError& error) {
        out[0] = QStringLiteral("error ") + error.message().remove(program.path() + u'/');
    }
    shown(out, prompter, 0);
    const QStringList script = c.script.isEmpty()
        ? QStringList()
        : QString::fromUtf8(readBytes(c.script)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& text : script) {
        const qsizetype from = prompter.prompts.size();
        out << QStringLiteral("> ") + text << step(workspace, prompter, words(text));
        shown(out, prompter, from);
    }
    if (c.project.isEmpty() && script.isEmpty())
        dumpCatalogues(out, workspace);
    if (script.isEmpty())
        dumpProject(out, workspace.project, input);
    out.removeAll(QString());
    expectFileHolds(c.expected, (out.join(u'\n') + u'\n').toUtf8());

    // Whatever a load leaves, even a failed one, can be saved.
    const QString saved = program.file(QStringLiteral("saved.vnsc"));
    ASSERT_NO_THROW(tarvo::SaveProject(workspace.project, saved));
    if (c.project.isEmpty() || c.resaved.isEmpty() || !script.isEmpty() || out[0] != u"loaded")
        return;
    const QByteArray bytes = readBytes(saved);
    if (QFileInfo::exists(c.resaved) || bytes != readBytes(c.project))
        expectFileHolds(c.resaved, bytes);
}

// Every folder under tests/data/<root>, with temp.txt, temp2.txt and
// input.vnsc of its own or of <root>, and script.txt if it has one. A file
// kept elsewhere (the hostile inputs, which the command-line tests compile
// too) is named by a "<file>.from" holding its path relative to the folder.
inline std::vector<Case> folderCases(const QString& root)
{
    const QDir base(testDataDir() + u'/' + root);
    std::vector<Case> cases;
    for (const QString& name : base.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QDir dir(base.filePath(name));
        const auto find = [&](const QString& file, bool inRoot) {
            const QString from = QString::fromUtf8(readBytes(dir.filePath(file + ".from")));
            return !from.isEmpty()            ? QDir::cleanPath(dir.filePath(from.trimmed()))
                : dir.exists(file)            ? dir.filePath(file)
                : inRoot && base.exists(file) ? base.filePath(file)
                                              : QString();
        };
        cases.push_back({name.toStdString(), find("temp.txt", true), find("temp2.txt", true),
            find("input.vnsc", true), find("script.txt", false), dir.filePath("expected.txt"),
            dir.filePath("resaved.vnsc")});
    }
    return cases;
}

inline std::string caseName(const testing::TestParamInfo<Case>& info)
{
    return info.param.name;
}

} // namespace golden

// One test per case folder under tests/data/<root>.
#define GOLDEN_CASE_FOLDERS(Suite, root)                                                           \
    class Suite : public testing::TestWithParam<golden::Case>                                      \
    {                                                                                              \
    };                                                                                             \
    TEST_P(Suite, MatchTheGoldenFiles)                                                             \
    {                                                                                              \
        golden::checkCase(GetParam());                                                             \
    }                                                                                              \
    INSTANTIATE_TEST_SUITE_P(Folders, Suite,                                                       \
        testing::ValuesIn(golden::folderCases(QStringLiteral(root))), golden::caseName)
