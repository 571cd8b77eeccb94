#include "model/file_error.h"
#include "model/project_file.h"
#include "text/basic_text.h"
#include "text/code_page.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tarvo {

using text::boolText;
using text::crlf;

namespace {

QString number(int value)
{
    return QString::number(value);
}

// Collects the file's lines as Windows-1252 bytes; the first character that
// does not fit stops the save with a sentence naming where it stands.
class LineSink
{
public:
    template <typename Where> void line(int tabs, const QString& text, Where where)
    {
        const qsizetype bad = text::firstUnencodable(text);
        if (bad >= 0)
            throw DataError(QStringLiteral("%1 holds the character %2, which the Windows-1252 "
                                           "code page cannot hold")
                                .arg(where(), text::describeCharacter(text, bad)));
        m_bytes.append(tabs, '\t');
        m_bytes.append(text::encodeCodePage(text));
        m_bytes.append("\r\n", 2);
    }

    void fields(int tabs, const QString& tag, const QStringList& values, auto where)
    {
        line(tabs, tag + u'|' + values.join(u'|'), where);
    }

    // A multi-line text becomes one tagged line per text line; only the first
    // carries the indentation.
    template <typename Where>
    void comment(int tabs, const QString& tag, const QString& text, Where where)
    {
        QString normalized = text;
        normalized.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        normalized.replace(u'\r', u'\n');
        const QStringList lines = normalized.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i)
            line(i == 0 ? tabs : 0, tag + u'|' + lines.at(i), where);
    }

    void emptyLine() { m_bytes.append("\r\n", 2); }

    QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
};

QString eventName(const EventRecord& event, int index)
{
    return QStringLiteral("event %1 (\"%2\")").arg(index).arg(event.name);
}

void writeTrigger(QStringList& fields, qint16 kind, qint16 argCount,
    const std::array<QString, 3>& texts, const std::array<qint16, 3>& types)
{
    fields << number(kind) << number(argCount) << texts[0] << texts[1] << texts[2]
           << number(types[0]) << number(types[1]) << number(types[2]);
}

void writeArguments(
    LineSink& out, const QString& tag, const CatalogueEntry& entry, const QString& owner)
{
    for (int k = 0; k < entry.ArgCount && k < entry.Args.size(); ++k) {
        const ArgumentRecord& argument = entry.Args.at(k);
        out.fields(2, tag, {argument.Value, number(argument.ListRef)},
            [&] { return QStringLiteral("the value of argument %1 of %2").arg(k).arg(owner); });
    }
}

void writeEvent(LineSink& out, const EventRecord& event, int index)
{
    const QString owner = eventName(event, index);
    QStringList fields {event.name};
    writeTrigger(fields, event.triggerKind, event.triggerArgCount, event.triggerArgTexts,
        event.triggerArgTypes);
    fields << number(event.conditionCount) << number(event.actionCount) << number(event.id)
           << boolText(event.disabled) << number(event.triggerArgCount);
    out.fields(0, QStringLiteral("<ev>"), fields,
        [&] { return QStringLiteral("the name or a trigger argument of ") + owner; });
    out.comment(1, QStringLiteral("<ecom>"), event.comment,
        [&] { return QStringLiteral("the comment of ") + owner; });

    // Counts are written as they stand; records a faulty file left out are
    // skipped rather than invented.
    for (int c = 0; c < event.conditionCount && c < event.conditions.size(); ++c) {
        const ConditionRecord& condition = event.conditions.at(c);
        const QString where = QStringLiteral("condition %1 of %2").arg(c).arg(owner);
        out.fields(1, QStringLiteral("<cn>"),
            {number(condition.Kind), number(condition.negation), condition.comparisonValue,
                number(condition.operatorIndex), number(condition.ResultB),
                boolText(condition.inactive)},
            [&] { return QStringLiteral("the comparison value of ") + where; });
        out.comment(3, QStringLiteral("<ccom>"), condition.comment,
            [&] { return QStringLiteral("the comment of ") + where; });
        writeArguments(out, QStringLiteral("<cf>"), condition, where);
        out.line(1, QStringLiteral("<ce>"), [] { return QString(); });
    }
    for (int a = 0; a < event.actionCount && a < event.actions.size(); ++a) {
        const ActionRecord& action = event.actions.at(a);
        const QString where = QStringLiteral("action %1 of %2").arg(a).arg(owner);
        out.fields(1, QStringLiteral("<ac>"),
            {number(action.Kind), action.text, boolText(action.inactive)},
            [&] { return QStringLiteral("the text of ") + where; });
        out.comment(3, QStringLiteral("<acom>"), action.comment,
            [&] { return QStringLiteral("the comment of ") + where; });
        writeArguments(out, QStringLiteral("<af>"), action, where);
        out.line(1, QStringLiteral("<ae>"), [] { return QString(); });
    }
    out.line(0, QStringLiteral("<ee>"), [] { return QString(); });
    out.emptyLine();
}

} // namespace

