#include "shell/guard.h"

#include "base/file_error.h"
#include "ui/prompter.h"

#include <QString>

namespace tarvo::gui {

void reportFailure(Prompter& prompter, std::exception_ptr error)
{
    QString text;
    try {
        std::rethrow_exception(error);
    } catch (const FileError& failure) {
        text = failure.message();
    } catch (const DataError& failure) {
        text = failure.sentence();
    } catch (const std::exception& failure) {
        text = QString::fromLocal8Bit(failure.what());
    } catch (...) {
        text = QStringLiteral("The command failed for a reason the program cannot name.");
    }
    try {
        prompter.message(text, Prompter::Icon::Critical);
    } catch (...) {
        // Nothing is left to tell the user with.
    }
}

} // namespace tarvo::gui
