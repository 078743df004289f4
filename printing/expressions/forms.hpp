// What looks like a function and does not have all of its arguments evaluated: branches, and aggregates over
// scopes.
#pragma once

#include "printing/expressions/nodes.hpp"

#include <span>

namespace tolvex::printing {

// Throws Error 5 for arguments that it does not take.
using Form = NodePtr (*)(const std::vector<Argument>& arguments);
struct NamedForm
{
    TextView key; // its name in lower case
    Form form;
};

Form form_named(const Text& key); // null for what there is not

std::span<const NamedForm> branch_forms(); // IIf, Switch, Choose
std::span<const NamedForm> scope_forms();  // Sum, Lookup, InScope

void require_arguments(const std::vector<Argument>& arguments, std::size_t least, std::size_t most,
                       TextView name);

} // namespace tolvex::printing
