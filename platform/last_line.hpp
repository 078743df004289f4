// How the system reads what openssl wrote: the last line of a text file.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// A line ends at a carriage return, alone or with a line feed; a bare line feed is part of the line. One
// character per byte. Throws Error 53, 57 or 75.
Text last_line(TextView path);

// Rewrites a file that openssl wrote so that its lines end in bare line feeds; some versions write carriage
// returns before them. A missing file stays missing.
void restore_line_feeds(TextView path);

} // namespace tolvex
