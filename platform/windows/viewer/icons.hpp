// The pictures on the viewer's buttons, and that of its window.
#pragma once

#include "platform/windows/shapes.hpp"
#include "platform/windows/viewer/commands.hpp"

namespace tolvex {

// Empty for a command without a button.
const std::vector<shapes::Shape>& picture_of(ViewerCommand command);

// A printed page.
const std::vector<shapes::Shape>& viewer_picture();

} // namespace tolvex
