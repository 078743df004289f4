// The assertions of the C++ tests of the Windows edition, and what every automation client needs.
#pragma once

#include "TOLVEX.hpp"

#include <cstdio>
#include <string>
#include <type_traits>
#include <utility>

inline int checks = 0, failures = 0;

// A failed check tells where it stands and goes on.
#define EXPECT(condition) expect((condition), #condition, __LINE__)
#define EXPECT_EQ(actual, expected) expect_equal((actual), (expected), #actual, __LINE__)

inline void expect(bool holds, const std::string& what, int line)
{
    ++checks;
    if (holds) return;
    ++failures;
    std::printf("FALLA: línea %d: %s\n", line, what.c_str());
}

inline std::string shown(const std::wstring& text)
{
    std::string bytes(text.size() * 3 + 1, '\0');
    const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes.substr(0, static_cast<std::size_t>(length));
}

template <class Number>
requires std::is_arithmetic_v<Number> std::string shown(Number number)
{
    char text[40];
    if constexpr (std::is_floating_point_v<Number>)
        std::snprintf(text, sizeof text, "%.15g", number);
    else
        std::snprintf(text, sizeof text, "%lld (%llX)", static_cast<long long>(number),
                      static_cast<long long>(number));
    return text;
}

template <class Actual, class Expected>
void expect_equal(const Actual& actual, const Expected& expected, const std::string& what, int line)
{
    expect(actual == expected,
           what + " es " + shown(actual) + " en vez de " + shown(static_cast<Actual>(expected)), line);
}

// The last line of a test; without it the runner takes the test as failed.
inline int end_of_checks()
{
    std::printf("FIN: %d comprobaciones, %d fallas\n", checks, failures);
    return failures == 0 ? 0 : 1;
}

// A reference that is released.
template <class Interface>
class Owned
{
public:
    explicit Owned(Interface* interface_pointer = nullptr) : pointer_(interface_pointer) {}
    Owned(Owned&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    Owned& operator=(Owned&& other) noexcept
    {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~Owned()
    {
        if (pointer_) pointer_->Release();
    }
    Interface* operator->() const { return pointer_; }
    Interface* get() const { return pointer_; }
    Interface** out() { return &pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

private:
    Interface* pointer_;
};

// A text of the host.
class Bstr
{
public:
    explicit Bstr(const wchar_t* text = nullptr) : text_(text ? SysAllocString(text) : nullptr) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    BSTR* operator&() { return &text_; }
    std::wstring str() const { return std::wstring(text_ ? text_ : L"", SysStringLen(text_)); }

private:
    BSTR text_;
};

struct Variant : VARIANT
{
    Variant() { VariantInit(this); }
    explicit Variant(const wchar_t* text) : Variant()
    {
        vt = VT_BSTR;
        bstrVal = SysAllocString(text);
    }
    explicit Variant(SHORT number) : Variant()
    {
        vt = VT_I2;
        iVal = number;
    }
    explicit Variant(double number) : Variant()
    {
        vt = VT_R8;
        dblVal = number;
    }
    ~Variant() { VariantClear(this); }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant& operator=(Variant&&) = delete;
};

struct Apartment
{
    explicit Apartment(DWORD kind = COINIT_APARTMENTTHREADED) { CoInitializeEx(nullptr, kind); }
    ~Apartment() { CoUninitialize(); }
};

template <class Interface>
Owned<Interface> create(const wchar_t* program_id)
{
    Owned<Interface> made;
    CLSID id{};
    HRESULT outcome = CLSIDFromProgID(program_id, &id);
    if (SUCCEEDED(outcome))
        outcome = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(Interface),
                                   reinterpret_cast<void**>(made.out()));
    EXPECT_EQ(outcome, S_OK);
    if (!made) std::exit(end_of_checks());
    return made;
}

// What GetErrorInfo says after a call.
struct ErrorInformation
{
    bool given = false;
    std::wstring source, description;
    GUID interface_id{};
};

inline ErrorInformation error_information()
{
    Owned<IErrorInfo> information;
    ErrorInformation found;
    found.given = GetErrorInfo(0, information.out()) == S_OK;
    if (!found.given) return found;
    Bstr source, description;
    information->GetSource(&source);
    information->GetDescription(&description);
    information->GetGUID(&found.interface_id);
    found.source = source.str();
    found.description = description.str();
    return found;
}

constexpr HRESULT run_time_error(int number) { return static_cast<HRESULT>(0x800A0000u + number); }
