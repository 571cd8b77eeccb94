#pragma once

#include "ui/launcher.h"

#include <QString>

namespace tarvo {

struct OutputContext;

struct PackerResult
{
    enum class Status {
        Started, // or, when waiting, finished without error
        MissingFiles, // "Compile.bat" or "MakeVNP.exe" could not be put in place
        LaunchFailed, // the batch could not be started, or failed while waited for
    };
    Status status = Status::Started;
    QString message;
};

// Copies "Compile.bat" and "MakeVNP.exe" from the templates into the output
// root and starts the batch there, with the root as its current directory.
PackerResult RunPackerStep(const OutputContext& context, Launcher& launcher, Launcher::Mode mode);

} // namespace tarvo
