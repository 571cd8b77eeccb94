#include "catalogue/project_lists.h"

#include "base/checked.h"
#include "text/basic_text.h"

#include <algorithm>
#include <utility>

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

// Whether `code` is `prefix` followed by `index` written the usual way; no
// text is made.
bool isPlainNumberedCode(const QString& code, QLatin1String prefix, int index)
{
    char16_t digits[12];
    qsizetype count = 0;
    for (unsigned rest = unsigned(index); count == 0 || rest > 0; rest /= 10)
        digits[count++] = char16_t(u'0' + rest % 10);
    if (code.size() != prefix.size() + count)
        return false;
    const QChar* chars = code.constData();
    for (qsizetype k = 0; k < prefix.size(); ++k) {
        if (chars[k] != QLatin1Char(prefix[k]))
            return false;
    }
    for (qsizetype k = 0; k < count; ++k) {
        if (chars[prefix.size() + k] != QChar(digits[count - 1 - k]))
            return false;
    }
    return true;
}

// Whether `code` is `prefix` followed by `index` in decimal; no text is made.
bool isNumberedCode(const QString& code, QLatin1String prefix, int index)
{
    if (index >= 0 && isPlainNumberedCode(code, prefix, index))
        return true;
    if (!code.startsWith(prefix))
        return false;
    const QStringView digits = QStringView(code).mid(prefix.size());
    bool isNumber = false;
    return !digits.isEmpty() && digits.front() != u'0'
        ? digits.toInt(&isNumber) == index && isNumber
        : digits == u"0" && index == 0;
}

// Brings the events or timers row up to date in place, from entry `from` on
// (the entries in front of it are known to be right): an entry that is
// already right keeps its texts, so a large row costs a scan and no new text
// (and a later comparison finds the shared texts equal at once). Lists that
// are already right are not written to, so a row shared with an earlier
// state of the project stays shared.
template <typename Records>
void refreshNumberedRow(
    ReferenceList& list, const Records& records, qint16 count, QLatin1String prefix, int from = 0)
{
    const int n = int(heldCount(count, records));
    for (QStringList* texts : {&list.Codes, &list.Texts, &list.RawCodes}) {
        if (texts->size() != n)
            texts->resize(n);
    }
    if (list.Ids.size() != n)
        list.Ids.resize(n);
    const QStringList& codes = list.Codes;
    const QStringList& shownTexts = list.Texts;
    const QStringList& rawCodes = list.RawCodes;
    const QList<qint16>& ids = list.Ids;
    for (int i = std::max(from, 0); i < n; ++i) {
        const auto& record = records.at(i);
        // Once the list is its own, putting the name in is cheaper than
        // reading both texts to compare them; before, a text of the same
        // content is kept so that the list stays shared.
        const QString& shown = shownTexts.at(i);
        if ((shown.constData() != record.name.constData() || shown.size() != record.name.size())
            && (list.Texts.isDetached() || shown != record.name))
            list.Texts[i] = record.name;
        if (ids.at(i) != record.id)
            list.Ids[i] = record.id;
        const bool numbered = list.Scope != 2;
        if (numbered ? !isNumberedCode(codes.at(i), prefix, i)
                     : codes.at(i)
                    != text::basicReplace(
                        list.CodeTemplate, QStringLiteral("&&0"), QString::number(i)))
            list.Codes[i] = numbered
                ? prefix + QString::number(i)
                : text::basicReplace(list.CodeTemplate, QStringLiteral("&&0"), QString::number(i));
        if (!isNumberedCode(rawCodes.at(i), prefix, i))
            list.RawCodes[i] = prefix + QString::number(i);
    }
    list.ItemCount = qint16(n);
}

} // namespace

void refreshEventRow(Project& project, int from)
{
    refreshNumberedRow(project.tables[row::Events], std::as_const(project.events),
        project.eventCount, QLatin1String("event"), from);
}

void refreshTimerRow(Project& project)
{
    refreshNumberedRow(project.tables[row::Timers], std::as_const(project.timers),
        project.timerCount, QLatin1String("Timer"));
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
