#include "platform/windows/windows.hpp"

#include <new>

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
    buffer[length] = L'\0';
    return length > 0 ? from_wide(buffer) : u"código " + to_text(std::to_string(code));
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
