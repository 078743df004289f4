// A host that knows nothing of dialogs: it opens maintenance windows and runs the plainest message loop there
// is.
//
//   host METHOD DATABASE [COMPANY | FOLDER]
//
// Its own window counts the clicks that reach it. It ends when the last window of the component is closed and
// says how many came.
#include "../client.hpp"
#include "../own_window.hpp"

#include <cstdio>

namespace {

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
    const HWND own = own_window::open();
    const Answer opened = open_maintenance(arguments[1], arguments[2], count > 3 ? arguments[3] : L"");
    if (FAILED(opened.outcome)) return 1;
    own_window::run_messages(own);
    std::printf("clics: %d\n", own_window::clicks);
    return 0;
}
