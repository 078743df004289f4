// Answers to what programs ask, given instead of a person's.
#pragma once

#include <string>

namespace tolvex {

// While it lives, programs that ask the user (WindowStyle::visible) read these lines from their standard
// input and have no terminal to ask at, nor to complain on. One at a time; for programs of the terminal,
// never in a host.
class GivenAnswers
{
public:
    explicit GivenAnswers(std::string lines);
    ~GivenAnswers();
    GivenAnswers(const GivenAnswers&) = delete;

    // Those that are in force; null for none.
    static const std::string* current();

private:
    const std::string lines_;
};

} // namespace tolvex
