// A host that knows nothing of dialogs: it opens maintenance windows and runs the plainest message loop there
// is.
//
//   host METHOD DATABASE [COMPANY | FOLDER]
//
// Its own window counts the clicks that reach it. It ends when the last window of the component is closed and
// says how many came.
#include "../client.hpp"

#include <cstdio>
#include <cwchar>

namespace {

int clicks = 0;

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM first, LPARAM second)
{
    if (message == WM_LBUTTONDOWN) ++clicks;
    return DefWindowProcW(window, message, first, second);
}

HWND open_own_window()
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

BOOL CALLBACK count_other(HWND window, LPARAM parameter)
{
    auto& others = *reinterpret_cast<Others*>(parameter);
    if (window != others.own && IsWindowVisible(window)) ++others.count;
    return TRUE;
}

bool others_are_open(HWND own)
{
    Others others{own};
    EnumThreadWindows(GetCurrentThreadId(), count_other, reinterpret_cast<LPARAM>(&others));
    return others.count > 0;
}

Answer open_maintenance(const wchar_t* method, const wchar_t* database, const wchar_t* last)
{
    const auto maintenance = create<IDispatch>(L"TOLVEX.Maestros");
    auto* name = const_cast<wchar_t*>(method);
    DISPID id = DISPID_UNKNOWN;
    maintenance->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    const Variant none(L""), file(database), server(L"sqlite:"), given(last);
    std::vector<VARIANT> arguments = {server, file, none, none};
    if (*last) arguments.insert(arguments.begin(), given);
    return invoke(maintenance.Get(), id, arguments);
}

} // namespace

int wmain(int count, wchar_t** arguments)
{
    if (count < 3) return 2;
    const Apartment apartment;
    const HWND own = open_own_window();
    const Answer opened = open_maintenance(arguments[1], arguments[2], count > 3 ? arguments[3] : L"");
    if (FAILED(opened.outcome)) return 1;
    MSG message;
    while (others_are_open(own) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    std::printf("clics: %d\n", clicks);
    return 0;
}
