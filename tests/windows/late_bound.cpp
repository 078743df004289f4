// A host bound late, with what scripts cannot pass: named arguments, references of every kind, broken calls.
#include "checks.hpp"

namespace {

using Ids = std::vector<DISPID>;

void finds_names_in_any_case()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    std::pair<std::vector<const wchar_t*>, Ids> cases[] = {
        {{L"GENERAFACTURAELECTRONICA", L"VLNFACTURA", L"vlGeneraAddenda"}, {4, 0, 4}},
        {{L"GeneraFacturaElectronicaDesdeArchivoPlano", L"prtContraseña", L"PRTCONTRASEÑA"}, {11, 3, 3}},
        {{L"Main", L"ajeno"}, {5, DISPID_UNKNOWN}},
        {{L"ajeno"}, {DISPID_UNKNOWN}},
    };
    for (auto& [names, ids] : cases) {
        Ids found(names.size(), -2);
        const HRESULT outcome =
            docto->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(names.data()),
                                 static_cast<UINT>(names.size()), LOCALE_USER_DEFAULT, found.data());
        EXPECT_EQ(outcome, ids.back() == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK);
        EXPECT(found == ids);
    }
}

// The place of the argument at fault is the one in the call, not in the parameter list.
void names_the_argument_at_fault()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Variant rfc(L"R"), rama(SHORT{1}), wrong(L"abc");
    const Answer answer = invoke(addenda.Get(), 1, {wrong, rama, rfc}, {2, 1});
    EXPECT_EQ(answer.outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.code, run_time_error(13));
    EXPECT_EQ(answer.at_fault, 0u);
    EXPECT_EQ(answer.source.str(), L"TOLVEX.Addenda");
    EXPECT_EQ(answer.description.str(), L"No coinciden los tipos: argumento nPadre");
}

void answers_calls_that_do_not_fit()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Variant v(L"1");
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v}, {2, 1}).outcome, S_OK);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v}, {9, 1}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v}, {-1, 1}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v, v}, {1, 1}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v}, {0}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v}, {2}).outcome, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invoke(addenda.Get(), 1, {}).outcome, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invoke(addenda.Get(), 1, {v, v, v, v, v}).outcome, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(addenda.Get(), 2, {v}).outcome, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(addenda.Get(), 0, {}).outcome, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), 4, {}).outcome, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(addenda.Get(), DISPID_UNKNOWN, {}).outcome, DISP_E_MEMBERNOTFOUND);
}

void answers_broken_calls()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Variant value(L"1");
    DISPPARAMS none{}, without_values{nullptr, nullptr, 3, 0}, more_names{&value, nullptr, 1, 2};
    const auto call = [&](DISPID id, REFIID reserved, int kind, DISPPARAMS* arguments) {
        return addenda->Invoke(id, reserved, 0, static_cast<WORD>(kind), arguments, nullptr, nullptr,
                               nullptr);
    };
    EXPECT_EQ(call(2, IID_IDispatch, DISPATCH_METHOD, &none), DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(call(2, IID_NULL, DISPATCH_PROPERTYGET, &none), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(call(2, IID_NULL, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none), S_OK);
    EXPECT_EQ(call(2, IID_NULL, DISPATCH_METHOD, nullptr), E_POINTER);
    EXPECT_EQ(call(1, IID_NULL, DISPATCH_METHOD, &without_values), E_POINTER);
    EXPECT_EQ(call(1, IID_NULL, DISPATCH_METHOD, &more_names), E_INVALIDARG);
    EXPECT_EQ(addenda->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
    EXPECT_EQ(addenda->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(addenda->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

// FolioFactura is given back also when the call fails, as it does here without a connection.
void gives_texts_back_into_the_hosts_variables()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    constexpr DISPID fgObtenFolioFactura = 10;
    Bstr text(L"texto de antes"), inner(L"antes");
    Variant caja(L"1"), by_value(SHORT{7});
    VARIANT variable = reference(VT_BSTR, &inner);
    LONG typed = 7;
    for (VARIANT folio : {reference(VT_BSTR, &text), reference(VT_VARIANT, &variable), VARIANT(by_value)})
        EXPECT_EQ(invoke(docto.Get(), fgObtenFolioFactura, {folio, caja}).outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(text.str(), L"0");
    EXPECT_EQ(inner.str(), L"0");
    EXPECT_EQ(by_value.vt, VT_I2);

    // A typed variable that no text fits in is refused before anything is done.
    const Answer refused = invoke(docto.Get(), fgObtenFolioFactura, {reference(VT_I4, &typed), caja});
    EXPECT_EQ(refused.description.str(), L"No coinciden los tipos: argumento FolioFactura");
    EXPECT_EQ(typed, 7);
}

void leaves_the_description_of_a_trapped_error()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    constexpr DISPID BorraFacturaElectronica = 9;
    Variant one(SHORT{1}), folio(L"1");
    const Answer answer = invoke(docto.Get(), BorraFacturaElectronica, {folio, one, one});
    EXPECT_EQ(answer.outcome, S_OK);
    EXPECT(answer.result.vt == VT_BOOL && answer.result.boolVal == VARIANT_FALSE);
    EXPECT(!error_information().description.str().empty());
}

void reads_references_of_every_type()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Bstr rfc(L"R"), text(L"1");
    Variant rama(L"3");
    short i2 = 1;
    LONG i4 = 1;
    double r8 = 1;
    CY cy{};
    cy.int64 = 10000;
    DECIMAL decimal{};
    decimal.Lo64 = 1;
    for (VARIANT padre : {reference(VT_I2, &i2), reference(VT_I4, &i4), reference(VT_R8, &r8),
                          reference(VT_CY, &cy), reference(VT_BSTR, &text), reference(VT_DECIMAL, &decimal)})
        EXPECT_EQ(
            invoke(addenda.Get(), 1, {padre, reference(VT_VARIANT, &rama), reference(VT_BSTR, &rfc)}).outcome,
            S_OK);
    IDispatch* nothing = nullptr;
    EXPECT_EQ(
        invoke(addenda.Get(), 1, {reference(VT_DISPATCH, &nothing), rama, reference(VT_BSTR, &rfc)}).code,
        run_time_error(91));
    EXPECT_EQ(rama.vt, VT_BSTR); // only a parameter that gives something back changes the host's variable
}

} // namespace

int main()
{
    const Apartment apartment;
    finds_names_in_any_case();
    names_the_argument_at_fault();
    answers_calls_that_do_not_fit();
    answers_broken_calls();
    gives_texts_back_into_the_hosts_variables();
    leaves_the_description_of_a_trapped_error();
    reads_references_of_every_type();
    return end_of_checks();
}
