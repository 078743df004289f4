// The log that is kept when the environment variable TOLVEX_BITACORA names a file: a line for each call,
// statement and program, with moment, process and thread. Several processes may keep one file. Passwords are
// never in it. Without the variable it costs a look at a flag.
#pragma once

#include "core/text.hpp"

namespace tolvex {

bool log_is_kept();

// Adds a line, its control characters in words of C ("\\r"). A file that takes none is left alone: logging
// must not disturb what is logged.
void log(TextView line);

// How its host keeps it: an adapter's work.
Text log_file_of_environment();
Text process_and_thread();
int millisecond_of_now();
void append_to_log(const Text& file, const std::string& line);

} // namespace tolvex
