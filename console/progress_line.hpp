// One line on the terminal that is rewritten while long work goes on.
#pragma once

#include <cstddef>

namespace tolvex::console {

// Goes to standard error; silent when that is no terminal.
class ProgressLine
{
public:
    ProgressLine();
    void show(std::size_t line, std::size_t lines);
    void clear();

private:
    static constexpr std::size_t none = 101;
    const bool on_terminal_;
    std::size_t shown_ = none; // percent
};

} // namespace tolvex::console
