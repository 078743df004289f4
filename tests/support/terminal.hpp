// A user at a terminal, and one without.
#pragma once

#include <functional>
#include <string>

namespace tolvex::testing {

// What came of an action in a process of its own: its checks say what failed in what was shown.
struct TerminalRun
{
    bool all_checks_passed = false;
    std::string shown;
};

// The user answers every question for a password, which ends like that, with that line.
TerminalRun at_terminal(const std::string& password, const std::function<void()>& action,
                        const std::string& question = "assword:");
// The process has no terminal, and nothing on its standard input.
TerminalRun without_terminal(const std::function<void()>& action);

} // namespace tolvex::testing
