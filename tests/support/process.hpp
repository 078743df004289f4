// Runs a program as a user would and keeps what it said.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace tolvex::testing {

struct Outcome
{
    int exit_code = 0;
    std::string output, errors;
};

// The program is looked up in the PATH; the variables are set for it alone. It starts in the given folder.
Outcome run_program(const std::vector<std::string>& words, const std::string& folder = ".",
                    const std::vector<std::pair<std::string, std::string>>& variables = {});

} // namespace tolvex::testing
