#include "developer_console/windows/surroundings.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex::developer_console {

namespace {

constexpr wchar_t key[] = L"Software\\TOLVEX\\Consola";

Error clipboard_error()
{
    return Error(numbers::internal, u"No se pudo copiar: " + system_message(GetLastError()));
}

struct OpenClipboardOfUser
{
    OpenClipboardOfUser()
    {
        if (!OpenClipboard(nullptr)) throw clipboard_error();
    }
    ~OpenClipboardOfUser() { CloseClipboard(); }
    OpenClipboardOfUser(const OpenClipboardOfUser&) = delete;
};

} // namespace

void copy_to_clipboard(const Text& text)
{
    const OpenClipboardOfUser clipboard;
    EmptyClipboard();
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, (text.size() + 1) * sizeof(char16_t));
    void* const place = memory ? GlobalLock(memory) : nullptr;
    if (!place) throw clipboard_error();
    CopyMemory(place, text.c_str(), (text.size() + 1) * sizeof(char16_t));
    GlobalUnlock(memory);
    if (!SetClipboardData(CF_UNICODETEXT, memory)) {
        GlobalFree(memory); // else it is the clipboard's
        throw clipboard_error();
    }
}

std::optional<Text> RegistryMemory::recall(TextView field)
{
    const Text name(field);
    DWORD bytes = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, key, wide(name), RRF_RT_REG_SZ, nullptr, nullptr, &bytes) !=
        ERROR_SUCCESS)
        return std::nullopt;
    Text value(bytes / sizeof(char16_t), u'\0');
    if (RegGetValueW(HKEY_CURRENT_USER, key, wide(name), RRF_RT_REG_SZ, nullptr, value.data(), &bytes) !=
        ERROR_SUCCESS)
        return std::nullopt;
    value.resize(value.find(u'\0'));
    return value;
}

void RegistryMemory::keep(TextView field, const Text& value)
{
    const Text name(field);
    RegSetKeyValueW(HKEY_CURRENT_USER, key, wide(name), REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(char16_t)));
}

} // namespace tolvex::developer_console
