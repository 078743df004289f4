// The master data of a file registered, record by record, each told on standard output.
#pragma once

#include "console/master_data/entries.hpp"

namespace tolvex::console {

// Adds or modifies the companies with all that is theirs in the shared session's database; paths are relative
// to the folder of the file that they come from. Throws Error 5, which names the line, for the first that is
// not saved.
void register_companies(const std::vector<CompanyEntry>& companies, const Text& file);

} // namespace tolvex::console
