#include "base/checked.h"
#include "base/file_error.h"
#include "document/project_file.h"
#include "text/basic_text.h"
#include "text/code_page.h"

#include <QFileInfo>
#include <QSaveFile>

namespace tarvo {

using text::boolText;

QString unsavableReason(const QString& value, bool lineBreaksAllowed)
{
    if (value.contains(u'|'))
        return QStringLiteral("holds the character \"|\", which separates the fields of a "
                              "project file");
    if (!lineBreaksAllowed && (value.contains(u'\r') || value.contains(u'\n')))
        return QStringLiteral("holds a line break, which a project file cannot keep there");
    const qsizetype bad = text::firstUnencodable(value);
    if (bad >= 0)
        return QStringLiteral("holds the character %1, which the Windows-1252 code page cannot "
                              "hold")
            .arg(text::describeCharacter(value, bad));
    return QString();
}

namespace {

// One text of a line and, for a text, what it is ("the name of %O": %O
// stands for the record, %N for `number`). The description is only made when
// the text cannot be saved: a project has hundreds of thousands of fields.
struct Field
{
    QString value;
    const char* what = nullptr; // none for numbers and flags, always safe
    int number = -1;
};

Field number(int value)
{
    return {QString::number(value)};
}

Field flag(bool value)
{
    return {boolText(value)};
}

// Collects the file's lines as Windows-1252 bytes; the first text that cannot
// be written as it stands stops the save with a sentence naming where it is.
class LineSink
{
public:
    // Without a list, the first text that cannot be written stops the writing;
    // with one, every such text is added to it, the writing goes on and no
    // bytes are made.
    LineSink(const Project& project, QList<UnsavableText>* problems = nullptr)
        : m_project(project)
        , m_problems(problems)
    {
    }

    // The record the next lines belong to.
    void at(const ProjectPlace& place) { m_place = place; }

    void fields(int tabs, const QString& tag, std::initializer_list<Field> values)
    {
        fields(tabs, tag, values.begin(), values.end());
    }

    void fields(int tabs, const QString& tag, const Field* begin, const Field* end)
    {
        if (m_problems) {
            for (const Field* field = begin; field != end; ++field) {
                if (field->what)
                    check(field->value, *field, false);
            }
            return;
        }
        QString line = tag;
        for (const Field* field = begin; field != end; ++field) {
            if (field->what)
                check(field->value, *field, false);
            line += u'|';
            line += field->value;
        }
        append(tabs, line);
    }

    void tag(int tabs, const QString& tag) { append(tabs, tag); }

    // A multi-line text becomes one tagged line per text line; only the first
    // carries the indentation.
    void comment(int tabs, const QString& tag, const QString& text, const char* what)
    {
        check(text, {text, what}, true);
        if (m_problems)
            return;
        QString normalized = text;
        normalized.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        normalized.replace(u'\r', u'\n');
        const QStringList lines = normalized.split(u'\n');
        for (qsizetype i = 0; i < lines.size(); ++i)
            append(i == 0 ? tabs : 0, tag + u'|' + lines.at(i));
    }

    void emptyLine()
    {
        if (!m_problems)
            m_bytes.append("\r\n", 2);
    }

    QByteArray take() { return std::move(m_bytes); }

private:
    void check(const QString& value, const Field& field, bool lineBreaksAllowed)
    {
        const QString reason = unsavableReason(value, lineBreaksAllowed);
        if (reason.isEmpty())
            return;
        const QString problem = QString::fromLatin1(field.what)
                                    .replace(QLatin1String("%N"), QString::number(field.number))
                                    .replace(QLatin1String("%O"), owner())
            + u' ' + reason;
        if (!m_problems)
            throw DataError(problem);
        m_problems->append({m_place, problem});
    }

