// <windows.h>, the texts it speaks, and the two checks for its two kinds of failure.
#pragma once

#include "core/errors.hpp"

#include <objbase.h>
#include <windows.h>
#include <wrl/client.h>

extern "C" IMAGE_DOS_HEADER __ImageBase; // where this module lies in memory

namespace tolvex {

inline HINSTANCE this_module() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

inline const wchar_t* wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline wchar_t* wide(Text& text) { return reinterpret_cast<wchar_t*>(text.data()); }
inline Text from_wide(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

// What Windows says about an error code, in the user's language.
Text system_message(DWORD code);

// Throws Error with the code and its description when a COM call failed.
void check(HRESULT result, const char16_t* what);

using Microsoft::WRL::ComPtr;

// An automation string for one call.
class AutomationText
{
public:
    explicit AutomationText(const Text& text)
        : held_(SysAllocStringLen(wide(text), static_cast<UINT>(text.size())))
    {
        if (!held_) throw std::bad_alloc();
    }
    AutomationText(const AutomationText&) = delete;
    ~AutomationText() { SysFreeString(held_); }

    BSTR get() const { return held_; }
    // The same as an argument; this keeps the string.
    VARIANT argument() const
    {
        VARIANT value{};
        value.vt = VT_BSTR;
        value.bstrVal = held_;
        return value;
    }

private:
    BSTR held_;
};

} // namespace tolvex
