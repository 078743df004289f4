// <windows.h>, the texts and values it speaks, and what its two kinds of failure say.
#pragma once

#include "core/errors.hpp"

#include <objbase.h>
#include <windows.h>
#include <wrl/client.h>

#include <concepts>
#include <utility>

#undef DocumentProperties // ours; the system's function is called by its whole name

extern "C" IMAGE_DOS_HEADER __ImageBase; // where this module lies in memory

namespace tolvex {

inline HINSTANCE this_module() { return reinterpret_cast<HINSTANCE>(&__ImageBase); }

// A host may let go of the component while its windows are open: from now on it stays for good.
void stay_loaded();

// A function of a system library that not every Windows has; null where it is missing.
template <class Function>
Function system_function(const wchar_t* library, const char* name)
{
    const FARPROC found = GetProcAddress(GetModuleHandleW(library), name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

inline const wchar_t* wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline wchar_t* wide(Text& text) { return reinterpret_cast<wchar_t*>(text.data()); }
inline Text from_wide(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

// What Windows says about an error code, in the user's language.
Text system_message(DWORD code);

// Throws Error with the code and its description when a COM call failed.
void check(HRESULT result, const char16_t* what);

// Every reference to a COM object is held by one of these.
using Microsoft::WRL::ComPtr;

// Keeps components usable on a thread whose host may have done with them.
class ComponentsInUse
{
public:
    ComponentsInUse() : in_use_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComponentsInUse()
    {
        if (in_use_) CoUninitialize();
    }
    ComponentsInUse(const ComponentsInUse&) = delete;

private:
    const bool in_use_;
};

// An automation string; the receiver frees it. Throws std::bad_alloc.
BSTR new_bstr(const Text& text);

// An automation value that frees what it holds.
struct Variant : VARIANT
{
    Variant() { VariantInit(this); }
    explicit Variant(std::same_as<bool> auto flag) : Variant()
    {
        vt = VT_BOOL;
        boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(LONG number) : Variant()
    {
        vt = VT_I4;
        lVal = number;
    }
    explicit Variant(const Text& text) : Variant()
    {
        bstrVal = new_bstr(text);
        vt = VT_BSTR;
    }
    Variant(Variant&& other) noexcept : VARIANT(other.release()) {}
    Variant& operator=(Variant&& other) noexcept
    {
        std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
        return *this;
    }
    ~Variant() { VariantClear(this); }

    // Hands what it holds over to somebody who frees it.
    VARIANT release() noexcept
    {
        const VARIANT held = *this;
        VariantInit(this);
        return held;
    }
};

} // namespace tolvex
