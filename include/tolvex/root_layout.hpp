// The attributes of the XML document's root element.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

// The standard set, or one that also names folio and payment method and declares the tax authority's
// complements.
enum class RootLayout
{
    standard,
    extended
};
// Layout of the documents issued from now on; standard at first.
TOLVEX_API void set_root_layout(RootLayout layout);

} // namespace tolvex
