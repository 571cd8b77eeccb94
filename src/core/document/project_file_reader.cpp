#include "base/checked.h"
#include "catalogue/project_lists.h"
#include "document/project_file.h"
#include "text/basic_text.h"
#include "text/text_file.h"

#include <QVarLengthArray>

namespace tarvo {

using text::crlf;

QString CleanLine(const QString& line)
{
    QString cleaned = line;
    cleaned.remove(u'\t');
    return cleaned;
}

QString StripBreak(const QString& text)
{
    QString result = text;
    if (result.endsWith(crlf))
        result.chop(2);
    if (result.startsWith(crlf))
        result.remove(0, 2);
    return result;
}

namespace {

// The fields of one line, with errors that say which field of which tag.
// The fields are views into the line, which must outlive them; a field
// becomes a string of its own only when it is read, and a known tag is one
// shared string, so a line costs no string or list that the project does not
// keep.
class Fields
{
public:
    explicit Fields(QStringView line)
    {
        qsizetype start = 0;
        for (qsizetype i = 0; i < line.size(); ++i) {
            if (line.at(i) == u'|') {
                m_pieces.append(line.mid(start, i - start));
                start = i + 1;
            }
        }
        m_pieces.append(line.mid(start));
        m_tag = knownTag(m_pieces.first());
    }

    const QString& tag() const { return m_tag; }

    QString text(int k) const { return piece(k).toString(); }

    qint16 number(int k) const
    {
        const QStringView field = piece(k);
        qint16 value = 0;
        if (plainNumber(field, value))
            return value;
        try {
            return text::toInt16(field.toString());
        } catch (const DataError& error) {
            throw DataError(QStringLiteral("field %1 of the \"%2\" line: %3")
                                .arg(k)
                                .arg(tag(), error.sentence()));
        }
    }

    bool boolean(int k) const
    {
        try {
            return text::toBool(text(k));
        } catch (const DataError& error) {
            throw DataError(QStringLiteral("field %1 of the \"%2\" line: %3")
                                .arg(k)
                                .arg(tag(), error.sentence()));
        }
    }

private:
    QStringView piece(int k) const
    {
        if (k >= m_pieces.size())
            throw DataError(
                QStringLiteral("the \"%1\" line has %2 field(s), but field %3 is needed")
                    .arg(tag())
                    .arg(m_pieces.size() - 1)
                    .arg(k));
        return m_pieces.at(k);
    }

    static QString knownTag(QStringView tag)
    {
        const QStringList& tags = projectFileTags();
        for (const QString& known : tags) {
            if (known == tag)
                return known;
        }
        return tag.toString();
    }

    // Nearly every number field is written as plain decimal digits, with at
    // most a minus sign; those are read here directly, since the general
    // conversion (blanks, fractions, exponents) dominates the time a large
    // project takes to load. Anything else takes the general way.
    static bool plainNumber(QStringView field, qint16& value)
    {
        const qsizetype size = field.size();
        const qsizetype first = size > 0 && field.at(0) == u'-' ? 1 : 0;
        if (size == first || size - first > 5)
            return false;
        int v = 0;
        for (qsizetype i = first; i < size; ++i) {
            const char16_t c = field.at(i).unicode();
            if (c < u'0' || c > u'9')
                return false;
            v = v * 10 + (c - u'0');
        }
        v = first ? -v : v;
        if (v < -32768 || v > 32767)
            return false;
        value = qint16(v);
        return true;
    }

    QVarLengthArray<QStringView, 16> m_pieces;
    QString m_tag;
};

class ProjectReader
{
public:
    ProjectReader(Workspace& workspace, const QString& path, LoadMode mode)
        : m_workspace(workspace)
        , m_project(workspace.project)
        , m_path(path)
        , m_repair(mode == LoadMode::Repair)
    {
    }

    QList<FileError> read(const QString& text)
    {
        text::forEachLine(text, [&](qsizetype i, QStringView raw) {
            // Most lines hold no tab to take out: they are read where they stand.
            QString cleaned;
            if (raw.contains(u'\t'))
                cleaned = CleanLine(raw.toString());
            const QStringView line = cleaned.isNull() ? raw : QStringView(cleaned);
            if (line.size() < 4 || !line.contains(u'>'))
                return;
            m_line = int(i + 1);
            const Fields fields(line);
            if (m_repair && skipped(fields.tag()))
                return;
            try {
                readLine(fields);
            } catch (const DataError& error) {
                if (!m_repair)
                    throw FileError(m_path, m_line, error.sentence());
                leaveOut(fields.tag(), error.sentence());
            }
        });
        endOfFile();
        finish();
        return m_notes;
    }

private:
    EventRecord& event() { return at(m_project.events, m_e, "events"); }

