#include "fuzz_support.h"

#include "catalogue/reference_markers.h"
#include "model/file_error.h"
#include "model/project_file.h"

#include <QFile>
#include <cstdio>
#include <cstdlib>

namespace tarvo::fuzz {

QString fixtureDir()
{
    return QStringLiteral(TARVO_FUZZ_FIXTURE_DIR);
}

Scratch::Scratch()
{
    if (!m_dir.isValid()) {
        std::fprintf(stderr, "no scratch folder: %s\n", qPrintable(m_dir.errorString()));
        std::abort();
    }
}

QString Scratch::write(const QString& name, const uint8_t* data, size_t size) const
{
    return write(
        name, QByteArray::fromRawData(reinterpret_cast<const char*>(data), qsizetype(size)));
}

QString Scratch::write(const QString& name, const QByteArray& bytes) const
{
    const QString path = m_dir.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || file.write(bytes) != bytes.size()) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
        std::abort();
    }
    return path;
}

void Scratch::copyFixture(const QString& name) const
{
    QFile source(fixtureDir() + u'/' + name);
    if (!source.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "missing fixture %s\n", qPrintable(source.fileName()));
        std::abort();
    }
    write(name, source.readAll());
}

namespace {

// One stored value through every routine that shows or compiles it.
void exerciseValue(Workspace& workspace, const QString& value, int listRow)
{
    const ReferenceListTable& tables = workspace.project.tables;
    try {
        DecodeReferences(tables, value, workspace.prompter);
    } catch (const DataError&) {
    }
    // Form C is form A in parentheses; A and B take different paths.
    for (ResolveForm form : {ResolveForm::A, ResolveForm::B}) {
        try {
            ResolveReferences(tables, value, form);
        } catch (const DataError&) {
        }
    }
    RowOfReference(value);
    IdOfReference(value);
    try {
        comboItemsFromList(tables, listRow);
    } catch (const DataError&) {
    }
}

template <typename Entry> void exerciseArguments(Workspace& workspace, const Entry& entry)
{
    for (int k = 0; k < entry.ArgCount && k < entry.Args.size(); ++k)
        exerciseValue(workspace, entry.Args.at(k).Value, entry.Args.at(k).ListRef);
}

} // namespace

void exerciseProject(Workspace& workspace)
{
    const Project& project = workspace.project;
    for (int e = 0; e < project.eventCount && e < project.events.size(); ++e) {
        const EventRecord& event = project.events.at(e);
        for (const QString& text : event.triggerArgTexts)
            exerciseValue(workspace, text, -1);
        for (int c = 0; c < event.conditionCount && c < event.conditions.size(); ++c) {
            const ConditionRecord& condition = event.conditions.at(c);
            exerciseValue(workspace, condition.comparisonValue, -1);
            exerciseArguments(workspace, condition);
        }
        for (int a = 0; a < event.actionCount && a < event.actions.size(); ++a)
            exerciseArguments(workspace, event.actions.at(a));
    }
    for (int t = 0; t < project.timerCount && t < project.timers.size(); ++t) {
        for (const QString& text : project.timers.at(t).triggerArgTexts)
            exerciseValue(workspace, text, -1);
    }
    try {
        projectFileBytes(project);
    } catch (const DataError&) {
    }
}

} // namespace tarvo::fuzz
