#include "versions/project_outline.h"

#include "base/checked.h"
#include "versions/record_words.h"

namespace tarvo {

namespace {

class OutlineWriter
{
public:
    explicit OutlineWriter(const Project& project)
        : m_project(project)
        , m_words(project)
    {
    }

    QString project()
    {
        line(0, QStringLiteral("project ") + quotedWords(m_project.name));
        comment(1, m_project.scriptComment);
        variables();
        sounds();
        messages();
        for (int t = 0; t < heldCount(m_project.timerCount, m_project.timers); ++t)
            timer(m_project.timers.at(t));
        for (int e = 0; e < heldCount(m_project.eventCount, m_project.events); ++e) {
            m_text += u'\n';
            event(m_project.events.at(e));
        }
        return std::move(m_text);
    }

    QString event(const EventRecord& event)
    {
        line(0,
            RecordWords::eventName(event)
                + (event.disabled ? QStringLiteral(", off") : QStringLiteral(", on")));
        line(1, QStringLiteral("trigger: ") + m_words.trigger(event));
        comment(1, event.comment);
        for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c)
            condition(c, event.conditions.at(c));
        for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a)
            action(a, event.actions.at(a));
        return m_text;
    }

private:
    // Without trailing blanks ("Offset:" for an empty value), which git
    // would mark as whitespace errors in every diff.
    void line(int depth, const QString& text)
    {
        qsizetype end = text.size();
        while (end > 0 && text.at(end - 1) == u' ')
            --end;
        m_text += QString(depth * 4, u' ');
        m_text += QStringView(text).left(end);
        m_text += u'\n';
    }

    // Every line of a comment on a line of its own, so a changed comment line
    // shows as that line in a line-by-line comparison.
    void comment(int depth, const QString& text)
    {
        if (text.isEmpty())
            return;
        QString normalized = text;
        normalized.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        normalized.replace(u'\r', u'\n');
        for (const QString& piece : normalized.split(u'\n'))
            line(depth, QStringLiteral("comment: ") + piece);
    }

    void variables()
    {
        for (int t = 0; t < kReferenceRowCount; ++t) {
            const ReferenceList& list = m_project.tables[size_t(t)];
            if (!list.Saved)
                continue;
            m_text += u'\n';
            line(0,
                QStringLiteral("list row %1 %2%3")
                    .arg(t)
                    .arg(quotedWords(list.ListName),
                        list.UsesIds ? QString() : QStringLiteral(", without IDs")));
            for (int j = 0; j < list.ItemCount; ++j)
                line(1,
                    QStringLiteral("%1: script name %2, value %3")
                        .arg(m_words.variableName(t, list.Texts.value(j), list.Ids.value(j)),
                            quotedWords(list.Codes.value(j)), quotedWords(list.RawCodes.value(j))));
        }
    }

    void sounds()
    {
        const int count = int(heldCount(m_project.soundCount, m_project.sounds));
        if (count == 0)
            return;
        m_text += u'\n';
        for (int i = 0; i < count; ++i) {
            const SoundRecord& sound = m_project.sounds.at(i);
            QString text = RecordWords::soundName(sound) + QStringLiteral(": file ")
                + quotedWords(sound.secondText);
            if (sound.thirdText != sound.firstText)
                text += QStringLiteral(", also named ") + quotedWords(sound.thirdText);
            line(0, text);
        }
    }

    void messages()
    {
        const int count = int(heldCount(m_project.messageCount, m_project.messages));
        if (count == 0)
            return;
        m_text += u'\n';
        for (int i = 0; i < count; ++i) {
            const MessageRecord& message = m_project.messages.at(i);
            line(0, QStringLiteral("message %1: %2").arg(message.id).arg(message.text));
        }
    }

    void timer(const TimerRecord& timer)
    {
        m_text += u'\n';
        line(0, RecordWords::timerName(timer));
        line(1, QStringLiteral("trigger: ") + m_words.trigger(timer));
        comment(1, timer.comment);
    }

    void arguments(const CatalogueEntry& entry)
    {
        for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k)
            line(2,
                RecordWords::argumentLabel(entry, k) + QStringLiteral(": ")
                    + m_words.shown(entry.Args.at(k).Value));
    }

    static QString onOff(bool inactive)
    {
        return inactive ? QStringLiteral(", off") : QStringLiteral(", on");
    }

    void condition(int position, const ConditionRecord& condition)
    {
        line(
            1, RecordWords::itemName("condition", position, condition) + onOff(condition.inactive));
        if (condition.negation != 0)
            line(2, QStringLiteral("negation: ") + RecordWords::negationShown(condition.negation));
        arguments(condition);
        // Value type 17 has no operator and no compared value.
        if (condition.ResultB != 17 || !condition.comparisonValue.isEmpty())
            line(2,
                QStringLiteral("compared: ") + RecordWords::operatorShown(condition.operatorIndex)
                    + u' ' + m_words.shown(condition.comparisonValue));
        comment(2, condition.comment);
    }

    void action(int position, const ActionRecord& action)
    {
        line(1, RecordWords::itemName("action", position, action) + onOff(action.inactive));
        arguments(action);
        if (!action.text.isEmpty())
            line(2, QStringLiteral("text: ") + m_words.shown(action.text));
        comment(2, action.comment);
    }

    const Project& m_project;
    RecordWords m_words;
    QString m_text;
};

} // namespace

QString projectOutline(const Project& project)
{
    return OutlineWriter(project).project();
}

QString eventOutline(const Project& project, const EventRecord& event)
{
    return OutlineWriter(project).event(event);
}

} // namespace tarvo
