#include "platform/clock.hpp"

#include <chrono>
#include <ctime>
#include <thread>

namespace tolvex {

Date local_now()
{
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
    localtime_r(&moment, &local);
    return Date::of(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                    local.tm_sec % 60);
}

std::int64_t milliseconds_running()
{
    const auto running = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(running).count();
}

void pause(int milliseconds) { std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds)); }

} // namespace tolvex
