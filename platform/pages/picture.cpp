#include "platform/pages/picture.hpp"

#include "core/errors.hpp"
namespace tolvex::pages {
Picture open_picture(std::string) { throw invalid_call(); }
Pixels pixels(const Picture&) { throw invalid_call(); }
} // namespace tolvex::pages
