#include "compile/packer_step.h"

#include "compile/output_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tarvo {

namespace {

const QString kBatch = QStringLiteral("Compile.bat");
const QString kPacker = QStringLiteral("MakeVNP.exe");

// Unlike the resource lists, the packer files are not optional: without them
// there is no archive, so a failure here ends the compile.
QString copyRequired(const OutputContext& context, const QString& name)
{
    const QString from = context.templatePath(name);
    const QString to = context.path(name);
    if (!QFileInfo(from).isFile())
        return QStringLiteral("The template \"%1\" is missing, so the packer cannot run.")
            .arg(QDir::toNativeSeparators(from));
    // An old copy in the root is replaced, never written through.
    if (QFileInfo(to).exists() || QFileInfo(to).isSymLink())
        QFile::remove(to);
    QFile source(from);
    if (!source.copy(to))
        return QStringLiteral("Could not copy \"%1\" to \"%2\": %3")
            .arg(
                QDir::toNativeSeparators(from), QDir::toNativeSeparators(to), source.errorString());
    return {};
}

} // namespace

PackerResult RunPackerStep(const OutputContext& context, Launcher& launcher, Launcher::Mode mode)
{
    using Status = PackerResult::Status;
    if (QString error = copyRequired(context, kBatch); !error.isEmpty())
        return {Status::MissingFiles, error};
    context.processMessages();
    if (QString error = copyRequired(context, kPacker); !error.isEmpty())
        return {Status::MissingFiles, error};
    // The copies are complete when QFile::copy returns; one round of events
    // keeps the window painted before the batch starts.
    context.processMessages();
    const QString error = launcher.start(context.path(kBatch), context.root, mode);
    context.processMessages();
    if (!error.isEmpty())
        return {Status::LaunchFailed, error};
    return {};
}

} // namespace tarvo
