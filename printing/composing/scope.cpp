#include "printing/composing/scope.hpp"

namespace tolvex::printing {

const Scope* scope_named(const Scope* innermost, TextView name)
{
    for (const Scope* scope = innermost; scope; scope = scope->parent) {
        if (equal_ignoring_case(scope->name, name)) return scope;
        if (const Scope* found = scope_named(scope->column, name)) return found;
    }
    return nullptr;
}

} // namespace tolvex::printing
