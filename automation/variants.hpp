// The values of a call, and their conversion to the type that a parameter has.
#pragma once

#include "automation/description.hpp"

namespace tolvex::automation {

inline Text text_of(BSTR text) { return Text(text, text + SysStringLen(text)); }

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
