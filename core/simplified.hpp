// Texts as people look for them: without regard to case and accents.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// In lower case, letters without their accents, the ñ without its tilde; one character for each.
Text simplified(TextView text);

} // namespace tolvex
