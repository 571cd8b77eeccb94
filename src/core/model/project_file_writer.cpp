#include "model/checked.h"
#include "model/file_error.h"
#include "model/project_file.h"
#include "text/basic_text.h"
#include "text/code_page.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tarvo {

using text::boolText;

namespace {

// One text of a line and what it is, for the message when it cannot be saved.
struct Field
{
    QString value;
    QString what; // empty for numbers and flags, which are always safe
};

Field number(int value)
{
    return {QString::number(value), {}};
}

Field flag(bool value)
{
    return {boolText(value), {}};
}

// The sentence that stops a save when a text cannot be written as it stands:
// the project file keeps its fields apart with "|" and ends every record at a
// line end, and it holds Windows-1252 characters only.
QString unsavable(const QString& value, const QString& what, bool lineBreaksAllowed)
{
    if (value.contains(u'|'))
        return QStringLiteral("%1 holds the character \"|\", which separates the fields of a "
                              "project file")
            .arg(what);
    if (!lineBreaksAllowed && (value.contains(u'\r') || value.contains(u'\n')))
        return QStringLiteral("%1 holds a line break, which a project file cannot keep there")
            .arg(what);
    const qsizetype bad = text::firstUnencodable(value);
    if (bad >= 0)
        return QStringLiteral("%1 holds the character %2, which the Windows-1252 code page "
                              "cannot hold")
            .arg(what, text::describeCharacter(value, bad));
    return QString();
}

// Collects the file's lines as Windows-1252 bytes; the first text that cannot
// be written as it stands stops the save with a sentence naming where it is.
class LineSink
{
public:
    // Without a list, the first text that cannot be written stops the writing;
    // with one, every such text is added to it and the writing goes on.
    explicit LineSink(QList<UnsavableText>* problems = nullptr)
        : m_problems(problems)
    {
    }

    // The record the next lines belong to, for the problems collected.
    void at(const ProjectPlace& place) { m_place = place; }

    void fields(int tabs, const QString& tag, const QList<Field>& values)
    {
        QString line = tag;
        for (const Field& field : values) {
            if (!field.what.isEmpty())
                check(field.value, field.what, false);
            line += u'|';
            line += field.value;
        }
        append(tabs, line);
    }

    void tag(int tabs, const QString& tag) { append(tabs, tag); }

    // A multi-line text becomes one tagged line per text line; only the first
    // carries the indentation.
    void comment(int tabs, const QString& tag, const QString& text, const QString& what)
    {
        check(text, what, true);
        QString normalized = text;
        normalized.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        normalized.replace(u'\r', u'\n');
        const QStringList lines = normalized.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i)
            append(i == 0 ? tabs : 0, tag + u'|' + lines.at(i));
    }

    void emptyLine() { m_bytes.append("\r\n", 2); }

    QByteArray take() { return std::move(m_bytes); }

private:
    void check(const QString& value, const QString& what, bool lineBreaksAllowed)
    {
        const QString problem = unsavable(value, what, lineBreaksAllowed);
        if (problem.isEmpty())
            return;
        if (!m_problems)
            throw DataError(problem);
        m_problems->append({m_place, problem});
    }

    void append(int tabs, const QString& line)
    {
        m_bytes.append(tabs, '\t');
        m_bytes.append(text::encodeCodePage(line));
        m_bytes.append("\r\n", 2);
    }

    QByteArray m_bytes;
    QList<UnsavableText>* m_problems;
    ProjectPlace m_place;
};

QString eventName(const EventRecord& event, int index)
{
    return QStringLiteral("event %1 (\"%2\")").arg(index).arg(event.name);
}

QString timerName(const TimerRecord& timer, int index)
{
    return QStringLiteral("timer %1 (\"%2\")").arg(index).arg(timer.name);
}

// The fields an event and a timer line share: name, kind, argument count, the
// three argument texts and the three argument types.
template <typename Record> QList<Field> triggerFields(const Record& record, const QString& owner)
{
    const auto argument = [&](int i) {
        return Field {record.triggerArgTexts[size_t(i)],
            QStringLiteral("trigger argument %1 of %2").arg(i + 1).arg(owner)};
    };
    return {{record.name, QStringLiteral("the name of ") + owner}, number(record.triggerKind),
        number(record.triggerArgCount), argument(0), argument(1), argument(2),
        number(record.triggerArgTypes[0]), number(record.triggerArgTypes[1]),
        number(record.triggerArgTypes[2])};
}

