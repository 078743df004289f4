// What stands on a page: text boxes, lines, rectangles, images, subreports, and data regions.
#pragma once

#include "printing/rdl/reading.hpp"

namespace tolvex::printing {

// The <ReportItems> of a container that is so large.
std::vector<ReportItem> read_items(Reading& in, const Element& container, Size room);
// The one item that fills a cell or a header: below <CellContents>, or below <ReportItems> in 2005. Null
// when there is none.
std::shared_ptr<const ReportItem> read_content(Reading& in, const Element& cell, Size room);

} // namespace tolvex::printing
