// How failures reach a host: as an exception, or as the description that a trapped one left.
#pragma once

#include "tolvex/types.hpp"

#include <exception>

namespace tolvex {

// A failure with the number an automation host would see (6 overflow, 13 type mismatch, 53 file not found, …)
// and a description for the user.
class TOLVEX_API Error : public std::exception
{
public:
    Error(std::int32_t number, Text description);

    std::int32_t number() const noexcept { return number_; }
    const Text& description() const noexcept { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::int32_t number_;
    Text description_;
    std::string what_;
};

// Description of the last error that a public operation trapped; empty before the first one.
TOLVEX_API Text last_error();

} // namespace tolvex
