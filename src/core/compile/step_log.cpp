#include "compile/step_log.h"

#include "base/file_error.h"

namespace tarvo {

QString StepLog::reasonOf(const std::exception& error)
{
    if (const auto* fileError = dynamic_cast<const FileError*>(&error))
        return fileError->message();
    if (const auto* dataError = dynamic_cast<const DataError*>(&error))
        return dataError->sentence();
    return QString::fromLocal8Bit(error.what());
}

} // namespace tarvo
