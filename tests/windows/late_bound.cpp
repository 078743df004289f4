// A host bound late, with what scripts cannot pass: named arguments, references of every kind, broken
// arguments.
#include "checks.hpp"

#include <limits>
#include <vector>

namespace {

struct Answer
{
    HRESULT outcome = S_OK;
    HRESULT code = S_OK; // of the exception record
    UINT at_fault = 99;
    std::wstring source, description;
    Variant result;
};

Answer invoke(IDispatch* object, DISPID id, std::vector<VARIANT> arguments_last_first,
              std::vector<DISPID> named = {})
{
    Answer answer;
    DISPPARAMS call{arguments_last_first.data(), named.data(), static_cast<UINT>(arguments_last_first.size()),
                    static_cast<UINT>(named.size())};
    EXCEPINFO exception{};
    answer.outcome = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, &answer.result,
                                    &exception, &answer.at_fault);
    answer.code = exception.scode;
    if (exception.bstrSource) answer.source = exception.bstrSource;
    if (exception.bstrDescription) answer.description = exception.bstrDescription;
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    return answer;
}

std::vector<DISPID> ids(IDispatch* object, std::vector<const wchar_t*> names, HRESULT expected = S_OK)
{
    std::vector<DISPID> found(names.size(), -2);
    EXPECT_EQ(object->GetIDsOfNames(IID_NULL, const_cast<LPOLESTR*>(names.data()),
                                    static_cast<UINT>(names.size()), LOCALE_USER_DEFAULT, found.data()),
              expected);
    return found;
}

VARIANT reference_to(VARIANT& variable)
{
    VARIANT reference;
    VariantInit(&reference);
    reference.vt = VT_BYREF | VT_VARIANT;
    reference.pvarVal = &variable;
    return reference;
}

VARIANT reference(int type, void* variable)
{
    VARIANT made;
    VariantInit(&made);
    made.vt = static_cast<VARTYPE>(VT_BYREF | type);
    made.byref = variable;
    return made;
}

void finds_names_in_any_case()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    EXPECT(ids(docto.get(), {L"GENERAFACTURAELECTRONICA", L"VLNFACTURA", L"vlGeneraAddenda"}) ==
           (std::vector<DISPID>{4, 0, 4}));
    EXPECT(ids(docto.get(), {L"GeneraFacturaElectronicaDesdeArchivoPlano", L"prtContraseña",
                             L"PRTCONTRASEÑA"}) == (std::vector<DISPID>{11, 3, 3}));
    EXPECT(ids(docto.get(), {L"Main", L"ajeno"}, DISP_E_UNKNOWNNAME) ==
           (std::vector<DISPID>{5, DISPID_UNKNOWN}));
    EXPECT(ids(docto.get(), {L"ajeno"}, DISP_E_UNKNOWNNAME) == (std::vector<DISPID>{DISPID_UNKNOWN}));
}

void takes_named_arguments()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    const auto named = ids(addenda.get(), {L"SetAddenda", L"nPadre", L"nRama"});
    Variant rfc(L"R"), rama(SHORT{1}), padre(SHORT{2}), wrong(L"abc");
    EXPECT_EQ(invoke(addenda.get(), named[0], {padre, rama, rfc}, {named[1], named[2]}).outcome, S_OK);

    // The place of the argument at fault is the one in the call, not in the parameter list.
    const Answer answer = invoke(addenda.get(), named[0], {wrong, rama, rfc}, {named[1], named[2]});
    EXPECT_EQ(answer.outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(answer.code, run_time_error(13));
    EXPECT_EQ(answer.at_fault, 0u);
    EXPECT_EQ(answer.source, L"TOLVEX.Addenda");
    EXPECT_EQ(answer.description, L"No coinciden los tipos: argumento nPadre");

    EXPECT_EQ(invoke(addenda.get(), 1, {padre, rama, rfc}, {9, named[2]}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 1, {padre, rama, rfc}, {-1, named[2]}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 1, {padre, rama, rfc, rfc}, {named[2], named[2]}).outcome,
              DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 1, {padre, rfc, rfc}, {0}).outcome, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 1, {rfc}, {named[1]}).outcome, DISP_E_PARAMNOTOPTIONAL);
}

