// The window and the message loop, the plainest that there is, of a host that opens windows of the component.
#pragma once

#include <windows.h>

namespace own_window {

inline int clicks = 0; // that reached it

inline LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_LBUTTONDOWN) ++clicks;
    return DefWindowProcW(window, message, first, second);
}

inline HWND open()
{
    WNDCLASSW kind{};
    kind.lpfnWndProc = procedure;
    kind.lpszClassName = L"anfitrion";
    kind.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassW(&kind);
    return CreateWindowExW(0, L"anfitrion", L"Anfitrión", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 850, 300, 150,
                           nullptr, nullptr, nullptr, nullptr);
}

struct Others
{
    HWND own;
    int count = 0;
};

inline BOOL CALLBACK count_other(HWND window, LPARAM parameter)
{
    auto& others = *reinterpret_cast<Others*>(parameter);
    if (window != others.own && IsWindowVisible(window)) ++others.count;
    return TRUE;
}

inline bool others_are_open(HWND own)
{
    Others others{own};
    EnumThreadWindows(GetCurrentThreadId(), count_other, reinterpret_cast<LPARAM>(&others));
    return others.count > 0;
}

// Until the last of the other windows is closed, or this one.
inline void run_messages(HWND own)
{
    MSG message;
    while (IsWindow(own) && others_are_open(own) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

} // namespace own_window
