#include "compile/output_plan.h"

#include "compile/output_tree.h"
#include "compile/resource_lists.h"
#include "base/checked.h"
#include "records/project.h"

namespace tarvo {

OutputPlan plannedOutput(const Project& project)
{
    return plannedOutput(project, usesGameOverMessages(project));
}

OutputPlan plannedOutput(const Project& project, bool gameOverMessages)
{
    using namespace outdir;
    OutputPlan plan;
    plan.directories = {Script, ScriptData, ScriptText, Lists};
    plan.files.insert(ScriptData + u'/' + project.name + QStringLiteral(".vlo"));
    plan.files.insert(ScriptText + u'/' + project.name + QStringLiteral(".slo"));
    plan.files.insert(Lists + QStringLiteral("/Stats.vnr"));
    if (project.soundCount > 0) {
        plan.directories += {Audio, Sounds};
        plan.files.insert(Lists + QStringLiteral("/audio.vnr"));
        const ReferenceList& sounds = project.tables[row::Sounds];
        for (int k = 0; k < heldCount(sounds.ItemCount, sounds.Texts) && k < project.sounds.size();
             ++k)
            plan.files.insert(Sounds + u'/' + sounds.Texts[k]);
    }
    if (gameOverMessages) {
        plan.directories.insert(Messages);
        plan.files.insert(Messages + QStringLiteral("/brief1-1.txt"));
    }
    if (project.messageCount > 0) {
        plan.directories += {Messages, Strings};
        plan.files.insert(Lists + QStringLiteral("/Cam1.vnr"));
        plan.files.insert(Strings + QStringLiteral("/GenStrings.txt"));
    }
    return plan;
}

} // namespace tarvo
