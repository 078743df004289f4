// What two XML documents say, compared value by value; how they are written does not count.
#pragma once

#include "tolvex/types.hpp"

#include <map>
#include <string>
#include <vector>

namespace tolvex {

// The values of a document by their places below the root: "cfdi:Receptor/@rfc",
// "cfdi:Conceptos/cfdi:Concepto[2]/@importe". What lies in an Addenda is left out.
using XmlValues = std::map<std::string, std::string>;

// Throws Error 5 for what is no well-formed XML and for a document type declaration.
XmlValues xml_values(std::string_view bytes);

// Places that differ, in words: "@total: el XML dice «1.00» y debe decir «2.00»".
std::vector<Text> differences(const XmlValues& expected, const XmlValues& found);

} // namespace tolvex
