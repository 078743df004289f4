// Lengths as layouts write them: a number with its unit.
#pragma once

#include "core/text.hpp"

#include <optional>

namespace tolvex::printing {

// "2.5cm" in points. Units: in, cm, mm, pt, pc. Nothing for any other text, and beyond 10,000 inches.
std::optional<double> points(TextView length);

} // namespace tolvex::printing
