// Calls of functions, and of methods, whose target is their first argument.
#pragma once

#include "printing/expressions/functions/table.hpp"
#include "printing/expressions/nodes.hpp"

namespace tolvex::printing {

// Throws Error 5 when the function takes fewer or more arguments. `spelled` names it.
NodePtr make_call(const NamedFunction& function, const Text& spelled, std::vector<NodePtr> arguments);
// list(index), from 0.
NodePtr element_of(NodePtr list, NodePtr index);
NodePtr list_of(const std::vector<Argument>& elements);

} // namespace tolvex::printing
