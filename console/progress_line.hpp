// One line on the terminal that is rewritten while long work goes on.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tolvex::console {

// Goes to standard error; silent when that is no terminal.
class ProgressLine
{
public:
    // Of what is counted: "línea", "documento".
    explicit ProgressLine(const char* unit);
    void show(std::size_t done, std::size_t all);
    void clear();

private:
    static constexpr std::size_t none = 101;
    const char* const unit_;
    const bool on_terminal_;
    const std::int64_t start_; // of the work, in milliseconds running
    std::size_t shown_ = none; // percent
};

} // namespace tolvex::console
