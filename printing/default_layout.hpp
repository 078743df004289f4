// The layout that documents are printed from when none is named.
#pragma once

namespace tolvex::layouts {

// Text of an RDL file, one for each file of the folder.
extern const char* const factura;

} // namespace tolvex::layouts