QByteArray projectFileBytes(const Project& project)
{
    LineSink out;
    auto none = [] { return QString(); };
    out.fields(0, QStringLiteral("<gl>"), {project.name},
        [] { return QStringLiteral("the project name"); });
    out.comment(0, QStringLiteral("<scm>"), project.scriptComment,
        [] { return QStringLiteral("the script comment"); });

    out.fields(0, QStringLiteral("<sn>"), {number(project.soundCount)}, none);
    for (int i = 0; i < project.soundCount && i < project.sounds.size(); ++i) {
        const SoundRecord& sound = project.sounds.at(i);
        out.fields(0, QStringLiteral("<sd>"),
            {sound.thirdText, number(sound.id), sound.secondText, sound.firstText},
            [&] { return QStringLiteral("the file name of sound %1").arg(i); });
    }
    out.fields(0, QStringLiteral("<ms>"), {number(project.messageCount)}, none);
    for (int i = 0; i < project.messageCount && i < project.messages.size(); ++i) {
        const MessageRecord& message = project.messages.at(i);
        out.fields(0, QStringLiteral("<md>"), {number(message.id), message.text},
            [&] { return QStringLiteral("the text of message %1").arg(i); });
    }

    // One "<ti>" line only: the reader makes room for one timer per such line.
    out.fields(0, QStringLiteral("<ti>"), {number(project.timerCount)}, none);
    for (int i = 0; i < project.timerCount && i < project.timers.size(); ++i) {
        const TimerRecord& timer = project.timers.at(i);
        const QString owner = QStringLiteral("timer %1 (\"%2\")").arg(i).arg(timer.name);
        out.comment(1, QStringLiteral("<tcom>"), timer.comment,
            [&] { return QStringLiteral("the comment of ") + owner; });
        QStringList fields {timer.name};
        writeTrigger(fields, timer.triggerKind, timer.triggerArgCount, timer.triggerArgTexts,
            timer.triggerArgTypes);
        fields << number(timer.id);
        out.fields(1, QStringLiteral("<ta>"), fields,
            [&] { return QStringLiteral("the name or a trigger argument of ") + owner; });
        out.line(0, QStringLiteral("<te>"), none);
    }

    for (int i = 0; i < project.eventCount && i < project.events.size(); ++i)
        writeEvent(out, project.events.at(i), i);

    for (int t = 0; t < kReferenceRowCount; ++t) {
        const ReferenceList& list = project.tables[t];
        if (!list.Saved)
            continue;
        out.fields(0, QStringLiteral("<vg>"),
            {number(t), boolText(list.UsesIds), number(list.ItemCount), list.ListName},
            [&] { return QStringLiteral("the name of list row %1").arg(t); });
        for (int j = 0; j < list.ItemCount; ++j) {
            out.fields(0, QStringLiteral("<vv>"),
                {list.Texts.value(j), list.Codes.value(j), list.RawCodes.value(j),
                    number(list.Ids.value(j))},
                [&] {
                    return QStringLiteral("entry %1 of list row %2 (\"%3\")")
                        .arg(j)
                        .arg(t)
                        .arg(list.Texts.value(j));
                });
        }
    }
    return out.take();
}

void SaveProject(Project& project, const QString& path)
{
    if (text::basicTrim(path).isEmpty())
        return;
    QByteArray bytes;
    try {
        bytes = projectFileBytes(project);
    } catch (const DataError& error) {
        throw FileError(path, 0, QStringLiteral("not saved: ") + error.sentence());
    }
    QSaveFile file(path);
    // Unbuffered: QSaveFile::commit() does not notice a write that fails
    // while it flushes its buffer (a full disk), and would then replace the
    // old file with a truncated one. Written directly, every failure shows
    // in the count that write() returns.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw FileError(path, 0, QStringLiteral("not saved: %1").arg(file.errorString()));
    const qint64 written = file.write(bytes);
    if (written != bytes.size()) {
        // A short write sets no error of its own.
        const QString reason = file.error() != QFileDevice::NoError
            ? file.errorString()
            : QStringLiteral("only %1 of %2 bytes could be written; the disk may be full")
                  .arg(std::max<qint64>(written, 0))
                  .arg(bytes.size());
        file.cancelWriting();
        throw FileError(path, 0, QStringLiteral("not saved: %1").arg(reason));
    }
    if (!file.commit())
        throw FileError(path, 0, QStringLiteral("not saved: %1").arg(file.errorString()));
    project.filePath = path;
    project.hasFile = true;
}

} // namespace tarvo
