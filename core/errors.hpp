// The errors that the system raises by itself, under the numbers automation hosts know, and the record of the
// last one that an operation trapped.
#pragma once

#include "tolvex/errors.hpp"

#include <utility>

namespace tolvex {

namespace numbers {
inline constexpr std::int32_t invalid_call = 5, overflow = 6, type_mismatch = 13, internal = 51,
                              file_not_found = 53, device_error = 57, path_error = 75, object_not_set = 91,
                              printer_error = 482, invalid_use_of_null = 94, not_available = 445;
}

Error invalid_call();
Error invalid_call(TextView reason);
Error overflow();
Error type_mismatch();
Error file_not_found(TextView path);
Error device_error(TextView path, TextView reason); // reading or writing failed, the disk is full
Error path_error(TextView path, TextView reason);   // folder missing, no permission
Error object_not_set();
Error invalid_use_of_null();
Error printer_error(TextView reason);
Error not_available(TextView operation); // a method whose work this edition does not do

// The same error, its description followed by a detail: "Desbordamiento: argumento vlnEmpresa".
Error with_detail(const Error& error, TextView detail);

// Number of errors that come from the database driver (the automation "unspecified failure", 0x80004005).
constexpr std::int32_t database_error = static_cast<std::int32_t>(0x80004005);

// What an exception says; in Spanish also when memory runs out.
Text words_of(const std::exception& error);

void remember_error(const Text& description);
void forget_error();

// Runs an operation whose errors stop at a public method: remembers the description and gives `on_error`.
template <class Result, class Operation>
Result trapping(Result on_error, Operation operation)
{
    try {
        return operation();
    } catch (const std::exception& error) {
        remember_error(words_of(error));
    }
    return on_error;
}

// Runs a clean-up whose failure goes no further; the description is remembered.
template <class Operation>
void quietly(Operation operation)
{
    trapping(false, [&] { return operation(), true; });
}

} // namespace tolvex
