// The file of master data that «tolvex maestros» reads (docs/maestros.md): companies, and for each its
// certificates, branches and folio ranges.
#pragma once

#include "tolvex/types.hpp"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tolvex::console {

// One record: the values given for it, by their keys.
struct Entry
{
    unsigned line = 0;
    std::map<std::string, Text> values;

    bool has(const std::string& key) const { return values.contains(key); }
    // Throws Error 5 naming line and key when it is not given.
    const Text& required(const std::string& key) const;
};

struct CompanyEntry
{
    Entry company;
    std::vector<Entry> certificates, branches, folio_ranges;
};

// Those of a file's whole text. Throws Error 5 with line and reason for what is no TOML, an unknown key, or a
// value of another kind.
std::vector<CompanyEntry> entries_in(std::string_view toml);

} // namespace tolvex::console