    TimerRecord& timer()
    {
        if (m_project.timerCount >= m_project.timers.size()) {
            if (!m_repair)
                throw DataError(QStringLiteral("timer %1 starts here, but a project file makes "
                                               "room for one timer per \"<ti>\" line")
                                    .arg(m_project.timerCount + 1));
            // A file saved with several timers under one "<ti>" line: each
            // timer still has all of its own lines.
            growTo(m_project.timers, m_project.timerCount + 1);
            note(QStringLiteral("timer %1 has no \"<ti>\" line of its own; it is read all the "
                                "same")
                     .arg(m_project.timerCount + 1));
        }
        m_timerLine = m_timerLine ? m_timerLine : m_line;
        return m_project.timers[m_project.timerCount];
    }

    void note(const QString& sentence, int line = 0)
    {
        m_notes.append(FileError(m_path, line ? line : m_line, sentence));
    }

    // What a repair skips after a record whose first line could not be read:
    // the lines that belong to that record.
    enum class Skip { None, Event, Timer, Condition, Action, Table };

    bool skipped(const QString& tag)
    {
        static const QStringList eventLines
            = {QStringLiteral("<ecom>"), QStringLiteral("<cn>"), QStringLiteral("<ccom>"),
                QStringLiteral("<cf>"), QStringLiteral("<ce>"), QStringLiteral("<ac>"),
                QStringLiteral("<acom>"), QStringLiteral("<af>"), QStringLiteral("<ae>")};
        const auto until = [&](std::initializer_list<const char16_t*> inside, const char16_t* end) {
            if (tag == end) {
                m_skip = Skip::None;
                return true;
            }
            for (const char16_t* t : inside)
                if (tag == t)
                    return true;
            m_skip = Skip::None;
            return false;
        };
        switch (m_skip) {
        case Skip::None:
            return false;
        case Skip::Event:
            if (tag == u"<ee>") {
                m_skip = Skip::None;
                return true;
            }
            if (eventLines.contains(tag))
                return true;
            m_skip = Skip::None;
            return false;
        case Skip::Timer:
            if (tag == u"<te>") {
                m_project.timers[m_project.timerCount] = TimerRecord {};
                m_timerLine = 0;
            }
            return until({u"<tcom>", u"<ta>"}, u"<te>");
        case Skip::Condition:
            m_ca = 0;
            return until({u"<ccom>", u"<cf>"}, u"<ce>");
        case Skip::Action:
            m_aa = 0;
            return until({u"<acom>", u"<af>"}, u"<ae>");
        case Skip::Table:
            return until({u"<vv>"}, u"");
        }
        return false;
    }

    // A repair leaves out the record whose line could not be read, with
    // whatever the line had already put into the project.
    void leaveOut(const QString& tag, const QString& reason)
    {
        QString what = QStringLiteral("the line is left out");
        if (tag == u"<ev>") {
            m_project.events.resize(std::min<qsizetype>(m_project.events.size(), m_e));
            m_skip = Skip::Event;
            what = QStringLiteral("the event is left out, up to its \"<ee>\" line");
        } else if (tag == u"<ta>") {
            m_project.timers[m_project.timerCount] = TimerRecord {};
            m_skip = Skip::Timer;
            what = QStringLiteral("the timer is left out");
        } else if (tag == u"<cn>" && m_e < m_project.events.size()) {
            QList<ConditionRecord>& list = m_project.events[m_e].conditions;
            list.resize(std::min<qsizetype>(list.size(), m_c));
            m_skip = Skip::Condition;
            what = QStringLiteral("the condition is left out");
        } else if (tag == u"<ac>" && m_e < m_project.events.size()) {
            QList<ActionRecord>& list = m_project.events[m_e].actions;
            list.resize(std::min<qsizetype>(list.size(), m_a));
            m_skip = Skip::Action;
            what = QStringLiteral("the action is left out");
        } else if (tag == u"<vg>") {
            m_project.tables = m_tablesBefore;
            m_skip = Skip::Table;
            what = QStringLiteral("the list row is left out");
        } else if (tag == u"<vv>") {
            ++m_v;
            what = QStringLiteral("the entry keeps what could be read");
        } else if (tag == u"<sd>") {
            m_project.sounds.resize(
                std::min<qsizetype>(m_project.sounds.size(), m_project.soundCount));
        } else if (tag == u"<md>") {
            m_project.messages.resize(
                std::min<qsizetype>(m_project.messages.size(), m_project.messageCount));
        }
        note(reason + QStringLiteral("; ") + what);
    }

