// BMP pictures: 1 to 32 bits a pixel, with the run lengths that some have.
#pragma once

#include "platform/pages/picture.hpp"

namespace tolvex::pages {

// Throws Error 5 when it is damaged or of a kind that no screen picture is.
Pixels decoded_bmp(const Picture& picture);

} // namespace tolvex::pages
