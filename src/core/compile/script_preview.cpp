#include "compile/script_preview.h"

#include "compile/script_writer.h"
#include "compile/step_log.h"
#include "base/checked.h"
#include "text/basic_text.h"

namespace tarvo {

QString eventPreviewText(
    const Project& project, int index, const std::optional<StoredTrigger>& trigger)
{
    StepLog log;
    const EventRecord& event = at(project.events, index, "events");
    QString head;
    if (event.disabled)
        head = QStringLiteral("//This event is switched off: Compile leaves it out of the script.")
            + text::crlf;
    head += QStringLiteral("event event") + QString::number(index) + u';' + text::crlf + text::crlf;
    if (!trigger)
        return head + WriteScript::eventBody(project, index, log);
    // Only the edited event differs from the project as it is.
    Project edited = project;
    applyTrigger(edited.events[index], *trigger);
    return head + WriteScript::eventBody(edited, index, log);
}

QString scriptPreviewText(const Project& project)
{
    StepLog log;
    return WriteScript::scriptSourceText(project, WriteScript::DroidBuiltSlot(), log);
}

} // namespace tarvo
