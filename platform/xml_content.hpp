// What may stand in an XML document, the same for every adapter.
#pragma once

#include "core/text.hpp"
#include "tolvex/errors.hpp"

namespace tolvex {

Error xml_error(const Text& description);

// The value itself. Throws Error for a character that XML 1.0 (2.2 Characters) does not allow.
const Text& allowed_xml_content(const Text& value);

} // namespace tolvex
