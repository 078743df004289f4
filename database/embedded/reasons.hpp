// Why the embedded database's engine refused a statement, in the language of those who read it.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::embedded {

// The engine's English text in Spanish: "near ")": syntax error" is "Error de sintaxis cerca de «)»". A text
// that is not known here, such as one of our own functions, stays as it is.
Text reason_in_spanish(TextView words);

} // namespace tolvex::embedded
