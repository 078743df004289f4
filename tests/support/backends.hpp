// The databases that the contract of Connection and Recordset is tested against.
#pragma once

#include "tolvex/types.hpp"

#include <ostream>
#include <string>
#include <vector>

namespace tolvex {

struct Backend
{
    std::string name; // letters and digits: it becomes part of the test's name
    Text connection_string;
};

inline void PrintTo(const Backend& backend, std::ostream* out) { *out << backend.name; }

// The embedded database always; others when their driver is there.
const std::vector<Backend>& backends();

} // namespace tolvex
