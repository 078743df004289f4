#include "platform/clock.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

Date local_now()
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    return Date::of(now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond);
}

std::int64_t milliseconds_running() { return static_cast<std::int64_t>(GetTickCount64()); }

void pause(int milliseconds) { Sleep(static_cast<DWORD>(milliseconds)); }

} // namespace tolvex
