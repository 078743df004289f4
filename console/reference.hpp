// The program's own description in the forms that a system installs: manual page and completion of words.
// Both are made of the same declarations as --help.
#pragma once

#include <string>

namespace CLI {
class App;
}

namespace tolvex::console {

// For man(1), in section 1.
std::string man_page(const CLI::App& app);
// For bash: orders and their options; else files.
std::string bash_completion(const CLI::App& app);

} // namespace tolvex::console
