#include "catalogue/project_lists.h"

#include "model/checked.h"
#include "text/basic_text.h"

namespace tarvo {

namespace {

struct Item
{
    QString text;
    qint16 id;
    QString code;
    QString rawCode;
};

// Replaces the items of a row, keeping its header (name, scope, template,
// type and flags).
void fillRow(ReferenceList& list, const QList<Item>& items)
{
    list.Codes.clear();
    list.Texts.clear();
    list.Ids.clear();
    list.RawCodes.clear();
    for (qsizetype k = 0; k < items.size(); ++k) {
        const Item& item = items.at(k);
        list.Texts.append(item.text);
        list.Ids.append(item.id);
        list.Codes.append(list.Scope == 2
                ? text::basicReplace(list.CodeTemplate, QStringLiteral("&&0"), QString::number(k))
                : item.code);
        list.RawCodes.append(item.rawCode);
    }
    list.ItemCount = static_cast<qint16>(items.size());
}

} // namespace

void refreshEventRow(Project& project)
{
    QList<Item> items;
    for (int i = 0; i < heldCount(project.eventCount, project.events); ++i) {
        const EventRecord& event = project.events.at(i);
        const QString code = QStringLiteral("event") + QString::number(i);
        items.append({event.name, event.id, code, code});
    }
    fillRow(project.tables[row::Events], items);
}

void refreshTimerRow(Project& project)
{
    QList<Item> items;
    for (int i = 0; i < heldCount(project.timerCount, project.timers); ++i) {
        const TimerRecord& timer = project.timers.at(i);
        const QString code = QStringLiteral("Timer") + QString::number(i);
        items.append({timer.name, timer.id, code, code});
    }
    fillRow(project.tables[row::Timers], items);
}

void refreshSoundRow(Project& project)
{
    QList<Item> items;
    for (int i = 0; i < heldCount(project.soundCount, project.sounds); ++i) {
        const SoundRecord& sound = project.sounds.at(i);
        items.append({sound.firstText, sound.id, u'"' + sound.firstText + u'"', sound.firstText});
    }
    fillRow(project.tables[row::Sounds], items);
}

void refreshMessageRow(Project& project)
{
    QList<Item> items;
    for (int i = 0; i < heldCount(project.messageCount, project.messages); ++i) {
        const MessageRecord& message = project.messages.at(i);
        const QString name = QStringLiteral("msg") + QString::number(i);
        items.append({message.text, message.id, name, name});
    }
    fillRow(project.tables[row::Messages], items);
}

void RefreshProjectLists(Project& project)
{
    refreshSoundRow(project);
    refreshMessageRow(project);
    refreshEventRow(project);
}

} // namespace tarvo
