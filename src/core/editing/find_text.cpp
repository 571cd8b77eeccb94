#include "editing/find_text.h"

#include "catalogue/reference_index.h"
#include "ui/quiet_prompter.h"

namespace tarvo {

QList<FoundText> findText(const Project& project, const QString& text)
{
    QList<FoundText> found;
    if (text.isEmpty())
        return found;
    using Owner = ProjectPlace::Owner;
    using Part = ProjectPlace::Part;
    const auto look = [&](const ProjectPlace& place, const QString& field, const QString& value) {
        if (value.contains(text, Qt::CaseInsensitive))
            found.append({place, field, value});
    };
    const QString name = QStringLiteral("name");
    const QString comment = QStringLiteral("comment");

    // A comment place already says "comment"; only the comments of
    // conditions and actions need the word.
    look({Owner::Project, -1, -1, Part::Comment}, QString(), project.scriptComment);
    // Arguments are looked at in list order within their event, so they are
    // collected first and merged in by event.
    QuietPrompter quiet;
    const ReferenceIndex references(project.tables);
    QList<FoundText> arguments;
    forEachArgument(project, [&](const ArgumentValue& argument) {
        const QString shown = argument.value.contains(QLatin1String("&&"))
            ? references.decode(argument.value, quiet)
            : argument.value;
        if (shown.contains(text, Qt::CaseInsensitive))
            arguments.append({argument.place, QString(), shown});
    });
    qsizetype next = 0;
    const auto argumentsOf = [&](Owner owner, int index) {
        while (next < arguments.size() && arguments.at(next).place.owner == owner
            && arguments.at(next).place.index == index)
            found.append(arguments.at(next++));
    };
    for (int e = 0; e < heldCount(project.eventCount, project.events); ++e) {
        const EventRecord& event = project.events.at(e);
        look({Owner::Event, e, -1, Part::Name}, name, event.name);
        look({Owner::Event, e, -1, Part::Comment}, QString(), event.comment);
        for (int c = 0; c < heldCount(event.conditionCount, event.conditions); ++c)
            look(
                {Owner::Event, e, -1, Part::Condition, c}, comment, event.conditions.at(c).comment);
        for (int a = 0; a < heldCount(event.actionCount, event.actions); ++a)
            look({Owner::Event, e, -1, Part::Action, a}, comment, event.actions.at(a).comment);
        argumentsOf(Owner::Event, e);
    }
    for (int t = 0; t < heldCount(project.timerCount, project.timers); ++t) {
        const TimerRecord& timer = project.timers.at(t);
        look({Owner::Timer, t, -1, Part::Name}, name, timer.name);
        look({Owner::Timer, t, -1, Part::Comment}, QString(), timer.comment);
        argumentsOf(Owner::Timer, t);
    }
    return found;
}

} // namespace tarvo
