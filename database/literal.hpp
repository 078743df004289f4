// Texts inside statements of our own. The documented statements put theirs between quotes as they are.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// Between quotes, those within it doubled.
inline Text literal(TextView text) { return u"'" + replace_all(text, u"'", u"''") + u"'"; }

} // namespace tolvex
