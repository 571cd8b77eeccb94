#include "project_builder.h"

#include "catalogue/project_lists.h"
#include "document/project_file.h"
#include "resources/resource_items.h"

#include <stdexcept>

using namespace tarvo;

namespace {

int kindIndex(const Catalogue& catalogue, const QString& title)
{
    for (int i = 0; i < catalogue.size(); ++i) {
        if (catalogue.at(i).Title == title)
            return i;
    }
    throw std::runtime_error("no kind titled " + title.toStdString());
}

template <typename Record>
Record& append(QList<Record>& records, qint16& count, const Catalogue& catalogue,
    const QString& title, const QStringList& values)
{
    const int kind = kindIndex(catalogue, title);
    Record record;
    static_cast<CatalogueEntry&>(record) = catalogue.at(kind);
    record.Kind = qint16(kind);
    for (int i = 0; i < values.size() && i < record.Args.size(); ++i)
        record.Args[i].Value = values.at(i);
    records.append(record);
    count = qint16(records.size());
    return records.last();
}

} // namespace

ProjectBuilder::ProjectBuilder(const QString& programDir)
    : workspace(programDir, prompter)
{
    ResetProject(workspace);
}

int ProjectBuilder::addEvent(const QString& name, bool disabled, int id)
{
    Project& p = workspace.project;
    refreshEventRow(p);
    EventRecord event;
    event.name = name;
    event.disabled = disabled;
    event.id = qint16(id >= 0 ? id : NextVariableID(p, row::Events));
    p.events.resize(p.eventCount);
    p.events.append(event);
    p.eventCount = qint16(p.events.size());
    refreshEventRow(p);
    return p.eventCount - 1;
}

int ProjectBuilder::addTimer(const QString& name, int id)
{
    Project& p = workspace.project;
    refreshTimerRow(p);
    TimerRecord timer;
    timer.name = name;
    timer.id = qint16(id >= 0 ? id : NextVariableID(p, row::Timers));
    p.timers.resize(p.timerCount);
    p.timers.append(timer);
    p.timerCount = qint16(p.timers.size());
    p.timerListLines.append(name);
    refreshTimerRow(p);
    return p.timerCount - 1;
}

ActionRecord& ProjectBuilder::addAction(
    int event, const QString& title, const QStringList& values, bool inactive)
{
    EventRecord& e = workspace.project.events[event];
    ActionRecord& action
        = append(e.actions, e.actionCount, workspace.actionCatalogue, title, values);
    action.inactive = inactive;
    return action;
}

void ProjectBuilder::addItem(
    int row, const QString& text, int id, const QString& code, const QString& rawCode)
{
    ReferenceList& list = workspace.project.tables[size_t(row)];
    const qsizetype n = list.ItemCount;
    for (QStringList* texts : {&list.Texts, &list.Codes, &list.RawCodes})
        texts->resize(n + 1);
    list.Ids.resize(n + 1);
    list.Texts[n] = text;
    list.Codes[n] = code.isEmpty() ? text : code;
    list.RawCodes[n] = rawCode.isEmpty() ? list.Codes[n] : rawCode;
    list.Ids[n] = qint16(id);
    list.ItemCount = qint16(n + 1);
}

int ProjectBuilder::addMessage(const QString& text)
{
    const int position = AddMessage(workspace.project, prompter, text);
    refreshMessageRow(workspace.project);
    return position;
}

QByteArray ProjectBuilder::bytes() const
{
    return projectFileBytes(workspace.project);
}
