#include "platform/clock.hpp"

#include <ctime>

namespace tolvex {

Date local_now()
{
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
    localtime_r(&moment, &local);
    return Date::of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                    local.tm_sec % 60);
}

} // namespace tolvex
