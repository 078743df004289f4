// One thing that a diagnosis looked at, and how it stands.
#pragma once

#include "tolvex/types.hpp"

#include <functional>

namespace tolvex {

enum class Verdict
{
    well,
    warning, // issuing works, but somebody should look at it
    wrong    // issuing fails, or gives documents that are worth nothing
};

struct Observation
{
    Verdict verdict = Verdict::well;
    Text about, what; // in Spanish, for the user; what to do stands after the last ";"
};

using Tell = std::function<void(const Observation&)>;

} // namespace tolvex