    // The record as the messages name it: "event 2 ("Attack")", "condition 0
    // of event 2 ("Attack")", "entry 3 of list row 7 ("Scouts")".
    QString owner() const
    {
        using Owner = ProjectPlace::Owner;
        const auto named = [](const char* kind, int index, const QString& name) {
            return QStringLiteral("%1 %2 (\"%3\")").arg(QLatin1String(kind)).arg(index).arg(name);
        };
        const int i = m_place.index;
        switch (m_place.owner) {
        case Owner::Event: {
            const QString event = named("event", i, m_project.events.at(i).name);
            if (m_place.part == ProjectPlace::Part::Condition)
                return QStringLiteral("condition %1 of ").arg(m_place.item) + event;
            if (m_place.part == ProjectPlace::Part::Action)
                return QStringLiteral("action %1 of ").arg(m_place.item) + event;
            return event;
        }
        case Owner::Timer:
            return named("timer", i, m_project.timers.at(i).name);
        case Owner::Sound:
            return named("sound", i, m_project.sounds.at(i).firstText);
        case Owner::Message:
            return QStringLiteral("message %1 (ID %2)").arg(i).arg(m_project.messages.at(i).id);
        case Owner::Variable:
            return QStringLiteral("entry %1 of list row %2 (\"%3\")")
                .arg(i)
                .arg(m_place.row)
                .arg(m_project.tables[size_t(m_place.row)].Texts.value(i));
        case Owner::Project:
            break;
        }
        return QString();
    }

    void append(int tabs, const QString& line)
    {
        if (m_problems)
            return;
        m_bytes.append(tabs, '\t');
        m_bytes.append(text::encodeCodePage(line));
        m_bytes.append("\r\n", 2);
    }

    const Project& m_project;
    QByteArray m_bytes;
    QList<UnsavableText>* m_problems;
    ProjectPlace m_place;
};

// An event or timer line: name, kind, argument count, the three argument
// texts, the three argument types, then `tail`.
template <typename Record>
void triggerLine(LineSink& out, int tabs, const QString& tag, const Record& record,
    std::initializer_list<Field> tail)
{
    Field fields[9 + 5] = {{record.name, "the name of %O"}, number(record.triggerKind),
        number(record.triggerArgCount), {record.triggerArgTexts[0], "trigger argument %N of %O", 1},
        {record.triggerArgTexts[1], "trigger argument %N of %O", 2},
        {record.triggerArgTexts[2], "trigger argument %N of %O", 3},
        number(record.triggerArgTypes[0]), number(record.triggerArgTypes[1]),
        number(record.triggerArgTypes[2])};
    std::copy(tail.begin(), tail.end(), fields + 9);
    out.fields(tabs, tag, fields, fields + 9 + tail.size());
}

void writeArguments(LineSink& out, const QString& tag, const CatalogueEntry& entry)
{
    for (int k = 0; k < heldCount(entry.ArgCount, entry.Args); ++k) {
        const ArgumentRecord& argument = entry.Args.at(k);
        out.fields(2, tag,
            {{argument.Value, "the value of argument %N of %O", k}, number(argument.ListRef)});
    }
}

void writeEvent(LineSink& out, const EventRecord& event, int index)
{
    out.at({ProjectPlace::Owner::Event, index});
    triggerLine(out, 0, QStringLiteral("<ev>"), event,
        {number(event.conditionCount), number(event.actionCount), number(event.id),
            flag(event.disabled), number(event.triggerArgCount)});
    out.comment(1, QStringLiteral("<ecom>"), event.comment, "the comment of %O");

    // Counts are written as they stand; records a faulty file left out are
    // skipped rather than invented.
    for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c) {
        const ConditionRecord& condition = event.conditions.at(c);
        out.at({ProjectPlace::Owner::Event, index, -1, ProjectPlace::Part::Condition, c});
        out.fields(1, QStringLiteral("<cn>"),
            {number(condition.Kind), number(condition.negation),
                {condition.comparisonValue, "the compared value of %O"},
                number(condition.operatorIndex), number(condition.ResultB),
                flag(condition.inactive)});
        out.comment(3, QStringLiteral("<ccom>"), condition.comment, "the comment of %O");
        writeArguments(out, QStringLiteral("<cf>"), condition);
        out.tag(1, QStringLiteral("<ce>"));
    }
    for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a) {
        const ActionRecord& action = event.actions.at(a);
        out.at({ProjectPlace::Owner::Event, index, -1, ProjectPlace::Part::Action, a});
        out.fields(1, QStringLiteral("<ac>"),
            {number(action.Kind), {action.text, "the text of %O"}, flag(action.inactive)});
        out.comment(3, QStringLiteral("<acom>"), action.comment, "the comment of %O");
        writeArguments(out, QStringLiteral("<af>"), action);
        out.tag(1, QStringLiteral("<ae>"));
    }
    out.tag(0, QStringLiteral("<ee>"));
    out.emptyLine();
}

