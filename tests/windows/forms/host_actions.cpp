// Whatever a host does to a maintenance window (destroys it, quits, lets go of the component, ends the
// thread), the process goes on and the window can be opened again. A timer plays the user, in any loop.
#include "../client.hpp"

#include <commctrl.h>
#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr const wchar_t *picker_title = L"Maestro de Empresas", *form_title = L"Alta de Empresas";

HWND find(const wchar_t* title) { return FindWindowW(nullptr, title); }

int count_open(const wchar_t* title)
{
    int open = 0;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, nullptr, title));)
        if (IsWindowVisible(window)) ++open;
    return open;
}

bool nothing_is_open() { return !find(picker_title) && !find(form_title); }

void open_picker()
{
    const auto maintenance = create<TOLVEX::_Maestros>(L"TOLVEX.Maestros");
    Bstr none(L""), server(L"sqlite:"), database(L"ventanas.db");
    EXPECT_EQ(maintenance->MuestraEmpresas(&none, &none, &database, &server), S_OK);
    EXPECT_EQ(count_open(picker_title), 1);
}

// What the user does once a window of that title is there.
struct Step
{
    const wchar_t* title;
    std::function<void(HWND)> act;
};

std::vector<Step> steps;
std::size_t next_step = 0;

void CALLBACK take_step(HWND, UINT, UINT_PTR, DWORD)
{
    if (next_step == steps.size()) return;
    const Step& step = steps[next_step];
    const HWND window = find(step.title);
    if (!window || !IsWindowVisible(window)) return;
    ++next_step;
    step.act(window);
}

// Pumps until the steps are taken and every window is closed, ten seconds at most. Whether the host was asked
// to quit before.
bool pump(std::vector<Step> wanted)
{
    steps = std::move(wanted);
    next_step = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, take_step);
    const ULONGLONG start = GetTickCount64();
    bool quits = false;
    MSG message;
    while (!quits && (next_step < steps.size() || !nothing_is_open()) && GetTickCount64() - start < 10'000) {
        quits = GetMessageW(&message, nullptr, 0, 0) == 0;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(nullptr, timer);
    EXPECT_EQ(next_step, steps.size());
    EXPECT_TRUE(quits || nothing_is_open());
    return quits;
}

HWND tools_of(HWND picker) { return FindWindowExW(picker, nullptr, TOOLBARCLASSNAMEW, nullptr); }

void press_new(HWND picker)
{
    const LPARAM inside = MAKELPARAM(10, 10);
    PostMessageW(tools_of(picker), WM_LBUTTONDOWN, MK_LBUTTON, inside);
    PostMessageW(tools_of(picker), WM_LBUTTONUP, 0, inside);
}

const Step presses_new{picker_title, press_new};

Step closes(const wchar_t* title)
{
    return {title, [](HWND window) { PostMessageW(window, WM_CLOSE, 0, 0); }};
}

TEST(HostActions, opening_again_makes_an_older_window_go)
{
    const Apartment apartment;
    open_picker();
    open_picker();
    pump({closes(picker_title)});
}

TEST(HostActions, destroying_a_window)
{
    const Apartment apartment;
    open_picker();
    EXPECT_TRUE(DestroyWindow(find(picker_title)));
    EXPECT_TRUE(nothing_is_open());
    open_picker();
    pump({presses_new, {form_title, [](HWND) { DestroyWindow(find(picker_title)); }}});
}

TEST(HostActions, a_window_outlives_the_form_that_it_shows)
{
    const Apartment apartment;
    open_picker();
    pump({presses_new,
          {form_title, [](HWND form) { EXPECT_FALSE(IsWindowEnabled(GetWindow(form, GW_OWNER))); }},
          closes(picker_title),
          {form_title, [](HWND form) { EXPECT_TRUE(IsWindow(GetWindow(form, GW_OWNER))); }},
          closes(form_title)});
}

TEST(HostActions, quitting_while_a_form_is_shown)
{
    const Apartment apartment;
    open_picker();
    EXPECT_TRUE(pump({presses_new, {form_title, [](HWND) { PostQuitMessage(7); }}}));
    EXPECT_FALSE(find(form_title));
    EXPECT_TRUE(IsWindowEnabled(find(picker_title)));
    pump({closes(picker_title)});
}

TEST(HostActions, the_end_of_the_session)
{
    const Apartment apartment;
    open_picker();
    SendMessageW(find(picker_title), WM_ENDSESSION, TRUE, 0);
    EXPECT_TRUE(nothing_is_open());
}

DWORD WINAPI open_and_end(void*)
{
    const Apartment apartment;
    open_picker();
    return 0;
}

TEST(HostActions, the_end_of_the_thread)
{
    const Apartment apartment;
    const HANDLE thread = CreateThread(nullptr, 0, open_and_end, nullptr, 0, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 10'000), WAIT_OBJECT_0);
    CloseHandle(thread);
    EXPECT_TRUE(nothing_is_open());
    open_picker();
    pump({closes(picker_title)});
}

TEST(HostActions, letting_go_of_the_component)
{
    {
        const Apartment apartment;
        open_picker();
        CoFreeUnusedLibrariesEx(0, 0);
    }
    pump({presses_new, closes(form_title), closes(picker_title)});
}

LONG height_of_tools()
{
    RECT box;
    GetWindowRect(tools_of(find(picker_title)), &box);
    return box.bottom - box.top;
}

TEST(HostActions, moving_a_window_to_a_screen_of_twice_the_resolution)
{
    const Apartment apartment;
    open_picker();
    const LONG before = height_of_tools();
    const RECT suggested{0, 0, 1200, 600};
    SendMessageW(find(picker_title), WM_DPICHANGED, MAKEWPARAM(192, 192),
                 reinterpret_cast<LPARAM>(&suggested));
    EXPECT_NEAR(height_of_tools(), 2 * before, 4);
    pump({closes(picker_title)});
}

} // namespace
