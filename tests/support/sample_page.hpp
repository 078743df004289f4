// A page with a mark of every kind: texts with western and with other characters, justified and turned, and a
// picture of each format.
#pragma once

#include "platform/pages/page.hpp"

#include <filesystem>

namespace tolvex::testing {

// A picture of tests/datos.
std::shared_ptr<const pages::Picture> sample_picture(const char* name);

// The same picture as a BMP file of 24 bits.
std::string sample_bmp();

pages::Page sample_page();

} // namespace tolvex::testing
