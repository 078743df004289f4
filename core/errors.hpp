// The errors that the system raises by itself, under the numbers automation hosts know, and the record of the
// last one that an operation trapped.
#pragma once

#include "tolvex/types.hpp"

#include <utility>

namespace tolvex {

Error invalid_call();                               // 5
Error overflow();                                   // 6
Error type_mismatch();                              // 13
Error file_not_found(TextView path);                // 53
Error device_error(TextView path, TextView reason); // 57: reading or writing failed, the disk is full
Error path_error(TextView path, TextView reason);   // 75: folder missing, no permission
Error invalid_use_of_null();                        // 94
Error not_available(TextView operation);            // 445: a method whose work this edition does not do

// Number of errors that come from the database driver (the automation "unspecified failure", 0x80004005).
constexpr std::int32_t database_error = static_cast<std::int32_t>(0x80004005);

void remember_error(const Text& description);
void forget_error();

// Runs an operation whose errors stop at a public method: remembers the description and gives `on_error`.
template <class Result, class Operation>
Result trapping(Result on_error, Operation operation)
{
    try {
        return operation();
    } catch (const Error& error) {
        remember_error(error.description());
    } catch (const std::exception& error) {
        remember_error(to_text(error.what()));
    }
    return on_error;
}

} // namespace tolvex
