// A value handed to a layout.
#pragma once

#include "printing/expressions/variant.hpp"

namespace tolvex::printing {

struct GivenValue
{
    Text name; // with or without "@", in any letter case
    Variant value;
};

} // namespace tolvex::printing
