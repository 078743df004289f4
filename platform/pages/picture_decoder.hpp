// Port: what the host decodes pictures with.
#pragma once

#include "platform/pages/picture.hpp"

namespace tolvex::pages {

// Of a picture whose size has been looked at. Throws Error 5 when it is damaged.
Pixels decoded(const Picture& picture);

} // namespace tolvex::pages
