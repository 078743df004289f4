#include "classes/call.hpp"

#include "core/errors.hpp"

namespace tolvex {

Session& begin_call()
{
    forget_error();
    return session();
}

bool found(bool result, const Text& what)
{
    if (!result && last_error().empty()) remember_error(u"No existe " + what);
    return result;
}

} // namespace tolvex
