// <windows.h>, the texts it speaks, and the two checks for its two kinds of failure.
#pragma once

#include "core/errors.hpp"

#include <objbase.h>
#include <windows.h>

namespace tolvex {

inline const wchar_t* wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }
inline wchar_t* wide(Text& text) { return reinterpret_cast<wchar_t*>(text.data()); }
inline Text from_wide(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

// What Windows says about an error code, in the user's language.
Text system_message(DWORD code);

// Throws Error with the code and its description when a COM call failed.
void check(HRESULT result, const char16_t* what);

// Counted reference to a COM object.
template <class Interface>
class ComPointer
{
public:
    ComPointer() = default;
    explicit ComPointer(Interface* owned) : pointer_(owned) {}
    ComPointer(const ComPointer&) = delete;
    ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPointer& operator=(ComPointer&& other) noexcept
    {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPointer()
    {
        if (pointer_) pointer_->Release();
    }

    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    // Where a call leaves its result.
    Interface** out() { return &pointer_; }

private:
    Interface* pointer_ = nullptr;
};

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

private:
    BSTR held_;
};

} // namespace tolvex
