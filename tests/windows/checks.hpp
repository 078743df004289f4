// The assertions of the C++ tests of the Windows edition, and what every automation client needs.
#pragma once

#include "TOLVEX.hpp"

#include <cstdio>
#include <string>
#include <utility>
#include <vector>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

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

inline std::string shown(long long number)
{
    char text[40];
    std::snprintf(text, sizeof text, "%lld (%llX)", number, number);
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

// A text of the host.
class Bstr
{
public:
    explicit Bstr(const wchar_t* text = nullptr) : text_(text ? SysAllocString(text) : nullptr) {}
    ~Bstr() { SysFreeString(text_); }
    Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
    BSTR* operator&() { return &text_; }
    std::wstring str() const { return std::wstring(text_ ? text_ : L"", SysStringLen(text_)); }

private:
    BSTR text_;
};

inline VARIANT of_type(int type, void* value)
{
    VARIANT made;
    VariantInit(&made);
    made.vt = static_cast<VARTYPE>(type);
    made.byref = value;
    return made;
}

inline VARIANT reference(int type, void* variable) { return of_type(VT_BYREF | type, variable); }

struct Variant : VARIANT
{
    Variant() : VARIANT(of_type(VT_EMPTY, nullptr)) {}
    explicit Variant(const wchar_t* text) : VARIANT(of_type(VT_BSTR, SysAllocString(text))) {}
    explicit Variant(SHORT number) : VARIANT(of_type(VT_I2, nullptr)) { iVal = number; }
    explicit Variant(double number) : VARIANT(of_type(VT_R8, nullptr)) { dblVal = number; }
    ~Variant() { VariantClear(this); }
    Variant(Variant&& other) noexcept : VARIANT(other) { VariantInit(&other); }
    Variant& operator=(Variant&&) = delete;
    std::wstring text() const { return vt != VT_BSTR ? L"no es texto" : bstrVal ? bstrVal : L""; }
};

struct Apartment
{
    explicit Apartment(DWORD kind = COINIT_APARTMENTTHREADED) { CoInitializeEx(nullptr, kind); }
    ~Apartment() { CoUninitialize(); }
};

template <class Interface>
ComPtr<Interface> create(const wchar_t* program_id)
{
    ComPtr<Interface> made;
    CLSID id{};
    HRESULT outcome = CLSIDFromProgID(program_id, &id);
    if (SUCCEEDED(outcome))
        outcome = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&made));
    EXPECT_EQ(outcome, S_OK);
    if (!made) std::exit(end_of_checks());
    return made;
}

constexpr HRESULT run_time_error(int number) { return static_cast<HRESULT>(0x800A0000u + number); }

// What GetErrorInfo says after a call; nothing when there was no error.
struct ErrorInformation
{
    Bstr source, description;
    GUID interface_id{};
};

inline ErrorInformation error_information()
{
    ErrorInformation found;
    ComPtr<IErrorInfo> information;
    if (GetErrorInfo(0, &information) != S_OK) return found;
    information->GetSource(&found.source);
    information->GetDescription(&found.description);
    information->GetGUID(&found.interface_id);
    return found;
}

// A late-bound call and what comes of it.
struct Answer
{
    HRESULT outcome = S_OK;
    HRESULT code = S_OK; // of the exception record
    UINT at_fault = 99;
    Bstr source, description;
    Variant result;
};

inline Answer invoke(IDispatch* object, DISPID id, std::vector<VARIANT> arguments_last_first,
                     std::vector<DISPID> named = {})
{
    Answer answer;
    DISPPARAMS call{arguments_last_first.data(), named.data(), static_cast<UINT>(arguments_last_first.size()),
                    static_cast<UINT>(named.size())};
    EXCEPINFO exception{};
    answer.outcome = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, &answer.result,
                                    &exception, &answer.at_fault);
    answer.code = exception.scode;
    *&answer.source = exception.bstrSource;
    *&answer.description = exception.bstrDescription;
    return answer;
}
