#include "console/progress_line.hpp"

#include "platform/terminal.hpp"

#include <fmt/core.h>

namespace tolvex::console {

ProgressLine::ProgressLine(const char* unit) : unit_(unit), on_terminal_(terminal::shows_errors()) {}

void ProgressLine::show(std::size_t done, std::size_t all)
{
    const std::size_t percent = 100 * done / all;
    if (!on_terminal_ || percent == shown_) return;
    shown_ = percent;
    fmt::print(stderr, "\r{} {} de {} ({} %)", unit_, done, all, percent);
    std::fflush(stderr);
}

void ProgressLine::clear()
{
    if (on_terminal_ && shown_ != none) fmt::print(stderr, "\r\033[K");
    shown_ = none;
}

} // namespace tolvex::console
