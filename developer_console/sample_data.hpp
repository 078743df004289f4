// What the console's fields hold at first: a sale that the demonstration's company issues.
#pragma once

#include "core/text.hpp"

#include <map>

namespace tolvex::developer_console {

// Values by the names of the fields; a check holds "1" or "0".
std::map<TextView, Text> sample_data(const Text& working_folder, const Text& layout);

} // namespace tolvex::developer_console
