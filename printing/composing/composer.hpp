// A layout and its data composed into pages: what reading, querying, measuring and numbering come to.
#pragma once

#include "database/connection.hpp"
#include "platform/pages/page.hpp"
#include "printing/composing/given_value.hpp"
#include "printing/rdl/layout.hpp"

namespace tolvex::printing {

// Runs the layout's data sets on the connection, whatever data source the layout names, and gives its pages
// to the sink one by one. The remarks tell what could not be shown as the layout wants it. Throws Error with
// line and element: a query fails, a parameter lacks its value or is not known to the layout.
std::vector<Remark> compose(const Layout& layout, const std::vector<GivenValue>& parameters,
                            Connection& connection, Date now, pages::PageSink& sink);

} // namespace tolvex::printing
