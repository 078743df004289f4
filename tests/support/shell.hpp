// Orders of the shell, given as a user gives them, and what they said.
#pragma once

#include <filesystem>
#include <string>

namespace tolvex::testing {

struct Outcome
{
    int exit_code;
    std::string output, errors;
};

// One word, whatever it holds.
std::string quoted(const std::string& word);

Outcome run_in_shell(const std::string& order, const std::filesystem::path& folder);

} // namespace tolvex::testing
