// The constants of the expression language: True, vbCrLf, DateInterval.Month …
#pragma once

#include "printing/expressions/variant.hpp"

namespace tolvex::printing {

// Null for what there is not. The key is the name in lower case.
const Variant* constant_named(const Text& key);

} // namespace tolvex::printing
