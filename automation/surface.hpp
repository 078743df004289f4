// The public surface as automation hosts see it: one description of the six classes, from which dispatch, the
// entry points of early-bound calls, registration and the type library are made.
#pragma once

#include <windows.h>

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

using EntryPoint = void (*)();

struct Method
{
    const wchar_t* name;
    std::vector<Parameter> parameters;
    VARTYPE result;   // VT_EMPTY: none; VT_VARIANT: a variant that is always Empty
    EntryPoint early; // what an early-bound host calls: every argument, and the result, by reference
    HRESULT (*late)
    (Object& self, VARIANT* arguments, VARIANT& result); // the same from values of the exact types
};

struct Class
{
    const wchar_t* name; // "Cliente": TOLVEX.Cliente with the interface _Cliente
    const wchar_t* description;
    CLSID class_id;
    IID interface_id;
    std::shared_ptr<void> (*create)(); // the portable object behind an automation object
    std::vector<Method> methods;       // in interface order; dispatch identifiers count from 1
};

inline constexpr wchar_t library_name[] = L"TOLVEX";
inline constexpr wchar_t library_description[] = L"TOLVEX 1.0: facturas electrónicas CFDI 3.0";
inline constexpr WORD library_major = 1, library_minor = 0;
extern const GUID library_id;

const std::vector<Class>& surface();

} // namespace tolvex::automation
