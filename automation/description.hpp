// The words in which the public surface is told: classes, methods, parameters, and the names that hosts find
// them by. surface.cpp fills them in. docs/automation.md tells the layers of this room; this is the lowest.
#pragma once

#include "automation/library.hpp"
#include "platform/windows/windows.hpp"

#include <oaidl.h>

#include <memory>
#include <variant>
#include <vector>

namespace tolvex::automation {

struct Object;

// What an omitted argument becomes; nothing for a parameter that must be given.
using DefaultValue = std::variant<std::monostate, bool, int, const wchar_t*>;

// One parameter. The table gives the documented name and the default, the C++ signature the rest.
struct Parameter
{
    const wchar_t* name;
    DefaultValue default_value = {};
    VARTYPE type = VT_EMPTY;
    bool written = false; // the method gives a value back in it

    bool is_optional() const { return !std::holds_alternative<std::monostate>(default_value); }
};

inline constexpr std::size_t most_parameters = 26;

// What an early-bound host calls: every argument, and the result, by reference. Its true type differs.
using EntryPoint = void (*)();
// The same from values of exactly the parameters' types.
using LateEntry = HRESULT (*)(Object& self, VARIANT* arguments, VARIANT& result);

struct Method
{
    const wchar_t* name;
    const wchar_t* help; // one line for the host's programmer
    std::vector<Parameter> parameters;
    VARTYPE result; // VT_EMPTY: none; VT_VARIANT: a variant that is always Empty
    EntryPoint early;
    LateEntry late;
};

struct Class
{
    const wchar_t* name; // "Cliente": TOLVEX.Cliente with the interface _Cliente
    const wchar_t* description;
    CLSID class_id;
    IID interface_id;
    std::shared_ptr<void> (*create)(); // the portable object behind an automation object
    std::vector<Method> methods;       // in interface order; dispatch identifiers count from 1
    std::vector<EntryPoint> functions; // of the interface: the seven of every dual one, then a method each
};

inline std::wstring program_id(const Class& described)
{
    return std::wstring(library_name) + L"." + described.name;
}

inline std::wstring interface_name(const Class& described) { return std::wstring(L"_") + described.name; }

// As the registry writes it: {00020400-0000-0000-C000-000000000046}.
inline std::wstring text_of(const GUID& id)
{
    wchar_t text[39];
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return text;
}

inline constexpr wchar_t threading_model[] = L"Apartment";
// The operating system calls our interfaces in other apartments by their type library.
inline constexpr wchar_t type_library_marshaller[] = L"{00020424-0000-0000-C000-000000000046}";

} // namespace tolvex::automation
