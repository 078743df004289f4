// A user who is played by a timer, whatever message loop runs: what he does to the windows of the companies.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <functional>
#include <vector>

namespace played_user {

constexpr const wchar_t *picker_title = L"Maestro de Empresas", *form_title = L"Alta de Empresas";

inline HWND find(const wchar_t* title) { return FindWindowW(nullptr, title); }

inline bool nothing_is_open() { return !find(picker_title) && !find(form_title); }

// What the user does once a window of that title is there.
struct Step
{
    const wchar_t* title;
    std::function<void(HWND)> act;
};

inline std::vector<Step> steps;
inline std::size_t next_step = 0;

inline void CALLBACK take_step(HWND, UINT, UINT_PTR, DWORD)
{
    if (next_step == steps.size()) return;
    const Step& step = steps[next_step];
    const HWND window = find(step.title);
    if (!window || !IsWindowVisible(window)) return;
    ++next_step;
    step.act(window);
}

struct Outcome
{
    bool all_taken, quits; // the steps; whether the host was asked to quit before the windows were closed
};

// Pumps until the steps are taken and every window is closed, ten seconds at most.
inline Outcome play(std::vector<Step> wanted)
{
    steps = std::move(wanted);
    next_step = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, take_step);
    const ULONGLONG start = GetTickCount64();
    bool quits = false;
    MSG message;
    while (!quits && (next_step < steps.size() || !nothing_is_open()) && GetTickCount64() - start < 10'000) {
        quits = GetMessageW(&message, nullptr, 0, 0) == 0;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(nullptr, timer);
    return {next_step == steps.size(), quits};
}

inline HWND tools_of(HWND picker) { return FindWindowExW(picker, nullptr, TOOLBARCLASSNAMEW, nullptr); }

inline void press_new(HWND picker)
{
    const LPARAM inside = MAKELPARAM(10, 10);
    PostMessageW(tools_of(picker), WM_LBUTTONDOWN, MK_LBUTTON, inside);
    PostMessageW(tools_of(picker), WM_LBUTTONUP, 0, inside);
}

inline const Step presses_new{picker_title, press_new};

inline Step closes(const wchar_t* title)
{
    return {title, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }};
}

} // namespace played_user
