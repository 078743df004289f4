#include "console/progress_line.hpp"

#include "platform/clock.hpp"
#include "platform/terminal.hpp"

#include <fmt/core.h>

namespace tolvex::console {

ProgressLine::ProgressLine(const char* unit)
    : unit_(unit), on_terminal_(terminal::shows_errors()), start_(milliseconds_running())
{}

void ProgressLine::show(std::size_t done, std::size_t all)
{
    const std::size_t percent = 100 * done / all;
    if (!on_terminal_ || percent == shown_) return;
    shown_ = percent;
    const auto passed = static_cast<std::size_t>(milliseconds_running() - start_);
    const std::size_t left = done == 0 ? 0 : (passed * (all - done) / done + 999) / 1000;
    fmt::print(stderr, "\r{} {} de {} ({} %, faltan {}:{:02})\033[K", unit_, done, all, percent, left / 60,
               left % 60);
    std::fflush(stderr);
}

void ProgressLine::clear()
{
    if (on_terminal_ && shown_ != none) fmt::print(stderr, "\r\033[K");
    shown_ = none;
}

} // namespace tolvex::console
