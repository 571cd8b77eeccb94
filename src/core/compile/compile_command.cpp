#include "compile/compile_command.h"

#include "catalogue/workspace.h"
#include "compile/droid_built.h"
#include "compile/output_guard.h"
#include "compile/output_plan.h"
#include "compile/output_tree.h"
#include "compile/packer_step.h"
#include "compile/resource_lists.h"
#include "compile/script_writer.h"
#include "compile/step_log.h"
#include "compile/values_writer.h"
#include "ui/launcher.h"
#include "ui/prompter.h"

#include <QDir>

namespace tarvo {

namespace {

CompileOutcome fail(CompileOutcome outcome, const QString& message, Prompter& prompter)
{
    outcome.status = CompileOutcome::Status::Failed;
    outcome.message = message;
    prompter.message(message, Prompter::Icon::Critical);
    return outcome;
}

void writeTree(const OutputContext& context)
{
    const Project& project = context.project;
    CleanOutputTree(context, plannedOutput(project, context.gameOverMessages()));
    context.processMessages();
    MakeOutputRoot(context);
    // Without the root every later step would fail the same way.
    if (context.log.unwrittenPaths().contains(QString()))
        return;
    WriteScript::WriteValuesFile(
        context, outdir::ScriptData + u'/' + project.name + QStringLiteral(".vlo"));
    if (project.soundCount > 0)
        WriteSounds(context);
    WriteScript::WriteScriptSource(context, WriteScript::DroidBuiltSlot());
    WriteStatsList(context);
    if (project.messageCount > 0)
        WriteMessages(context);
}

// The files without which the output is no script at all. Other files the
// steps could not write are listed with the warnings but leave the compile
// done, as a missing template or sound does.
QString essentialsMissing(const OutputContext& context, const StepLog& log)
{
    const QString name = context.project.name;
    const std::pair<QString, QString> essentials[] = {
        {QString(), QStringLiteral("the output folder \"%1\" could not be created")},
        {outdir::ScriptData + u'/' + name + QStringLiteral(".vlo"),
            QStringLiteral("the values file \"%1\" could not be written")},
        {outdir::ScriptText + u'/' + name + QStringLiteral(".slo"),
            QStringLiteral("the script source \"%1\" could not be written")},
    };
    QStringList missing;
    for (const auto& [relative, sentence] : essentials) {
        if (log.unwrittenPaths().contains(relative))
            missing.append(sentence.arg(QDir::toNativeSeparators(
                relative.isEmpty() ? context.root : context.path(relative))));
    }
    if (missing.isEmpty())
        return {};
    return QStringLiteral("The compile did not finish: %1; nothing was packed. Files and folders "
                          "not written: %2.")
        .arg(missing.join(QStringLiteral("; ")))
        .arg(log.unwrittenPaths().size());
}

} // namespace

CompileOutcome CompileProject(
    Workspace& workspace, Prompter& prompter, const CompileOptions& options)
{
    const Project& project = workspace.project;
    CompileOutcome outcome;

    if (project.name.isEmpty()) {
        outcome.status = CompileOutcome::Status::NoName;
        outcome.message = QStringLiteral("The project has no name yet.");
        prompter.beep();
        return outcome;
    }
    if (project.eventCount <= 0) {
        outcome.status = CompileOutcome::Status::NothingToCompile;
        outcome.message = QStringLiteral("Nothing to compile!");
        prompter.message(outcome.message);
        return outcome;
    }

    outcome.outputRoot = workspace.paths.outputRoot(project.name);
    if (const QString problem = checkOutputPaths(workspace.paths, project); !problem.isEmpty())
        return fail(outcome, problem, prompter);

    outcome.touchedDisk = true;
    StepLog log;
    const OutputContext context {
        project, outcome.outputRoot, workspace.paths.sourceDir(), log, options.progress};
    PackerResult packer;
    try {
        writeTree(context);
        if (const QString missing = essentialsMissing(context, log); !missing.isEmpty()) {
            outcome.warnings = log.warnings();
            outcome.incomplete = true;
            return fail(outcome, missing, prompter);
        }
        if (options.runPacker) {
            ProcessLauncher processLauncher;
            Launcher& launcher = options.launcher ? *options.launcher : processLauncher;
            packer = RunPackerStep(context, launcher,
                options.waitForPacker ? Launcher::Mode::Wait : Launcher::Mode::Detached);
        }
    } catch (const std::exception& error) {
        // The steps catch their own faults; this is the net for whatever
        // else, so that it reaches the user as a message and not a crash.
        outcome.warnings = log.warnings();
        return fail(outcome,
            QStringLiteral("The compile stopped: %1").arg(QString::fromLocal8Bit(error.what())),
            prompter);
    }
    context.processMessages();
    outcome.warnings = log.warnings();

    if (packer.status != PackerResult::Status::Started) {
        // The editor does not wait for the batch: a batch that cannot be
        // started is listed with the other problems, and the tree itself is
        // done. Missing packer files, or a waited-for batch that failed,
        // end the compile without "Done.".
        if (packer.status == PackerResult::Status::MissingFiles || options.waitForPacker)
            return fail(outcome, packer.message, prompter);
        outcome.warnings.append(packer.message);
    }

    outcome.status = CompileOutcome::Status::Done;
    outcome.message = QStringLiteral("Done.");
    prompter.message(outcome.message, Prompter::Icon::Information);
    return outcome;
}

} // namespace tarvo
