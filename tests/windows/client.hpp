// What an automation client in C++ needs: the host's texts and variants, objects, calls and what comes of
// them.
#pragma once

#include "TOLVEX.hpp"

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>
#include <wrl/client.h>

using Microsoft::WRL::ComPtr;

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
    if (FAILED(outcome)) throw std::runtime_error("no object: " + std::to_string(outcome));
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
