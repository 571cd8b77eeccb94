#pragma once

#include "model/file_error.h"
#include "ui/prompter.h"

#include <utility>

namespace tarvo::gui {

// Runs a button's work and turns a fault in the project's own data (an ID or
// count that no longer fits, a list shorter than its count, as a damaged
// project file can leave them) into a message instead of ending the program
// from inside an event handler. The routines check before they change
// anything, so the project stays as it was.
template <typename Work> void guardedCall(Prompter& prompter, Work&& work)
{
    try {
        std::forward<Work>(work)();
    } catch (const DataError& error) {
        prompter.message(error.sentence(), Prompter::Icon::Critical);
    }
}

} // namespace tarvo::gui
