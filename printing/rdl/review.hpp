// What a layout's maker should know before it is printed.
#pragma once

#include "printing/rdl/layout.hpp"

namespace tolvex::printing {

// The layout's own remarks, and those on what it mentions and is not there (fields, parameters, items,
// variables, data sets and groups, embedded images, subreports), on parameters that nothing gives a value,
// and on a body that is too wide for its page. In the order of its lines.
std::vector<Remark> remarks_about(const Layout& layout);

} // namespace tolvex::printing
