// Why expat does not read a text as XML.
#pragma once

#include "core/text.hpp"

#include <expat.h>

namespace tolvex {

// In Spanish for the faults that people make by hand, else as expat says it.
Text expat_reason(XML_Error error);

} // namespace tolvex
