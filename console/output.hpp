// What the program says: results on standard output, reasons on standard error.
#pragma once

#include "tolvex/types.hpp"

#include <exception>
#include <string>

namespace tolvex::console {

void print_line(const Text& text);
void print_line(const std::string& text);

// Standard error itself may be full or gone.
void say_error(const std::string& reason) noexcept;

// What the user should know although nothing failed, on standard error.
void say_warning(const Text& warning) noexcept;

// Says why a command failed and gives its exit code.
int fail(const Text& reason);
int fail(const std::exception& error);

// Whether somebody still takes what is printed.
bool is_heard();

// Whether all that was printed reached standard output; says so when it did not.
bool all_written_out();

} // namespace tolvex::console