    // Records the file ends inside: the format's reader leaves them out; a
    // repair keeps what was read of them.
    void endOfFile()
    {
        const auto ended = [&](const QString& record, int line) {
            note(QStringLiteral("the file ends inside %1, which begins here; %2")
                     .arg(record,
                         m_repair ? QStringLiteral("what was read of it is kept")
                                  : QStringLiteral("it is left out")),
                line);
        };
        if (m_eventLine && m_e < m_project.events.size()) {
            ended(QStringLiteral("event %1 \"%2\"").arg(m_e + 1).arg(m_project.events.at(m_e).name),
                m_eventLine);
            if (m_repair) {
                EventRecord& e = m_project.events[m_e];
                if (m_conditionLine && m_c < e.conditions.size()) {
                    e.conditions[m_c].comment = StripBreak(e.conditions[m_c].comment);
                    e.conditionCount = ++m_c;
                }
                if (m_actionLine && m_a < e.actions.size()) {
                    e.actions[m_a].comment = StripBreak(e.actions[m_a].comment);
                    e.actionCount = ++m_a;
                }
                e.comment = StripBreak(e.comment);
                ++m_e;
            }
        }
        if (m_timerLine && m_project.timerCount < m_project.timers.size()) {
            ended(QStringLiteral("timer %1").arg(m_project.timerCount + 1), m_timerLine);
            if (m_repair) {
                TimerRecord& t = m_project.timers[m_project.timerCount];
                t.comment = StripBreak(t.comment);
                ++m_project.timerCount;
            }
        }
    }

    const CatalogueEntry& catalogueEntry(
        const Catalogue& catalogue, qint16 index, const char* which)
    {
        if (index < 0 || index >= catalogue.size())
            throw DataError(QStringLiteral("the line names %1 kind %2, but the %1 catalogue has "
                                           "%3 kinds")
                                .arg(QLatin1String(which))
                                .arg(index)
                                .arg(catalogue.size()));
        return catalogue.at(index);
    }

    static void readTrigger(const Fields& f, qint16& kind, qint16& argCount,
        std::array<QString, 3>& texts, std::array<qint16, 3>& types)
    {
        kind = f.number(2);
        argCount = f.number(3);
        for (int i = 0; i < 3; ++i)
            texts[i] = f.text(4 + i);
        for (int i = 0; i < 3; ++i)
            types[i] = f.number(7 + i);
    }

    static void readArgument(const Fields& f, CatalogueEntry& entry, int& counter)
    {
        growTo(entry.Args, counter + 1);
        ArgumentRecord& argument = entry.Args[counter];
        argument.Value = f.text(1);
        argument.ListRef = f.number(2);
        ++counter;
    }

