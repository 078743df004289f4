// Styles of every schema: borders in one element for each property (2005) or for each side (2008 and later).
#pragma once

#include "printing/rdl/reading.hpp"

namespace tolvex::printing {

// The Style of an element; the default one when it has none.
Style read_style(Reading& in, const Element& parent);

// What `inner` leaves open of the text (font, color, format, alignment, height of lines) as `outer` says it.
Style with_text_of(Style inner, const Style& outer);
// Whatever `above` says, the rest as `below`.
Style overlaid(const Style& above, const Style& below);

} // namespace tolvex::printing
