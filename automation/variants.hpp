// Automation values: texts, variants, and their conversion to the type that a parameter has.
#pragma once

#include "automation/surface.hpp"
#include "tolvex/errors.hpp"

#include <utility>

namespace tolvex::automation {

// A variant that frees what it holds.
struct Variant : VARIANT
{
    Variant() { VariantInit(this); }
    ~Variant() { VariantClear(this); }
    Variant(Variant&& other) noexcept : VARIANT(other.release()) {}
    Variant& operator=(Variant&& other) noexcept
    {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    // Hands what it holds over to somebody who frees it.
    VARIANT release() noexcept
    {
        const VARIANT held = *this;
        VariantInit(this);
        return held;
    }
};

inline Text text_of(BSTR text) { return Text(text, text + SysStringLen(text)); }
inline Text text_from(const wchar_t* text) { return Text(text, text + wcslen(text)); }
inline const OLECHAR* characters(const Text& text) { return reinterpret_cast<const OLECHAR*>(text.c_str()); }
inline UINT length(const Text& text) { return static_cast<UINT>(text.size()); }
// A text for the host, which frees it. Throws std::bad_alloc.
BSTR new_bstr(const Text& text);

// Where a variant keeps its value: all plain values of the union share one place.
template <class Raw>
Raw* payload(VARIANT& variant)
{
    return reinterpret_cast<Raw*>(&variant.llVal);
}
template <>
inline VARIANT* payload<VARIANT>(VARIANT& variant)
{
    return &variant;
}

// The variable that an argument passed by reference points to, or the argument itself.
const VARIANT& referred(const VARIANT& argument);
// The host leaves this argument out.
bool is_omitted(const VARIANT& argument);

// The argument as a value of the type, by the rules of the user's locale. Throws Error 6 when it does not
// fit, 13 when it is of another kind, 91 for an object variable without an object, 94 for Null; the
// description names the parameter.
Variant coerced(const VARIANT& argument, VARTYPE type, const wchar_t* parameter);
// Error 13 for a variable of the host that cannot take what the parameter gives back.
Error wrong_variable(const wchar_t* parameter);
bool as_boolean(const VARIANT& argument, const wchar_t* parameter);

// The value that stands for an omitted argument.
Variant default_of(const Parameter& parameter);

} // namespace tolvex::automation
