#pragma once

// One load case: catalogues, optionally a project file, and golden files for
// what the load leaves. The dump names every field of every record and list
// row, so a value read into the wrong place shows as a changed line.
// TARVO_UPDATE_GOLDEN=1 rewrites the golden files from what the program does
// now; read the diff before committing it.

#include "catalogue/catalogue_loader.h"
#include "model/project_file.h"
#include "program_folder.h"
#include "scripted_prompter.h"
#include "test_paths.h"

#include <QDir>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace golden {

struct Raw
{
    QString text;
};

inline QString str(const Raw& raw)
{
    return raw.text;
}
inline QString str(const char* label)
{
    return QString::fromUtf8(label);
}
inline QString str(int n)
{
    return QString::number(n);
}
inline QString str(qsizetype n)
{
    return QString::number(n);
}
inline QString str(bool b)
{
    return b ? QStringLiteral("yes") : QStringLiteral("no");
}

// Texts in quotes, with line breaks, tabs and control characters visible.
inline QString str(const QString& text)
{
    QString out = QStringLiteral("\"");
    for (const QChar c : text) {
        if (c == u'\\' || c == u'"')
            out += u'\\' + QString(c);
        else if (c == u'\r' || c == u'\n' || c == u'\t')
            out += c == u'\r' ? QStringLiteral("\\r")
                : c == u'\n'  ? QStringLiteral("\\n")
                              : QStringLiteral("\\t");
        else if (c.unicode() < 0x20 || (c.unicode() >= 0x7F && c.unicode() < 0xA0))
            out += QStringLiteral("\\x%1").arg(c.unicode(), 2, 16, QLatin1Char('0'));
        else
            out += c;
    }
    return out + u'"';
}

inline QString str(const QStringList& list)
{
    QStringList quoted;
    for (const QString& text : list)
        quoted << str(text);
    return u'[' + quoted.join(u' ') + u']';
}

template <typename... Parts> QString line(const Parts&... parts)
{
    return QStringList {str(parts)...}.join(u' ');
}