    void readLine(const Fields& f)
    {
        const QString& tag = f.tag();
        if (tag == u"<gl>") {
            m_project.name = f.text(1);
        } else if (tag == u"<scm>") {
            m_project.scriptComment += f.text(1) + crlf;
        } else if (tag == u"<sd>") {
            const qint16 count = raisedCount(m_project.soundCount, "sounds");
            growTo(m_project.sounds, count);
            SoundRecord& sound = m_project.sounds[m_project.soundCount];
            sound.thirdText = f.text(1);
            sound.id = f.number(2);
            sound.secondText = f.text(3);
            sound.firstText = f.text(4);
            m_project.soundCount = count;
        } else if (tag == u"<md>") {
            const qint16 count = raisedCount(m_project.messageCount, "messages");
            growTo(m_project.messages, count);
            MessageRecord& message = m_project.messages[m_project.messageCount];
            message.id = f.number(1);
            message.text = f.text(2);
            m_project.messageCount = count;
        } else if (tag == u"<ev>") {
            if (m_e >= 32767)
                throw DataError(QStringLiteral("too many events: at most 32767"));
            growTo(m_project.events, m_e + 1);
            EventRecord& e = event();
            e.name = f.text(1);
            readTrigger(f, e.triggerKind, e.triggerArgCount, e.triggerArgTexts, e.triggerArgTypes);
            e.conditionCount = f.number(10);
            e.actionCount = f.number(11);
            e.id = f.number(12);
            e.disabled = f.boolean(13);
            e.triggerArgCount = f.number(14);
            m_eventLine = m_line;
        } else if (tag == u"<ecom>") {
            event().comment += f.text(1) + crlf;
        } else if (tag == u"<ti>") {
            growTo(m_project.timers, m_project.timerCount + 1);
        } else if (tag == u"<tcom>") {
            timer().comment += f.text(1) + crlf;
        } else if (tag == u"<ta>") {
            TimerRecord& t = timer();
            t.name = f.text(1);
            readTrigger(f, t.triggerKind, t.triggerArgCount, t.triggerArgTexts, t.triggerArgTypes);
            t.id = f.number(10);
        } else if (tag == u"<te>") {
            TimerRecord& t = timer();
            t.comment = StripBreak(t.comment);
            m_project.timerCount = raisedCount(m_project.timerCount, "timers");
            m_timerLine = 0;
        } else if (tag == u"<cn>") {
            readCondition(f);
        } else if (tag == u"<ccom>") {
            at(event().conditions, m_c, "conditions of the event").comment += f.text(1) + crlf;
        } else if (tag == u"<cf>") {
            readArgument(f, at(event().conditions, m_c, "conditions of the event"), m_ca);
        } else if (tag == u"<ce>") {
            ConditionRecord& condition = at(event().conditions, m_c, "conditions of the event");
            condition.comment = StripBreak(condition.comment);
            m_c = raisedCount(m_c, "conditions in one event");
            m_conditionLine = 0;
            m_ca = 0;
            event().conditionCount = m_c;
        } else if (tag == u"<ac>") {
            readAction(f);
        } else if (tag == u"<acom>") {
            at(event().actions, m_a, "actions of the event").comment += f.text(1) + crlf;
        } else if (tag == u"<af>") {
            readArgument(f, at(event().actions, m_a, "actions of the event"), m_aa);
        } else if (tag == u"<ae>") {
            ActionRecord& action = at(event().actions, m_a, "actions of the event");
            action.comment = StripBreak(action.comment);
            m_a = raisedCount(m_a, "actions in one event");
            m_actionLine = 0;
            m_aa = 0;
            event().actionCount = m_a;
        } else if (tag == u"<ee>") {
            EventRecord& e = event();
            e.comment = StripBreak(e.comment);
            ++m_e;
            m_a = 0;
            m_c = 0;
            m_eventLine = m_conditionLine = m_actionLine = 0;
        } else if (tag == u"<vg>") {
            if (m_repair)
                m_tablesBefore = m_project.tables;
            readListHeader(f);
        } else if (tag == u"<vv>") {
            readListEntry(f);
        }
    }

    void readCondition(const Fields& f)
    {
        EventRecord& e = event();
        const qint16 kind = f.number(1);
        const CatalogueEntry& entry
            = catalogueEntry(m_workspace.conditionCatalogue, kind, "condition");
        growTo(e.conditions, m_c + 1);
        ConditionRecord& condition = e.conditions[m_c];
        condition = ConditionRecord {};
        static_cast<CatalogueEntry&>(condition) = entry;
        condition.Kind = kind;
        condition.negation = f.number(2);
        condition.comparisonValue = f.text(3);
        condition.operatorIndex = f.number(4);
        condition.ResultB = f.number(5);
        condition.inactive = f.boolean(6);
        m_conditionLine = m_line;
    }

    void readAction(const Fields& f)
    {
        EventRecord& e = event();
        const qint16 kind = f.number(1);
        const CatalogueEntry& entry = catalogueEntry(m_workspace.actionCatalogue, kind, "action");
        growTo(e.actions, m_a + 1);
        ActionRecord& action = e.actions[m_a];
        action = ActionRecord {};
        static_cast<CatalogueEntry&>(action) = entry;
        action.Kind = kind;
        action.text = f.text(2);
        action.inactive = f.boolean(3);
        m_actionLine = m_line;
    }

