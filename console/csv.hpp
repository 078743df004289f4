// Comma-separated values as spreadsheets read them (RFC 4180).
#pragma once

#include <string>
#include <vector>

namespace tolvex::console {

// One record with its end of line, CR LF.
std::string csv_record(const std::vector<std::string>& fields);

} // namespace tolvex::console
