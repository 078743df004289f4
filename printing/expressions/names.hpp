// Small tables of names.
#pragma once

#include "core/text.hpp"

#include <utility>

namespace tolvex::printing {

// What stands beside the name, whatever its letter case; null when the table does not have it.
template <class Value, std::size_t count>
const Value* find_name(const std::pair<TextView, Value> (&names)[count], TextView wanted)
{
    for (const auto& [name, value] : names)
        if (equal_ignoring_case(name, wanted)) return &value;
    return nullptr;
}

} // namespace tolvex::printing