    void readListHeader(const Fields& f)
    {
        const qint16 t = f.number(1);
        if (t < 0 || t >= kReferenceRowCount)
            throw DataError(QStringLiteral("the \"<vg>\" line names list row %1, but rows go from "
                                           "0 to 29")
                                .arg(t));
        m_t = t;
        ReferenceList& list = m_project.tables[t];
        list.UsesIds = f.boolean(2);
        const qint16 count = f.number(3);
        if (count < 0)
            throw DataError(QStringLiteral("the \"<vg>\" line gives list row %1 a negative count "
                                           "(%2)")
                                .arg(t)
                                .arg(count));
        list.ItemCount = count;
        list.ListName = f.text(4);
        list.Codes.resize(count + 1);
        list.Texts.resize(count + 1);
        list.Ids.resize(count + 1);
        list.RawCodes.resize(count + 1);
        m_v = 0;
    }

    void readListEntry(const Fields& f)
    {
        ReferenceList& list = m_project.tables[m_t];
        if (m_v >= list.Texts.size())
            throw DataError(QStringLiteral("list row %1 has room for %2 entries, but this is entry "
                                           "%3")
                                .arg(m_t)
                                .arg(list.Texts.size())
                                .arg(m_v + 1));
        list.Texts[m_v] = f.text(1);
        list.Codes[m_v] = f.text(2);
        list.RawCodes[m_v] = f.text(3);
        list.Ids[m_v] = f.number(4);
        ++m_v;
    }

    void finish()
    {
        m_project.scriptComment = StripBreak(m_project.scriptComment);
        m_project.eventCount = static_cast<qint16>(m_e);
        m_project.hasFile = true;
        for (int i = 0; i < m_project.timerCount; ++i)
            m_project.timerListLines.append(m_project.timers.at(i).name);
        // A compile right after Open must see the same rows as one after editing.
        refreshEventRow(m_project);
        refreshTimerRow(m_project);
        refreshMessageRow(m_project);
    }

    Workspace& m_workspace;
    Project& m_project;
    const QString m_path;
    const bool m_repair;
    QList<FileError> m_notes;
    int m_line = 0;
    Skip m_skip = Skip::None;
    ReferenceListTable m_tablesBefore;
    // Where the records still open began (0: none open).
    int m_eventLine = 0;
    int m_timerLine = 0;
    int m_conditionLine = 0;
    int m_actionLine = 0;
    int m_e = 0;
    qint16 m_c = 0;
    int m_ca = 0;
    qint16 m_a = 0;
    int m_aa = 0;
    int m_t = 0;
    int m_v = 0;
};

} // namespace

QList<FileError> LoadProject(Workspace& workspace, const QString& path)
{
    ResetProject(workspace);
    workspace.project.filePath = path;
    return ProjectReader(workspace, path, LoadMode::Strict).read(text::readText(path));
}

QList<FileError> readProjectText(
    Workspace& workspace, const QString& path, const QString& text, LoadMode mode)
{
    ResetProject(workspace);
    workspace.project.filePath = path;
    return ProjectReader(workspace, path, mode).read(text);
}

const QStringList& projectFileTags()
{
    static const QStringList tags = {QStringLiteral("<gl>"), QStringLiteral("<scm>"),
        QStringLiteral("<sn>"), QStringLiteral("<sd>"), QStringLiteral("<ms>"),
        QStringLiteral("<md>"), QStringLiteral("<ti>"), QStringLiteral("<tcom>"),
        QStringLiteral("<ta>"), QStringLiteral("<te>"), QStringLiteral("<ev>"),
        QStringLiteral("<ecom>"), QStringLiteral("<cn>"), QStringLiteral("<ccom>"),
        QStringLiteral("<cf>"), QStringLiteral("<ce>"), QStringLiteral("<ac>"),
        QStringLiteral("<acom>"), QStringLiteral("<af>"), QStringLiteral("<ae>"),
        QStringLiteral("<ee>"), QStringLiteral("<vg>"), QStringLiteral("<vv>")};
    return tags;
}

} // namespace tarvo
