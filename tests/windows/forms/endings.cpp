// However a maintenance window ends (its host destroys it, quits, lets go of the component or ends the
// thread), the process goes on and the window can be opened again. A timer plays the user, whatever loop
// runs.
#include "../checks.hpp"

#include <commctrl.h>
#include <functional>

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

void open_picker()
{
    const auto maintenance = create<TOLVEX::_Maestros>(L"TOLVEX.Maestros");
    Bstr none(L""), server(L"sqlite:"), database(L"finales.db");
    EXPECT_EQ(maintenance->MuestraEmpresas(&none, &none, &database, &server), S_OK);
    EXPECT_EQ(count_open(picker_title), 1);
}

// One step each time the timer fires, once what it waits for is there.
struct Step
{
    const wchar_t* title; // of the window that must be open
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

// Pumps until the steps are done and the condition holds; ten seconds at most. What ended the loop is left in
// the result: true when it was a request to quit.
bool pump(std::vector<Step> wanted, const std::function<bool()>& done)
{
    steps = std::move(wanted);
    next_step = 0;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, take_step);
    const ULONGLONG start = GetTickCount64();
    bool quits = false;
    MSG message;
    while (!quits && !(next_step == steps.size() && done()) && GetTickCount64() - start < 10'000) {
        quits = GetMessageW(&message, nullptr, 0, 0) == 0;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    KillTimer(nullptr, timer);
    EXPECT_EQ(next_step, steps.size());
    EXPECT(quits || done());
    return quits;
}

bool nothing_open() { return !find(picker_title) && !find(form_title); }

void press_new(HWND picker)
{
    const HWND tools = FindWindowExW(picker, nullptr, TOOLBARCLASSNAMEW, nullptr);
    const LPARAM inside = MAKELPARAM(10, 10);
    PostMessageW(tools, WM_LBUTTONDOWN, MK_LBUTTON, inside);
    PostMessageW(tools, WM_LBUTTONUP, 0, inside);
}

const Step presses_new{picker_title, press_new};

Step posts_to(const wchar_t* title, UINT message)
{
    return {title, [message](HWND window) { PostMessageW(window, message, 0, 0); }};
}

void an_older_window_makes_room()
{
    open_picker();
    open_picker();
    pump({posts_to(picker_title, WM_CLOSE)}, nothing_open);
}

void the_host_destroys_it()
{
    open_picker();
    EXPECT(DestroyWindow(find(picker_title)));
    EXPECT(nothing_open());
    open_picker();
    pump({presses_new, {form_title, [](HWND) { DestroyWindow(find(picker_title)); }}}, nothing_open);
}

void it_closes_after_the_form_it_shows()
{
    open_picker();
    pump({presses_new,
          posts_to(form_title, WM_NULL),
          {picker_title, [](HWND picker) { PostMessageW(picker, WM_CLOSE, 0, 0); }},
          {form_title, [](HWND form) { EXPECT(find(picker_title)), PostMessageW(form, WM_CLOSE, 0, 0); }}},
         nothing_open);
}

void the_host_quits()
{
    open_picker();
    EXPECT(pump({presses_new, {form_title, [](HWND) { PostQuitMessage(7); }}}, [] { return false; }));
    EXPECT(!find(form_title));
    EXPECT(IsWindowEnabled(find(picker_title)));
    pump({posts_to(picker_title, WM_CLOSE)}, nothing_open);
}

void the_session_ends()
{
    open_picker();
    SendMessageW(find(picker_title), WM_ENDSESSION, TRUE, 0);
    EXPECT(nothing_open());
}

DWORD WINAPI open_and_end(void*)
{
    const Apartment apartment;
    open_picker();
    return 0;
}

void its_thread_ends()
{
    const HANDLE thread = CreateThread(nullptr, 0, open_and_end, nullptr, 0, nullptr);
    EXPECT_EQ(WaitForSingleObject(thread, 10'000), WAIT_OBJECT_0);
    CloseHandle(thread);
    EXPECT(nothing_open());
    open_picker();
    pump({posts_to(picker_title, WM_CLOSE)}, nothing_open);
}

void the_host_lets_go_of_the_component()
{
    {
        const Apartment apartment;
        open_picker();
        CoFreeUnusedLibrariesEx(0, 0);
    }
    pump({presses_new, posts_to(form_title, WM_CLOSE), posts_to(picker_title, WM_CLOSE)}, nothing_open);
}

} // namespace

int main()
{
    DeleteFileW(L"finales.db");
    {
        const Apartment apartment;
        an_older_window_makes_room();
        the_host_destroys_it();
        it_closes_after_the_form_it_shows();
        the_host_quits();
        the_session_ends();
        its_thread_ends();
    }
    the_host_lets_go_of_the_component();
    return end_of_checks();
}
