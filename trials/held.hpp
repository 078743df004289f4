// What this process holds of the system; a soak looks at it after each tenth.
#pragma once

#include <utility>
#include <vector>

namespace tolvex::trials {

struct Held
{
    double mebibytes;
    std::vector<std::pair<const char*, long>> counts; // of what the system hands out: descriptors, handles
};

Held held();

} // namespace tolvex::trials
