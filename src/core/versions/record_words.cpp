#include "versions/record_words.h"

#include "catalogue/project_places.h"
#include "catalogue/trigger_tables.h"

namespace tarvo {

QString quotedWords(const QString& text)
{
    return u'\'' + text + u'\'';
}

RecordWords::RecordWords(const Project& project)
    : m_project(project)
    , m_index(project.tables)
{
}

QString RecordWords::shown(const QString& stored) const
{
    // Most texts hold no reference; decoding them would only copy them.
    if (!stored.contains(QLatin1String("&&")))
        return stored;
    m_prompter.reported.clear();
    return m_index.decode(stored, m_prompter);
}

QString RecordWords::operatorShown(int index)
{
    const QStringList items = operatorComboItems();
    return index >= 0 && index < items.size() ? items.at(index) : QString();
}

QString RecordWords::negationShown(int index)
{
    return index == 1 ? QStringLiteral("Not") : QString();
}

QString RecordWords::eventName(const EventRecord& event)
{
    return QStringLiteral("event %1 (ID %2)").arg(quotedWords(event.name)).arg(event.id);
}

QString RecordWords::timerName(const TimerRecord& timer)
{
    return QStringLiteral("timer %1 (ID %2)").arg(quotedWords(timer.name)).arg(timer.id);
}

QString RecordWords::itemName(const char* what, int position, const CatalogueEntry& entry)
{
    return QStringLiteral("%1 %2 %3")
        .arg(QLatin1String(what))
        .arg(position + 1)
        .arg(quotedWords(entry.Title));
}

QString RecordWords::soundName(const SoundRecord& sound)
{
    return QStringLiteral("sound %1 (ID %2)").arg(quotedWords(sound.firstText)).arg(sound.id);
}

QString RecordWords::messageName(const MessageRecord& message)
{
    return QStringLiteral("message %1 %2").arg(message.id).arg(quotedWords(message.text));
}

QString RecordWords::variableName(int row, const QString& text, int id) const
{
    const QString kind = itemKind(m_project.tables, row);
    // "item of the list 'Players'" names the list after the item.
    if (kind.startsWith(QLatin1String("item ")))
        return QStringLiteral("item %1 (ID %2) %3").arg(quotedWords(text)).arg(id).arg(kind.mid(5));
    return QStringLiteral("%1 %2 (ID %3)").arg(kind, quotedWords(text)).arg(id);
}

QString RecordWords::argumentLabel(const CatalogueEntry& entry, int k)
{
    const QString label = k < entry.Args.size() ? entry.Args.at(k).Label : QString();
    return label.isEmpty() ? QStringLiteral("argument %1").arg(k + 1) : label;
}

QString RecordWords::triggerText(
    qint16 kind, qint16 argCount, const std::array<QString, 3>& texts) const
{
    QString words = kind >= 0 && kind < kTriggerKindCount ? triggerKind(kind).caption : QString();
    if (words.isEmpty())
        words = QStringLiteral("trigger kind %1").arg(kind);
    QStringList arguments;
    for (int k = 0; k < qBound(0, int(argCount), 3); ++k)
        arguments << shown(texts[size_t(k)]);
    if (!arguments.isEmpty())
        words += u' ' + arguments.join(QLatin1String(", "));
    return words;
}

} // namespace tarvo
