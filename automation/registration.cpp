#include "automation/registration.hpp"

#include "automation/server.hpp"
#include "automation/surface.hpp"
#include "tolvex/errors.hpp"

#include <string>

namespace tolvex::automation {

namespace {

constexpr bool is_64_bits = sizeof(void*) == 8;
constexpr const wchar_t* own_platform = is_64_bits ? L"win64" : L"win32";
constexpr REGSAM other_view = is_64_bits ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

// The operating system calls our interfaces in other apartments by their type library.
constexpr wchar_t type_library_marshaller[] = L"{00020424-0000-0000-C000-000000000046}";

void check(LSTATUS status, const std::wstring& key)
{
    if (status != ERROR_SUCCESS)
        throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)),
                    u"No se pudo escribir el registro: " + Text(key.begin(), key.end()));
}

std::wstring text_of(const GUID& id)
{
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return text;
}

// The part of the registry that holds the entries of a scope.
class Classes
{
public:
    explicit Classes(Scope scope) : root_(scope == Scope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER) {}

    void set(const std::wstring& key, const std::wstring& value, const wchar_t* name = nullptr) const
    {
        const std::wstring path = root + key;
        const auto bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
        check(RegSetKeyValueW(root_, path.c_str(), name, REG_SZ, value.c_str(), bytes), key);
    }

    void remove(const std::wstring& key) const
    {
        const LSTATUS status = RegDeleteTreeW(root_, (root + key).c_str());
        if (status != ERROR_FILE_NOT_FOUND) check(status, key);
    }

    bool exists(const std::wstring& key, REGSAM view = 0) const
    {
        HKEY opened = nullptr;
        if (RegOpenKeyExW(root_, (root + key).c_str(), 0, KEY_READ | view, &opened) != ERROR_SUCCESS)
            return false;
        RegCloseKey(opened);
        return true;
    }

private:
    static inline const std::wstring root = L"Software\\Classes\\";
    HKEY root_;
};

std::wstring program_id(const Class& described) { return std::wstring(library_name) + L"." + described.name; }
std::wstring class_key(const Class& described) { return L"CLSID\\" + text_of(described.class_id); }
std::wstring interface_key(const Class& described)
{
    return L"Interface\\" + text_of(described.interface_id);
}
std::wstring library_key() { return L"TypeLib\\" + text_of(library_id); }
std::wstring library_version()
{
    return std::to_wstring(library_major) + L"." + std::to_wstring(library_minor);
}

void register_class(const Classes& classes, const Class& described, const std::wstring& component)
{
    const std::wstring key = class_key(described);
    classes.set(key, described.description);
    classes.set(key + L"\\InprocServer32", component);
    classes.set(key + L"\\InprocServer32", L"Apartment", L"ThreadingModel");
    classes.set(key + L"\\ProgID", program_id(described));
    classes.set(key + L"\\TypeLib", text_of(library_id));
    classes.set(key + L"\\Version", library_version());
    classes.set(program_id(described), described.description);
    classes.set(program_id(described) + L"\\CLSID", text_of(described.class_id));
}

void register_interface(const Classes& classes, const Class& described)
{
    const std::wstring key = interface_key(described);
    classes.set(key, std::wstring(L"_") + described.name);
    classes.set(key + L"\\ProxyStubClsid32", type_library_marshaller);
    classes.set(key + L"\\TypeLib", text_of(library_id));
    classes.set(key + L"\\TypeLib", library_version(), L"Version");
}

void register_library(const Classes& classes, const std::wstring& component)
{
    const std::wstring key = library_key() + L"\\" + library_version();
    classes.set(key, library_description);
    classes.set(key + L"\\0\\" + own_platform, component);
    classes.set(key + L"\\FLAGS", L"0");
    classes.set(key + L"\\HELPDIR", component.substr(0, component.find_last_of(L'\\')));
}

} // namespace

void register_for(Scope scope)
try {
    const Classes classes(scope);
    const std::wstring component = server::path();
    for (const Class& described : surface()) {
        register_class(classes, described, component);
        register_interface(classes, described);
    }
    register_library(classes, component);
} catch (...) {
    unregister_for(scope);
    throw;
}

void unregister_for(Scope scope)
{
    const Classes classes(scope);
    for (const Class& described : surface()) {
        classes.remove(class_key(described));
        classes.remove(interface_key(described));
    }
    classes.remove(library_key() + L"\\" + library_version() + L"\\0\\" + own_platform);
    if (classes.exists(class_key(surface().front()), other_view)) return;
    for (const Class& described : surface()) classes.remove(program_id(described));
    classes.remove(library_key());
}

} // namespace tolvex::automation