void writeProject(LineSink& out, const Project& project, TimerLayout layout)
{
    out.fields(0, QStringLiteral("<gl>"), {{project.name, "the project name"}});
    out.comment(0, QStringLiteral("<scm>"), project.scriptComment, "the script comment");

    out.fields(0, QStringLiteral("<sn>"), {number(project.soundCount)});
    for (int i = 0; i < heldCount(project.soundCount, project.sounds); ++i) {
        const SoundRecord& sound = project.sounds.at(i);
        out.at({ProjectPlace::Owner::Sound, i});
        out.fields(0, QStringLiteral("<sd>"),
            {{sound.thirdText, "the third name of %O"}, number(sound.id),
                {sound.secondText, "the file path of %O"},
                {sound.firstText, "the file name of %O"}});
    }
    out.fields(0, QStringLiteral("<ms>"), {number(project.messageCount)});
    for (int i = 0; i < heldCount(project.messageCount, project.messages); ++i) {
        const MessageRecord& message = project.messages.at(i);
        out.at({ProjectPlace::Owner::Message, i});
        out.fields(
            0, QStringLiteral("<md>"), {number(message.id), {message.text, "the text of %O"}});
    }

    // One "<ti>" line only: the reader makes room for one timer per such line.
    out.fields(0, QStringLiteral("<ti>"), {number(project.timerCount)});
    for (int i = 0; i < heldCount(project.timerCount, project.timers); ++i) {
        const TimerRecord& timer = project.timers.at(i);
        out.at({ProjectPlace::Owner::Timer, i});
        if (i > 0 && layout == TimerLayout::Opening)
            out.fields(0, QStringLiteral("<ti>"), {number(project.timerCount)});
        out.comment(1, QStringLiteral("<tcom>"), timer.comment, "the comment of %O");
        triggerLine(out, 1, QStringLiteral("<ta>"), timer, {number(timer.id)});
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
                {list.ListName, "the name of list row %N", t}});
        for (int j = 0; j < list.ItemCount; ++j) {
            out.at({ProjectPlace::Owner::Variable, j, t});
            out.fields(0, QStringLiteral("<vv>"),
                {{list.Texts.value(j), "the name of %O"},
                    {list.Codes.value(j), "the script name of %O"},
                    {list.RawCodes.value(j), "the value of %O"}, number(list.Ids.value(j))});
        }
    }
}

} // namespace

QByteArray projectFileBytes(const Project& project, TimerLayout layout)
{
    LineSink out(project);
    writeProject(out, project, layout);
    return out.take();
}

QList<UnsavableText> unsavableTexts(const Project& project)
{
    QList<UnsavableText> problems;
    LineSink out(project, &problems);
    writeProject(out, project, TimerLayout::AsWritten);
    return problems;
}

QString wouldNotOpenReason(const Project& project)
{
    if (project.timerCount >= 2)
        return QStringLiteral("The project has %1 timers, but the file keeps one \"<ti>\" line "
                              "for all of them, and a project file makes room for one timer per "
                              "\"<ti>\" line: the file would not open again.")
            .arg(project.timerCount);
    return {};
}

void SaveProject(Project& project, const QString& path, TimerLayout layout)
{
    if (text::basicTrim(path).isEmpty())
        return;
    QByteArray bytes;
    try {
        bytes = projectFileBytes(project, layout);
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