void tells_broken_calls()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Variant value(L"1");
    EXPECT_EQ(invoke(addenda.get(), 0, {}).outcome, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 4, {}).outcome, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), DISPID_UNKNOWN, {}).outcome, DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(invoke(addenda.get(), 1, {value, value, value, value, value}).outcome, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(addenda.get(), 2, {value}).outcome, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(invoke(addenda.get(), 1, {}).outcome, DISP_E_PARAMNOTOPTIONAL);

    DISPPARAMS none{}, without_values{nullptr, nullptr, 3, 0}, more_names{&value, nullptr, 1, 2};
    EXPECT_EQ(addenda->Invoke(2, IID_IDispatch, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
              DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(addenda->Invoke(2, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(addenda->Invoke(2, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(addenda->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &without_values, nullptr, nullptr, nullptr),
              E_POINTER);
    EXPECT_EQ(addenda->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, &more_names, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(addenda->Invoke(2, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, nullptr, nullptr,
                              nullptr),
              S_OK);
    EXPECT_EQ(addenda->GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_POINTER);
    EXPECT_EQ(addenda->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(addenda->GetTypeInfo(0, 0, nullptr), E_POINTER);
}

// FolioFactura is given back also when the call fails, as it does here without a connection.
void gives_texts_back_into_the_hosts_variables()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    const DISPID id = ids(docto.get(), {L"fgObtenFolioFactura"})[0];
    Variant caja(L"1");

    Variant number(SHORT{7});
    EXPECT_EQ(invoke(docto.get(), id, {reference_to(number), caja}).outcome, DISP_E_EXCEPTION);
    EXPECT_EQ(number.vt, VT_BSTR);
    EXPECT_EQ(std::wstring(number.bstrVal), L"0");

    Bstr text(L"texto de antes");
    invoke(docto.get(), id, {reference(VT_BSTR, &text), caja});
    EXPECT_EQ(text.str(), L"0");

    Bstr inner(L"antes");
    Variant variable;
    variable.vt = VT_BYREF | VT_BSTR;
    variable.pbstrVal = &inner;
    invoke(docto.get(), id, {reference_to(variable), caja});
    EXPECT_EQ(inner.str(), L"0");

    Variant empty;
    invoke(docto.get(), id, {reference_to(empty), caja});
    EXPECT_EQ(empty.vt, VT_BSTR);

    Variant by_value(SHORT{7});
    invoke(docto.get(), id, {by_value, caja});
    EXPECT_EQ(by_value.vt, VT_I2);

    // A typed variable that no text fits in is refused before anything is done.
    LONG typed = 7;
    const Answer refused = invoke(docto.get(), id, {reference(VT_I4, &typed), caja});
    EXPECT_EQ(refused.code, run_time_error(13));
    EXPECT_EQ(refused.description, L"No coinciden los tipos: argumento FolioFactura");
    EXPECT_EQ(typed, 7);
}

void leaves_the_description_of_a_trapped_error()
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto");
    const DISPID id = ids(docto.get(), {L"BorraFacturaElectronica"})[0];
    Variant one(SHORT{1}), folio(L"1");
    const Answer answer = invoke(docto.get(), id, {folio, one, one});
    EXPECT_EQ(answer.outcome, S_OK);
    EXPECT_EQ(answer.result.vt, VT_BOOL);
    EXPECT_EQ(answer.result.boolVal, VARIANT_FALSE);
    const ErrorInformation trapped = error_information();
    EXPECT_EQ(trapped.source, L"TOLVEX.GeneraDocto");
    EXPECT(!trapped.description.empty());
}

void reads_references_of_every_type()
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    Bstr rfc(L"R");
    Variant rama(L"3"), number(SHORT{1});
    short i2 = 1;
    LONG i4 = 1;
    double r8 = 1;
    CY cy{};
    cy.int64 = 10000;
    Bstr text(L"1");
    DECIMAL decimal{};
    decimal.Lo64 = 1;
    IDispatch* no_object = nullptr;
    for (VARIANT padre : {reference(VT_I2, &i2), reference(VT_I4, &i4), reference(VT_R8, &r8),
                          reference(VT_CY, &cy), reference(VT_BSTR, &text), reference(VT_DECIMAL, &decimal)})
        EXPECT_EQ(invoke(addenda.get(), 1, {padre, reference_to(rama), reference(VT_BSTR, &rfc)}).outcome,
                  S_OK);
    EXPECT_EQ(rama.vt, VT_BSTR); // only a parameter that gives something back changes the host's variable

    for (const int type :
         std::vector<int>{VT_I2, VT_BSTR, VT_VARIANT, VT_DISPATCH, VT_DECIMAL, VT_RECORD, 0x123})
        EXPECT_EQ(invoke(addenda.get(), 1, {reference(type, nullptr), number, reference(VT_BSTR, &rfc)}).code,
                  run_time_error(13));
    EXPECT_EQ(
        invoke(addenda.get(), 1, {reference(VT_DISPATCH, &no_object), number, reference(VT_BSTR, &rfc)}).code,
        run_time_error(91));
    Variant loop;
    loop.vt = VT_BYREF | VT_VARIANT;
    loop.pvarVal = &loop;
    EXPECT_EQ(invoke(addenda.get(), 1, {loop, number, reference(VT_BSTR, &rfc)}).code, run_time_error(13));
}

} // namespace

int main()
{
    const Apartment apartment;
    finds_names_in_any_case();
    takes_named_arguments();
    tells_broken_calls();
    gives_texts_back_into_the_hosts_variables();
    leaves_the_description_of_a_trapped_error();
    reads_references_of_every_type();
    return end_of_checks();
}
