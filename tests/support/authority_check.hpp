// The tax authority's check of a seal, from an XML document alone: it shares no code with what issues.
#pragma once

#include <string>

namespace tolvex::testing {

// The original string of a CFDI 3.0 as annex 20 orders it, in UTF-8. Throws std::runtime_error for what is no
// XML, and for elements that this system never writes.
std::string authority_string(const std::string& xml);

// Whether the document's seal is that of this string, with SHA-1, under the certificate in the document.
bool seal_verifies(const std::string& xml);

} // namespace tolvex::testing
