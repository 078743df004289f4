#include "automation/variants.hpp"

#include <cmath>

namespace tolvex::automation {

namespace {

Error failed(const Error& error, const wchar_t* parameter)
{
    return with_detail(error, u"argumento " + from_wide(parameter));
}

Error failed_conversion(HRESULT reason, const wchar_t* parameter)
{
    switch (reason) {
    case E_OUTOFMEMORY:
        throw std::bad_alloc();
    case DISP_E_OVERFLOW:
        return failed(overflow(), parameter);
    default:
        return failed(type_mismatch(), parameter);
    }
}

// A Boolean becomes the text that the host's own language uses for it.
constexpr USHORT text_rules = VARIANT_ALPHABOOL | VARIANT_LOCALBOOL;

// The functions of the operating system read their source and leave it as it is, but do not say so.
VARIANT* source(const VARIANT& value) { return const_cast<VARIANT*>(&value); }

bool is_structured(const VARIANT& value)
{
    return V_ISARRAY(&value) || (value.vt & VT_TYPEMASK) == VT_RECORD;
}

bool is_object(const VARIANT& value) { return value.vt == VT_DISPATCH || value.vt == VT_UNKNOWN; }

bool is_not_finite(const VARIANT& value)
{
    return ((value.vt == VT_R8 || value.vt == VT_DATE) && !std::isfinite(value.dblVal)) ||
           (value.vt == VT_R4 && !std::isfinite(value.fltVal));
}

// Its conversion to a text would write beyond its end.
bool is_no_decimal(const VARIANT& value)
{
    constexpr BYTE most_decimals = 28;
    return value.vt == VT_DECIMAL &&
           (value.decVal.scale > most_decimals || (value.decVal.sign & ~DECIMAL_NEG) != 0);
}

// What the conversions of the operating system answer wrongly or not at all.
void require_convertible(const VARIANT& value, const wchar_t* parameter)
{
    if (value.vt == VT_NULL) throw failed(invalid_use_of_null(), parameter);
    if (is_structured(value) || is_no_decimal(value)) throw failed_conversion(DISP_E_TYPEMISMATCH, parameter);
    if (is_object(value) && !value.punkVal) throw failed(object_not_set(), parameter);
    if (is_not_finite(value)) throw failed_conversion(DISP_E_OVERFLOW, parameter);
}

bool leads_nowhere(const VARIANT& value) { return V_ISBYREF(&value) && !value.byref; }

// The value itself for an argument that points to the host's variable. The operating system follows a second
// reference too, wherever it leads.
Variant without_reference(const VARIANT& argument, const wchar_t* parameter)
{
    Variant value;
    const bool nowhere = leads_nowhere(argument) || leads_nowhere(referred(argument));
    const HRESULT outcome = nowhere ? DISP_E_TYPEMISMATCH : VariantCopyInd(&value, source(argument));
    if (FAILED(outcome)) throw failed_conversion(outcome, parameter);
    return value;
}

} // namespace

const VARIANT& referred(const VARIANT& argument)
{
    const bool refers = argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal;
    return refers ? *argument.pvarVal : argument;
}

bool is_omitted(const VARIANT& argument)
{
    const VARIANT& value = referred(argument);
    return value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND;
}

Variant coerced(const VARIANT& argument, VARTYPE type, const wchar_t* parameter)
{
    const VARIANT& value = referred(argument);
    require_convertible(value, parameter);
    if (V_ISBYREF(&value)) return coerced(without_reference(value, parameter), type, parameter);
    Variant converted;
    const HRESULT outcome = type == VT_VARIANT ? VariantCopy(&converted, source(value))
                                               : VariantChangeTypeEx(&converted, source(value),
                                                                     GetUserDefaultLCID(), text_rules, type);
    if (FAILED(outcome)) throw failed_conversion(outcome, parameter);
    require_convertible(converted, parameter);
    return converted;
}

Error wrong_variable(const wchar_t* parameter) { return failed_conversion(DISP_E_TYPEMISMATCH, parameter); }

bool as_boolean(const VARIANT& argument, const wchar_t* parameter)
{
    return !is_omitted(argument) && coerced(argument, VT_BOOL, parameter).boolVal != VARIANT_FALSE;
}

Variant default_of(const Parameter& parameter)
{
    Variant value;
    if (const auto* flag = std::get_if<bool>(&parameter.default_value))
        value = Variant(*flag);
    else if (const auto* number = std::get_if<int>(&parameter.default_value))
        value = Variant(LONG{*number});
    else if (const auto* text = std::get_if<const wchar_t*>(&parameter.default_value))
        value = Variant(from_wide(*text));
    return coerced(value, parameter.type, parameter.name);
}

} // namespace tolvex::automation
