// A host bound early, through the interfaces of the type library, in the apartment of the component and in
// another.
#include "client.hpp"

#include <gtest/gtest.h>

#include <thread>

namespace {

class EarlyBound : public ::testing::Test
{
    const Apartment apartment_;
};

TEST_F(EarlyBound, stores_and_answers_empty)
{
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr rfc(L"ABC010101AAA"), value(L"ñandú"), none;
    SHORT rama = 3, padre = 1;
    LONG renglon = 2;
    Variant result(SHORT{7});
    EXPECT_EQ(addenda->SetAddenda(&rfc, &rama, &padre, &value, &result), S_OK);
    EXPECT_EQ(result.vt, VT_EMPTY);
    EXPECT_EQ(addenda->SetAddendaDet(&renglon, &rfc, &rama, &padre, &value, &result), S_OK);
    EXPECT_EQ(rfc.str(), L"ABC010101AAA");
    EXPECT_EQ(addenda->SetAddenda(&none, &rama, &padre, &none, &result), S_OK); // no text is the empty text
    EXPECT_EQ(none.str(), L"");
}

// Not trapped: the error reaches the host, with the text already given back.
TEST_F(EarlyBound, raises_errors_with_information)
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    VARIANT_BOOL done = VARIANT_TRUE;
    Bstr caja(L"1"), folio(L"basura");
    EXPECT_LT(docto->fgObtenFolioFactura(&caja, &folio, &done), 0);
    const ErrorInformation raised = error_information();
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_EQ(folio.str(), L"0");
    EXPECT_EQ(raised.source.str(), L"TOLVEX.GeneraDocto");
    EXPECT_NE(raised.description.str(), L"");
    EXPECT_TRUE(raised.interface_id == __uuidof(TOLVEX::_GeneraDocto));
}

TEST_F(EarlyBound, leaves_the_description_of_a_trapped_error_until_the_next_call)
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Bstr folio(L"1");
    SHORT one = 1;
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_EQ(docto->BorraFacturaElectronica(&one, &one, &folio, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    const ErrorInformation trapped = error_information();
    EXPECT_EQ(trapped.source.str(), L"TOLVEX.GeneraDocto");
    EXPECT_NE(trapped.description.str(), L"");

    docto->BorraFacturaElectronica(&one, &one, &folio, &done);
    EXPECT_EQ(docto->Main(), S_OK);
    EXPECT_EQ(error_information().description.str(), L"");
}

TEST_F(EarlyBound, says_that_it_gives_error_information)
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(docto->QueryInterface(IID_PPV_ARGS(&support)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(TOLVEX::_GeneraDocto)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(TOLVEX::_Cliente)), S_FALSE);

    ComPtr<IUnknown> identity, other_identity;
    docto->QueryInterface(IID_PPV_ARGS(&identity));
    support->QueryInterface(IID_PPV_ARGS(&other_identity));
    EXPECT_EQ(identity.Get(), other_identity.Get());
    void* none = &none;
    EXPECT_EQ(docto->QueryInterface(__uuidof(TOLVEX::_Cliente), &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
}

// No coercion stands between: the component itself has to look at the number of days.
TEST_F(EarlyBound, refuses_dates_out_of_range)
{
    const auto cliente = create<TOLVEX::_Cliente>(L"TOLVEX.Cliente");
    Bstr text(L"1");
    SHORT one = 1;
    CY amount{};
    Variant result;
    for (DATE date : {1e300, -1e300, 0.0 / 0.0 * -1.0}) {
        const HRESULT outcome = cliente->SetDatosClientes(
            &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text,
            &text, &one, &text, &date, &text, &amount, &amount, &text, &amount, &text, &text, &text, &result);
        EXPECT_EQ(outcome, run_time_error(6));
        EXPECT_EQ(error_information().source.str(), L"TOLVEX.Cliente");
    }
}

TEST_F(EarlyBound, refuses_null_pointers)
{
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr text(L"1");
    SHORT one = 1;
    Variant result;
    EXPECT_EQ(addenda->SetAddenda(nullptr, &one, &one, &text, &result), E_POINTER);
    EXPECT_EQ(addenda->SetAddenda(&text, &one, nullptr, &text, &result), E_POINTER);
    EXPECT_EQ(addenda->SetAddenda(&text, &one, &one, &text, nullptr), E_POINTER);
}

// The functions behind the pointer are not the component's own.
bool is_proxy(IUnknown* object)
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       **reinterpret_cast<wchar_t***>(object), &module);
    return module != GetModuleHandleW(L"TOLVEX.dll");
}

void answers_through_a_proxy()
{
    const Apartment apartment(COINIT_MULTITHREADED);
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr rfc(L"R"), value(L"ñ"), folio(L"antes");
    SHORT rama = 1;
    Variant result(SHORT{7});
    EXPECT_EQ(addenda->SetAddenda(&rfc, &rama, &rama, &value, &result), S_OK);
    EXPECT_EQ(result.vt, VT_EMPTY);

    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    EXPECT_TRUE(is_proxy(docto.Get()));
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_LT(docto->fgObtenFolioFactura(&rfc, &folio, &done), 0);

    Variant caja(L"1"), variable(SHORT{5});
    const Answer answer = invoke(docto.Get(), 10, {reference(VT_VARIANT, &variable), caja});
    EXPECT_EQ(answer.outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.source.str(), L"TOLVEX.GeneraDocto");
    EXPECT_EQ(variable.text(), L"0");
}

// A multithreaded host gets a proxy: arguments by reference and the texts given back cross the apartment.
TEST(MultithreadedHost, is_answered_through_a_proxy) { std::thread(answers_through_a_proxy).join(); }

} // namespace
