#include "automation/registration.hpp"

#include "automation/component.hpp"
#include "automation/surface.hpp"

namespace tolvex::automation {

namespace {

constexpr bool is_64_bits = sizeof(void*) == 8;
constexpr const wchar_t* own_platform = is_64_bits ? L"win64" : L"win32";
constexpr const wchar_t* other_platform = is_64_bits ? L"win32" : L"win64";
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

    // For a key that may hold other versions too.
    void remove_empty(const std::wstring& key) const { RegDeleteKeyW(root_, (root + key).c_str()); }

    // The default value; nothing where there is none.
    std::wstring text(const std::wstring& key) const
    {
        std::wstring buffer(32768, L'\0'); // the longest path there is
        auto bytes = static_cast<DWORD>(buffer.size() * sizeof(wchar_t));
        const LSTATUS status =
            RegGetValueW(root_, (root + key).c_str(), nullptr, RRF_RT_REG_SZ, nullptr, buffer.data(), &bytes);
        return status == ERROR_SUCCESS ? buffer.c_str() : std::wstring();
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

// The same file has one such path, however its folders were spelled.
std::wstring long_path(const std::wstring& path)
{
    std::wstring full(32768, L'\0'), found(32768, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    found.resize(GetLongPathNameW(full.c_str(), found.data(), static_cast<DWORD>(found.size())));
    return found.empty() ? full : found; // a file that is gone has no long path
}

bool is_another_file(const std::wstring& path)
{
    const std::wstring its = long_path(path), own = long_path(component::path());
    return CompareStringOrdinal(its.c_str(), -1, own.c_str(), -1, TRUE) != CSTR_EQUAL;
}

// Another copy of the component has registered itself since.
bool belongs_to_another(const Classes& classes, const std::wstring& key)
{
    const std::wstring path = classes.text(key);
    return !path.empty() && is_another_file(path);
}

std::wstring class_key(const Class& described) { return L"CLSID\\" + text_of(described.class_id); }
std::wstring interface_key(const Class& described)
{
    return L"Interface\\" + text_of(described.interface_id);
}
std::wstring library_key() { return L"TypeLib\\" + text_of(library_id); }
std::wstring version_key() { return library_key() + L"\\" + library_version; }
std::wstring platform_key(const wchar_t* platform) { return version_key() + L"\\0\\" + platform; }

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
    classes.set(platform_key(own_platform), path);
    classes.set(key + L"\\FLAGS", L"0");
    classes.set(key + L"\\HELPDIR", path.substr(0, path.find_last_of(L'\\')));
}

void unregister_class(const Classes& classes, const Class& described)
{
    if (belongs_to_another(classes, class_key(described) + L"\\InprocServer32")) return;
    classes.remove(class_key(described));
    classes.remove(interface_key(described));
    // Both bitnesses share the name.
    if (!classes.exists(class_key(described), other_view)) classes.remove(program_id(described));
}

void unregister_library(const Classes& classes)
{
    if (belongs_to_another(classes, platform_key(own_platform))) return;
    classes.remove(platform_key(own_platform));
    if (classes.exists(platform_key(other_platform))) return;
    classes.remove(version_key());
    classes.remove_empty(library_key());
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
    for (const Class& described : surface()) unregister_class(classes, described);
    unregister_library(classes);
}

} // namespace tolvex::automation
