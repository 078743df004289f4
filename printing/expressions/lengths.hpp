// How long the texts that expressions make may become.
#pragma once

#include "core/errors.hpp"

namespace tolvex::printing {

// Before a text of that length is made. Throws Error 6 for one that no page could hold.
inline void require_length(std::size_t length)
{
    constexpr std::size_t longest = 1'000'000;
    if (length > longest) throw with_detail(overflow(), u"el texto es demasiado largo");
}

} // namespace tolvex::printing
