// A host bound early, through the interfaces of the type library.
#include "checks.hpp"

namespace {

void stores_and_answers_empty()
{
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr rfc(L"ABC010101AAA"), value(L"ñandú");
    SHORT rama = 3, padre = 1;
    LONG renglon = 2;
    Variant result(L"basura de antes");
    VariantClear(&result);
    EXPECT_EQ(addenda->SetAddenda(&rfc, &rama, &padre, &value, &result), S_OK);
    EXPECT_EQ(result.vt, VT_EMPTY);
    EXPECT_EQ(addenda->SetAddendaDet(&renglon, &rfc, &rama, &padre, &value, &result), S_OK);
    EXPECT_EQ(addenda->InicializaAddenda(&result), S_OK);
    EXPECT_EQ(rfc.str(), L"ABC010101AAA");
}

// A text pointer without a text is the empty text.
void takes_a_null_text_as_empty()
{
    const auto addenda = create<TOLVEX::_Addenda>(L"TOLVEX.Addenda");
    Bstr none;
    SHORT rama = 1, padre = 1;
    Variant result;
    EXPECT_EQ(addenda->SetAddenda(&none, &rama, &padre, &none, &result), S_OK);
    EXPECT(none.str().empty());
}

void raises_errors_with_information()
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    const auto fe = create<TOLVEX::_ConfigFE>(L"TOLVEX.ConfigFE");
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(fe->CierraConexion(&done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);

    // Not trapped: an error reaches the host, with the text already given back.
    Bstr caja(L"1"), folio(L"basura");
    const HRESULT outcome = docto->fgObtenFolioFactura(&caja, &folio, &done);
    const ErrorInformation raised = error_information();
    EXPECT(FAILED(outcome));
    EXPECT_EQ(done, VARIANT_FALSE);
    EXPECT_EQ(folio.str(), L"0");
    EXPECT(raised.given);
    EXPECT_EQ(raised.source, L"TOLVEX.GeneraDocto");
    EXPECT(!raised.description.empty());
    EXPECT(raised.interface_id == __uuidof(TOLVEX::_GeneraDocto));
}

void leaves_the_description_of_a_trapped_error()
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Bstr folio(L"1");
    SHORT one = 1;
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_EQ(docto->BorraFacturaElectronica(&one, &one, &folio, &done), S_OK);
    EXPECT_EQ(done, VARIANT_FALSE);
    const ErrorInformation trapped = error_information();
    EXPECT(trapped.given);
    EXPECT_EQ(trapped.source, L"TOLVEX.GeneraDocto");
    EXPECT(!trapped.description.empty());

    // The next call starts without it.
    docto->BorraFacturaElectronica(&one, &one, &folio, &done);
    EXPECT_EQ(docto->Main(), S_OK);
    EXPECT(!error_information().given);
}

void says_that_it_gives_error_information()
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    Owned<ISupportErrorInfo> support;
    EXPECT_EQ(docto->QueryInterface(IID_ISupportErrorInfo, reinterpret_cast<void**>(support.out())), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(TOLVEX::_GeneraDocto)), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(TOLVEX::_Cliente)), S_FALSE);

    Owned<IUnknown> identity, other_identity;
    docto->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(identity.out()));
    support->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(other_identity.out()));
    EXPECT(identity.get() == other_identity.get());
    void* none = &none;
    EXPECT_EQ(docto->QueryInterface(__uuidof(TOLVEX::_Cliente), &none), E_NOINTERFACE);
    EXPECT(none == nullptr);
}

void refuses_values_out_of_range()
{
    const auto docto = create<TOLVEX::_GeneraDocto>(L"TOLVEX.GeneraDocto");
    const auto cliente = create<TOLVEX::_Cliente>(L"TOLVEX.Cliente");
    Bstr text(L"x");
    SHORT one = 1;
    CY amount{};
    Variant result;
    for (DATE date : {1e300, -1e300, 0.0 / 0.0 * -1.0}) {
        const HRESULT outcome = cliente->SetDatosClientes(
            &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text, &text,
            &text, &one, &text, &date, &text, &amount, &amount, &text, &amount, &text, &text, &text, &result);
        EXPECT_EQ(outcome, run_time_error(6));
        EXPECT_EQ(error_information().source, L"TOLVEX.Cliente");
    }
}

} // namespace

int main()
{
    const Apartment apartment;
    stores_and_answers_empty();
    takes_a_null_text_as_empty();
    raises_errors_with_information();
    leaves_the_description_of_a_trapped_error();
    says_that_it_gives_error_information();
    refuses_values_out_of_range();
    return end_of_checks();
}
