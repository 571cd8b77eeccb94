#pragma once

#include <exception>
#include <type_traits>
#include <utility>

namespace tarvo {
class Prompter;
}

namespace tarvo::gui {

// Shows the error that ended a user's command in one critical box. The
// project document has already put the project back as it was.
void reportFailure(Prompter& prompter, std::exception_ptr error);

// Runs one command of the user (a button, a menu item, a list signal, a
// dialog): no error may leave an event handler and end the program.
template <typename Work> bool guarded(Prompter& prompter, Work&& work) noexcept
{
    try {
        std::forward<Work>(work)();
        return true;
    } catch (...) {
        reportFailure(prompter, std::current_exception());
        return false;
    }
}

// A handler for QObject::connect that runs guarded. It takes the signal's
// arguments when it wants them and none otherwise.
template <typename Handler> auto guard(Prompter& prompter, Handler handler)
{
    return [&prompter, handler = std::move(handler)](auto&&... args) mutable {
        guarded(prompter, [&] {
            if constexpr (std::is_invocable_v<Handler&, decltype(args)...>)
                handler(std::forward<decltype(args)>(args)...);
            else
                handler();
        });
    };
}

} // namespace tarvo::gui