void writeArguments(
    LineSink& out, const QString& tag, const CatalogueEntry& entry, const QString& owner)
{
    for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k) {
        const ArgumentRecord& argument = entry.Args.at(k);
        out.fields(2, tag,
            {{argument.Value, QStringLiteral("the value of argument %1 of %2").arg(k).arg(owner)},
                number(argument.ListRef)});
    }
}
void writeEvent(LineSink& out, const EventRecord& event, int index)
{
    const QString owner = eventName(event, index);
    out.at({ProjectPlace::Owner::Event, index});
    QList<Field> fields = triggerFields(event, owner);
    fields << number(event.conditionCount) << number(event.actionCount) << number(event.id)
           << flag(event.disabled) << number(event.triggerArgCount);
    out.fields(0, QStringLiteral("<ev>"), fields);
    out.comment(
        1, QStringLiteral("<ecom>"), event.comment, QStringLiteral("the comment of ") + owner);

    // Counts are written as they stand; records a faulty file left out are
    // skipped rather than invented.
    for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c) {
        const ConditionRecord& condition = event.conditions.at(c);
        const QString where = QStringLiteral("condition %1 of %2").arg(c).arg(owner);
        out.at({ProjectPlace::Owner::Event, index, -1, ProjectPlace::Part::Condition, c});
        out.fields(1, QStringLiteral("<cn>"),
            {number(condition.Kind), number(condition.negation),
                {condition.comparisonValue, QStringLiteral("the compared value of ") + where},
                number(condition.operatorIndex), number(condition.ResultB),
                flag(condition.inactive)});
        out.comment(3, QStringLiteral("<ccom>"), condition.comment,
            QStringLiteral("the comment of ") + where);
        writeArguments(out, QStringLiteral("<cf>"), condition, where);
        out.tag(1, QStringLiteral("<ce>"));
    }
    for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a) {
        const ActionRecord& action = event.actions.at(a);
        const QString where = QStringLiteral("action %1 of %2").arg(a).arg(owner);
        out.at({ProjectPlace::Owner::Event, index, -1, ProjectPlace::Part::Action, a});
        out.fields(1, QStringLiteral("<ac>"),
            {number(action.Kind), {action.text, QStringLiteral("the text of ") + where},
                flag(action.inactive)});
        out.comment(
            3, QStringLiteral("<acom>"), action.comment, QStringLiteral("the comment of ") + where);
        writeArguments(out, QStringLiteral("<af>"), action, where);
        out.tag(1, QStringLiteral("<ae>"));
    }
    out.tag(0, QStringLiteral("<ee>"));
    out.emptyLine();
}

void writeProject(LineSink& out, const Project& project)
{
    out.fields(0, QStringLiteral("<gl>"), {{project.name, QStringLiteral("the project name")}});
    out.comment(
        0, QStringLiteral("<scm>"), project.scriptComment, QStringLiteral("the script comment"));

    out.fields(0, QStringLiteral("<sn>"), {number(project.soundCount)});
    for (int i = 0; i < heldCount(project.soundCount, project.sounds); ++i) {
        const SoundRecord& sound = project.sounds.at(i);
        const QString owner = QStringLiteral("sound %1 (\"%2\")").arg(i).arg(sound.firstText);
        out.at({ProjectPlace::Owner::Sound, i});
        out.fields(0, QStringLiteral("<sd>"),
            {{sound.thirdText, QStringLiteral("the third name of ") + owner}, number(sound.id),
                {sound.secondText, QStringLiteral("the file path of ") + owner},
                {sound.firstText, QStringLiteral("the file name of ") + owner}});
    }
    out.fields(0, QStringLiteral("<ms>"), {number(project.messageCount)});
    for (int i = 0; i < heldCount(project.messageCount, project.messages); ++i) {
        const MessageRecord& message = project.messages.at(i);
        out.at({ProjectPlace::Owner::Message, i});
        out.fields(0, QStringLiteral("<md>"),
            {number(message.id),
                {message.text,
                    QStringLiteral("the text of message %1 (ID %2)").arg(i).arg(message.id)}});
    }

    // One "<ti>" line only: the reader makes room for one timer per such line.
    out.fields(0, QStringLiteral("<ti>"), {number(project.timerCount)});
    for (int i = 0; i < heldCount(project.timerCount, project.timers); ++i) {
        const TimerRecord& timer = project.timers.at(i);
        const QString owner = timerName(timer, i);
        out.at({ProjectPlace::Owner::Timer, i});
        out.comment(
            1, QStringLiteral("<tcom>"), timer.comment, QStringLiteral("the comment of ") + owner);
        QList<Field> fields = triggerFields(timer, owner);
        fields << number(timer.id);
        out.fields(1, QStringLiteral("<ta>"), fields);
        out.tag(0, QStringLiteral("<te>"));
    }

    for (int i = 0; i < heldCount(project.eventCount, project.events); ++i)
        writeEvent(out, project.events.at(i), i);

    for (int t = 0; t < kReferenceRowCount; ++t) {
        const ReferenceList& list = project.tables[size_t(t)];
        if (!list.Saved)
            continue;
        out.at({});
        out.fields(0, QStringLiteral("<vg>"),
            {number(t), flag(list.UsesIds), number(list.ItemCount),
                {list.ListName, QStringLiteral("the name of list row %1").arg(t)}});
        for (int j = 0; j < list.ItemCount; ++j) {
            const QString owner = QStringLiteral("entry %1 of list row %2 (\"%3\")")
                                      .arg(j)
                                      .arg(t)
                                      .arg(list.Texts.value(j));
            out.at({ProjectPlace::Owner::Variable, j, t});
            out.fields(0, QStringLiteral("<vv>"),
                {{list.Texts.value(j), QStringLiteral("the name of ") + owner},
                    {list.Codes.value(j), QStringLiteral("the script name of ") + owner},
                    {list.RawCodes.value(j), QStringLiteral("the value of ") + owner},
                    number(list.Ids.value(j))});
        }
    }
}

} // namespace

QByteArray projectFileBytes(const Project& project)
{
    LineSink out;
    writeProject(out, project);
    return out.take();
}

QList<UnsavableText> unsavableTexts(const Project& project)
{
    QList<UnsavableText> problems;
    LineSink out(&problems);
    writeProject(out, project);
    return problems;
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
