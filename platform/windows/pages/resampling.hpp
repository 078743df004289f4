// Pictures made smaller or larger without jagged edges.
#pragma once

#include "platform/pages/picture.hpp"

namespace tolvex {

// The picture with another number of pixels, each the mean of those that it covers or stands between.
pages::Pixels resampled(const pages::Pixels& pixels, int width, int height);

} // namespace tolvex
