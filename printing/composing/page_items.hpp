// What page headers and footers read of their page.
#pragma once

#include "printing/rdl/layout.hpp"

namespace tolvex::printing {

// The values of the text boxes on a page, in the order in which they were placed.
using PageItems = std::vector<std::pair<const ReportItem*, Variant>>;

} // namespace tolvex::printing
