// Expressions read into nodes.
#pragma once

#include "printing/expressions/nodes.hpp"

namespace tolvex::printing {

// What follows the "=" of a source, which stands before `begin`. Throws Error 5, which names what is unknown
// or tells the place, for what is no expression.
NodePtr parse(TextView source, std::size_t begin);

} // namespace tolvex::printing
