// Calls from other apartments, and one session for all objects.
#include "checks.hpp"

#include <thread>

namespace {

// The functions behind the pointer are not the component's own.
bool is_proxy(IUnknown* object)
{
    HMODULE module = nullptr;
    const auto* function = **reinterpret_cast<wchar_t***>(object);
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       function, &module);
    return module != GetModuleHandleW(L"TOLVEX.dll");
}

// A multithreaded host gets a proxy: arguments by reference and the texts given back cross the apartment.
void answers_a_multithreaded_host()
{
    const Apartment apartment(COINIT_MULTITHREADED);
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr rfc(L"R"), value(L"ñ");
    SHORT rama = 1;
    Variant result;
    EXPECT_EQ(addenda->SetAddenda(&rfc, &rama, &rama, &value, &result), S_OK);
    EXPECT_EQ(result.vt, VT_EMPTY);

    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    EXPECT(is_proxy(docto.get()));
    Bstr folio(L"antes");
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT(FAILED(docto->fgObtenFolioFactura(&rfc, &folio, &done)));

    Variant caja(L"1"), variable(SHORT{5}), reference;
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    VARIANT arguments[] = {reference, caja};
    DISPPARAMS call{arguments, nullptr, 2, 0};
    EXCEPINFO exception{};
    EXPECT_EQ(docto->Invoke(10, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, &result, &exception,
                            nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(std::wstring(exception.bstrSource ? exception.bstrSource : L""), L"TOLVEX.GeneraDocto");
    EXPECT_EQ(variable.vt, VT_BSTR);
    EXPECT_EQ(std::wstring(variable.vt == VT_BSTR ? variable.bstrVal : L""), L"0");
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
}

} // namespace

int main()
{
    std::thread(answers_a_multithreaded_host).join();
    return end_of_checks();
}
