// Whatever a host does to a maintenance window (destroys it, quits, lets go of the component, ends the
// thread), the process goes on and the window can be opened again. A timer plays the user, in any loop.
#include "../client.hpp"
#include "played_user.hpp"

#include <gtest/gtest.h>

namespace {

using namespace played_user;

int count_open(const wchar_t* title)
{
    int open = 0;
    for (HWND window = nullptr; (window = FindWindowExW(nullptr, window, nullptr, title));)
        if (IsWindowVisible(window)) ++open;
    return open;
}

void open_picker()
{
    const auto maintenance = create<TOLVEX::_Maestros>(L"TOLVEX.Maestros");
    Bstr none(L""), server(L"sqlite:"), database(L"ventanas.db");
    EXPECT_EQ(maintenance->MuestraEmpresas(&none, &none, &database, &server), S_OK);
    EXPECT_EQ(count_open(picker_title), 1);
}

// Whether the host was asked to quit before every window was closed.
bool pump(std::vector<Step> wanted)
{
    const auto [all_taken, quits] = play(std::move(wanted));
    EXPECT_TRUE(all_taken);
    EXPECT_TRUE(quits || nothing_is_open());
    return quits;
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
