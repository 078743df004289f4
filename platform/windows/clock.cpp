#include "platform/clock.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

Date local_now()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return Date::of(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
}

} // namespace tolvex
