#include "platform/forms.hpp"

#include "core/errors.hpp"
#include "platform/messages.hpp"

namespace tolvex {

namespace {

Toolkit*& chosen_toolkit()
{
    static Toolkit* chosen = nullptr;
    return chosen;
}

void show_failure(const Text& description) { show_message(description, u"Error", MessageIcon::critical); }

} // namespace

void run_event(const std::function<void()>& event) noexcept
try {
    forget_error();
    if (!trapping(false, [&] { return event(), true; })) show_failure(last_error());
} catch (...) {
    // Without memory for a message there is nothing left to say.
}

Toolkit& toolkit() { return chosen_toolkit() ? *chosen_toolkit() : native_toolkit(); }

void use_toolkit(Toolkit* other) { chosen_toolkit() = other; }

} // namespace tolvex
