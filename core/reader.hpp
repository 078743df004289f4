// Reads a text from its start, a piece at a time.
#pragma once

#include "core/text.hpp"

namespace tolvex {

class Reader
{
public:
    explicit Reader(TextView rest) : rest_(rest) {}

    bool at_end() const { return rest_.empty(); }
    // The next character; NUL at the end.
    char16_t peek() const { return rest_.empty() ? u'\0' : rest_.front(); }

    // Takes the next character if it is one of these.
    bool take(TextView any_of)
    {
        if (rest_.empty() || any_of.find(rest_.front()) == TextView::npos) return false;
        rest_.remove_prefix(1);
        return true;
    }

    // As many as there are, maybe none.
    std::string take_digits()
    {
        std::string digits;
        for (; is_digit(peek()); rest_.remove_prefix(1)) digits += static_cast<char>(rest_.front());
        return digits;
    }

private:
    TextView rest_;
};

} // namespace tolvex