template <typename Next> Raw nextId(Next next)
{
    try {
        return {QString::number(next())};
    } catch (const tarvo::DataError& error) {
        return {QStringLiteral("refused: ") + error.sentence()};
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

inline void dumpProject(QStringList& out, const tarvo::Project& p, const QString& path)
{
    using namespace tarvo;
    out << line("project", p.name, "file", p.hasFile, "path", p.filePath == path, "comment",
        p.scriptComment, "mode", p.commentMode, "selected", p.selectedEvent, p.selectedTimer);
    out << line("sounds", p.soundCount, "slots", p.sounds.size(), "next",
        nextId([&] { return UpperSndID(p); }));
    for (qsizetype i = 0; i < p.sounds.size(); ++i) {
        const SoundRecord& s = p.sounds.at(i);
        out << line("  sound", i, s.firstText, s.secondText, "ID", s.id, s.thirdText);
    }
    out << line("messages", p.messageCount, "slots", p.messages.size(), "next",
        nextId([&] { return UpperMsgID(p); }));
    for (qsizetype i = 0; i < p.messages.size(); ++i)
        out << line("  message", i, "ID", p.messages.at(i).id, p.messages.at(i).text);
    out << line("timers", p.timerCount, "slots", p.timers.size(), "list", p.timerListLines);
    for (qsizetype i = 0; i < p.timers.size(); ++i) {
        const TimerRecord& t = p.timers.at(i);
        out << line("  timer", i, t.name, trigger(t), "comment", t.comment);
    }
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
        const ReferenceList& r = p.tables[size_t(t)];
        if (r == blank || r == ReferenceList {})
            continue;
        out << line("row", t, r.ListName, "scope", r.Scope, r.CodeTemplate, r.ValueType, "ids",
            r.UsesIds, "saved", r.Saved, "items", r.ItemCount, "slots", r.Texts.size(),
            r.Codes.size(), r.Ids.size(), r.RawCodes.size(), "next",
            nextId([&] { return NextVariableID(p, t); }));
        const qsizetype slots
            = std::max({r.Texts.size(), r.Codes.size(), r.Ids.size(), r.RawCodes.size()});
        for (qsizetype i = 0; i < slots; ++i) {
            if (!r.Texts.value(i).isEmpty() || !r.Codes.value(i).isEmpty()
                || !r.RawCodes.value(i).isEmpty() || r.Ids.value(i) != 0)
                out << line("  item", i, r.Texts.value(i), r.Codes.value(i), r.RawCodes.value(i),
                    "ID", r.Ids.value(i));
        }
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

inline void expectGolden(const QString& path, const QByteArray& actual)
{
    if (qEnvironmentVariableIsSet("TARVO_UPDATE_GOLDEN") && readBytes(path) != actual)
        writeBytes(path, actual);
    EXPECT_TRUE(readBytes(path) == actual) << path.toStdString() << " differs; the program gives:\n"
                                           << actual.toStdString();
}

// Catalogue files (missing: empty), the project file to load (none: only the
// catalogues are loaded, and dumped), the golden dump, and the golden bytes
// of a save after a clean load (missing: the input itself).
struct Case
{
    std::string name;
    QString conditions, actions, project, expected, resaved;
};

inline void PrintTo(const Case& c, std::ostream* out)
{
    *out << c.name;
}

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
    if (c.project.isEmpty())
        dumpCatalogues(out, workspace);
    dumpProject(out, workspace.project, input);
    for (const ScriptedPrompter::Prompt& prompt : prompter.prompts)
        out << line("prompt", prompt.text);
    expectGolden(c.expected, (out.join(u'\n') + u'\n').toUtf8());

    // Whatever a load leaves, even a failed one, can be saved.
    const QString saved = program.file(QStringLiteral("saved.vnsc"));
    ASSERT_NO_THROW(tarvo::SaveProject(workspace.project, saved));
    if (c.resaved.isEmpty() || out[0] != u"loaded")
        return;
    const QByteArray bytes = readBytes(saved);
    const bool differs
        = qEnvironmentVariableIsSet("TARVO_UPDATE_GOLDEN") && bytes != readBytes(c.project);
    expectGolden(QFileInfo::exists(c.resaved) || differs ? c.resaved : c.project, bytes);
}

// Every folder under tests/data/<root>: temp.txt and temp2.txt of its own or
// of <root>, input.vnsc when it has one, expected.txt and resaved.vnsc.
inline std::vector<Case> folderCases(const QString& root)
{
    const QDir base(testDataDir() + u'/' + root);
    const auto pick = [&](const QDir& dir, const QString& name) {
        return dir.exists(name) ? dir.filePath(name) : base.filePath(name);
    };
    std::vector<Case> cases;
    for (const QString& name : base.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QDir dir(base.filePath(name));
        Case c {name.toStdString(), pick(dir, QStringLiteral("temp.txt")),
            pick(dir, QStringLiteral("temp2.txt")), {},
            dir.filePath(QStringLiteral("expected.txt")), {}};
        if (dir.exists(QStringLiteral("input.vnsc"))) {
            c.project = dir.filePath(QStringLiteral("input.vnsc"));
            c.resaved = dir.filePath(QStringLiteral("resaved.vnsc"));
        }
        cases.push_back(c);
    }
    return cases;
}

// Inputs that once broke a reader, kept flat in tests/data/hostile/<kind>/
// (the command-line tests compile them too), with their dumps in expected/.
inline std::vector<Case> hostileCases(const QString& kind)
{
    const QDir dir(testDataDir() + QStringLiteral("/hostile/") + kind);
    const QString defaults = testDataDir() + QStringLiteral("/project_file/");
    std::vector<Case> cases;
    for (const QFileInfo& file : dir.entryInfoList(QDir::Files, QDir::Name)) {
        Case c;
        c.name = "hostile_" + file.completeBaseName().toStdString();
        c.expected = dir.filePath(QStringLiteral("expected/") + file.completeBaseName() + ".txt");
        if (kind == u"project_file") {
            c.conditions = defaults + "temp.txt";
            c.actions = defaults + "temp2.txt";
            c.project = file.filePath();
        } else {
            (kind == u"condition_catalogue" ? c.conditions : c.actions) = file.filePath();
        }
        cases.push_back(c);
    }
    return cases;
}

inline std::string caseName(const testing::TestParamInfo<Case>& info)
{
    return info.param.name;
}

} // namespace golden
