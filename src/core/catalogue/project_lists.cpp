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

namespace {

// Whether `code` is `prefix` followed by `index` in decimal; no text is made.
bool isNumberedCode(const QString& code, QLatin1String prefix, int index)
{
    if (!code.startsWith(prefix))
        return false;
    const QStringView digits = QStringView(code).mid(prefix.size());
    bool isNumber = false;
    return !digits.isEmpty() && digits.front() != u'0'
        ? digits.toInt(&isNumber) == index && isNumber
        : digits == u"0" && index == 0;
}

// Brings the events or timers row up to date in place: an entry that is
// already right keeps its texts, so a large row costs a scan and no new text
// (and a later comparison finds the shared texts equal at once).
template <typename Records>
void refreshNumberedRow(
    ReferenceList& list, const Records& records, qint16 count, QLatin1String prefix)
{
    const int n = int(heldCount(count, records));
    for (QStringList* texts : {&list.Codes, &list.Texts, &list.RawCodes})
        texts->resize(n);
    list.Ids.resize(n);
    for (int i = 0; i < n; ++i) {
        const auto& record = records.at(i);
        if (list.Texts.at(i) != record.name)
            list.Texts[i] = record.name;
        if (list.Ids.at(i) != record.id)
            list.Ids[i] = record.id;
        const bool numbered = list.Scope != 2;
        if (numbered ? !isNumberedCode(list.Codes.at(i), prefix, i)
                     : list.Codes.at(i)
                    != text::basicReplace(
                        list.CodeTemplate, QStringLiteral("&&0"), QString::number(i)))
            list.Codes[i] = numbered
                ? prefix + QString::number(i)
                : text::basicReplace(list.CodeTemplate, QStringLiteral("&&0"), QString::number(i));
        if (!isNumberedCode(list.RawCodes.at(i), prefix, i))
            list.RawCodes[i] = prefix + QString::number(i);
    }
    list.ItemCount = qint16(n);
}

} // namespace

void refreshEventRow(Project& project)
{
    refreshNumberedRow(
        project.tables[row::Events], project.events, project.eventCount, QLatin1String("event"));
}

void refreshTimerRow(Project& project)
{
    refreshNumberedRow(
        project.tables[row::Timers], project.timers, project.timerCount, QLatin1String("Timer"));
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
