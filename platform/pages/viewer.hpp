// Port: a window in which a person reads, searches, prints and exports pages, modeless and without an owner.
#pragma once

#include "platform/pages/page.hpp"

namespace tolvex {

// Throws Error when the host cannot show pages.
void show_pages(std::vector<pages::Page> pages, const pages::DocumentProperties& properties);

} // namespace tolvex
