// What this process holds of the system. Wine answers GetProcessHandleCount, GetGuiResources and PrivateUsage
// with 0; therefore each possible handle is asked for, and the memory is what PrivateUsage should repeat.
#pragma once

#include <windows.h>

#include <psapi.h>

namespace held {

constexpr ULONG_PTR end_of_handles = 0x10000;

inline long handles()
{
    long count = 0;
    DWORD flags = 0;
    for (ULONG_PTR handle = 4; handle < end_of_handles; handle += 4)
        if (GetHandleInformation(reinterpret_cast<HANDLE>(handle), &flags)) ++count;
    return count;
}

// Pens, fonts, pictures (also those that icons are made of) and what is drawn on. Wine alone takes a handle
// without its upper half; elsewhere the system counts.
inline long gdi_objects()
{
    long count = static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
    for (ULONG_PTR handle = 1; handle < end_of_handles; ++handle)
        if (GetObjectType(reinterpret_cast<HGDIOBJ>(handle))) ++count;
    return count;
}

inline BOOL CALLBACK one_more(HWND, LPARAM counted) { return ++*reinterpret_cast<long*>(counted); }

// Of this thread, also those that nobody sees.
inline long windows()
{
    long count = 0;
    EnumThreadWindows(GetCurrentThreadId(), one_more, reinterpret_cast<LPARAM>(&count));
    return count;
}

inline double private_mebibytes()
{
    PROCESS_MEMORY_COUNTERS memory{};
    GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    return static_cast<double>(memory.PagefileUsage) / 1048576;
}

} // namespace held
