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

// What the last call did not throw: the description of the error that it trapped, or "No existe …" for a row
// that it did not find. Empty after a call that met neither.
TOLVEX_API Text last_error();

} // namespace tolvex
