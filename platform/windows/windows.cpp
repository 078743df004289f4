#include "platform/windows/windows.hpp"

#include <cwchar>
#include <new>
#include <string>

namespace tolvex {

void stay_loaded()
{
    HMODULE pinned;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<const wchar_t*>(this_module()), &pinned);
}

Text system_message(DWORD code)
{
    wchar_t buffer[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                  0, buffer, std::size(buffer), nullptr);
    while (length > 0 && buffer[length - 1] <= L' ') --length;
    if (length == 0)
        length = static_cast<DWORD>(swprintf(buffer, std::size(buffer), L"código 0x%08lX", code));
    return from_wide(std::wstring(buffer, length).c_str());
}

void check(HRESULT result, const char16_t* what)
{
    if (SUCCEEDED(result)) return;
    throw Error(static_cast<std::int32_t>(result),
                Text(what) + u": " + system_message(static_cast<DWORD>(result)));
}

BSTR new_bstr(const Text& text)
{
    const BSTR made = SysAllocStringLen(wide(text), static_cast<UINT>(text.size()));
    if (!made) throw std::bad_alloc();
    return made;
}

} // namespace tolvex
