#include "automation/registration.hpp"

#include "automation/component.hpp"
#include "automation/surface.hpp"

namespace tolvex::automation {

namespace {

constexpr bool is_64_bits = sizeof(void*) == 8;
constexpr const wchar_t* own_platform = is_64_bits ? L"win64" : L"win32";
constexpr REGSAM other_view = is_64_bits ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;

void check_written(LSTATUS status, const std::wstring& key)
{
    if (status != ERROR_SUCCESS)
        throw Error(HRESULT_FROM_WIN32(static_cast<DWORD>(status)),
                    u"No se pudo escribir el registro: " + Text(key.begin(), key.end()));
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
        check_written(RegSetKeyValueW(root_, path.c_str(), name, REG_SZ, value.c_str(), bytes), key);
    }

    void remove(const std::wstring& key) const
    {
        const LSTATUS status = RegDeleteTreeW(root_, (root + key).c_str());
        if (status != ERROR_FILE_NOT_FOUND) check_written(status, key);
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

std::wstring class_key(const Class& described) { return L"CLSID\\" + text_of(described.class_id); }
std::wstring interface_key(const Class& described)
{
    return L"Interface\\" + text_of(described.interface_id);
}
std::wstring library_key() { return L"TypeLib\\" + text_of(library_id); }
std::wstring version_key() { return library_key() + L"\\" + library_version; }

void register_class(const Classes& classes, const Class& described, const std::wstring& path)
{
    const std::wstring key = class_key(described);
    classes.set(key, described.description);
    classes.set(key + L"\\InprocServer32", path);
    classes.set(key + L"\\InprocServer32", threading_model, L"ThreadingModel");
    classes.set(key + L"\\ProgID", program_id(described));
    classes.set(key + L"\\TypeLib", text_of(library_id));
    classes.set(key + L"\\Version", library_version);
    classes.set(program_id(described), described.description);
    classes.set(program_id(described) + L"\\CLSID", text_of(described.class_id));
}

void register_interface(const Classes& classes, const Class& described)
{
    const std::wstring key = interface_key(described);
    classes.set(key, interface_name(described));
    classes.set(key + L"\\ProxyStubClsid32", type_library_marshaller);
    classes.set(key + L"\\TypeLib", text_of(library_id));
    classes.set(key + L"\\TypeLib", library_version, L"Version");
}

void register_library(const Classes& classes, const std::wstring& path)
{
    const std::wstring key = version_key();
    classes.set(key, library_description);
    classes.set(key + L"\\0\\" + own_platform, path);
    classes.set(key + L"\\FLAGS", L"0");
    classes.set(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
}

} // namespace

void register_for(Scope scope)
try {
    const Classes classes(scope);
    const std::wstring path = component::path();
    for (const Class& described : surface()) {
        register_class(classes, described, path);
        register_interface(classes, described);
    }
    register_library(classes, path);
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
    classes.remove(version_key() + L"\\0\\" + own_platform);
    if (classes.exists(class_key(surface().front()), other_view)) return;
    for (const Class& described : surface()) classes.remove(program_id(described));
    classes.remove(library_key());
}

} // namespace tolvex::automation
