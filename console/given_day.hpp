// A day that the user gives.
#pragma once

#include "core/dates.hpp"
#include "core/errors.hpp"
#include "core/text.hpp"

#include <optional>

namespace tolvex::console {

// Nothing when it is empty. Throws Error 13, which names the option, for what is no day.
inline std::optional<Date> given_day(const char* option, const std::string& given)
{
    if (given.empty()) return {};
    try {
        return to_date(to_text(given));
    } catch (const Error& error) {
        throw Error(error.number(), to_text(std::string(option) + " lleva un día como 2011-03-15: " + given));
    }
}

} // namespace tolvex::console
