// A host bound late, as scripts are, and with what they cannot pass: named arguments, references of every
// kind, broken calls.
#include "client.hpp"

#include <gtest/gtest.h>
#include <olectl.h>

namespace {

class LateBound : public ::testing::Test
{
    const Apartment apartment_;
};

using Ids = std::vector<DISPID>;

TEST_F(LateBound, finds_names_in_any_case)
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
        EXPECT_EQ(found, ids);
    }
}

// The place of the argument at fault is the one in the call, not in the parameter list.
TEST_F(LateBound, names_the_argument_at_fault)
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

TEST_F(LateBound, answers_calls_that_do_not_fit)
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda");
    const Variant v(L"1");
    VARIANT omitted = of_type(VT_ERROR, nullptr);
    omitted.scode = DISP_E_PARAMNOTFOUND;
    struct Case
    {
        DISPID id;
        std::vector<VARIANT> arguments_last_first;
        Ids named;
        HRESULT outcome;
    };
    for (const auto& [id, arguments, named, outcome] :
         std::initializer_list<Case>{{1, {v, v, v}, {2, 1}, S_OK},
                                     {1, {omitted, v, v, v}, {}, S_OK},
                                     {1, {v, v, v}, {9, 1}, DISP_E_PARAMNOTFOUND},
                                     {1, {v, v, v}, {-1, 1}, DISP_E_PARAMNOTFOUND},
                                     {1, {v, v, v, v}, {1, 1}, DISP_E_PARAMNOTFOUND},
                                     {1, {v, v, v}, {0}, DISP_E_PARAMNOTFOUND},
                                     {1, {v, omitted, v}, {}, DISP_E_PARAMNOTOPTIONAL},
                                     {1, {v}, {2}, DISP_E_PARAMNOTOPTIONAL},
                                     {1, {}, {}, DISP_E_PARAMNOTOPTIONAL},
                                     {1, {v, v, v, v, v}, {}, DISP_E_BADPARAMCOUNT},
                                     {2, {v}, {}, DISP_E_BADPARAMCOUNT},
                                     {0, {}, {}, DISP_E_MEMBERNOTFOUND},
                                     {4, {}, {}, DISP_E_MEMBERNOTFOUND},
                                     {DISPID_UNKNOWN, {}, {}, DISP_E_MEMBERNOTFOUND}})
        EXPECT_EQ(invoke(addenda.Get(), id, arguments, named).outcome, outcome)
            << "method " << id << ", " << arguments.size() << " arguments";
}

TEST_F(LateBound, answers_with_the_type_of_the_method)
{
    const auto docto = create<IDispatch>(L"TOLVEX.GeneraDocto"),
               addenda = create<IDispatch>(L"TOLVEX.Addenda"),
               connection = create<IDispatch>(L"TOLVEX.ConfigFE");
    EXPECT_EQ(invoke(docto.Get(), 5, {}).result.vt, VT_EMPTY);   // Main has no result
    EXPECT_EQ(invoke(addenda.Get(), 2, {}).result.vt, VT_EMPTY); // InicializaAddenda puts nothing in its own
    const Answer closed = invoke(connection.Get(), 3, {});
    EXPECT_EQ(closed.result.vt, VT_BOOL);
    EXPECT_EQ(closed.result.boolVal, VARIANT_TRUE);
}

TEST_F(LateBound, hands_the_drivers_number_and_words_to_the_host)
{
    const auto connection = create<IDispatch>(L"TOLVEX.ConfigFE");
    const Variant none(L""), file(L"Z:\\no existe\\otra.db"), server(L"sqlite:");
    EXPECT_EQ(invoke(connection.Get(), 2, {server, file, none, none}).outcome, S_OK);
    const Answer refused = invoke(connection.Get(), 1, {});
    EXPECT_EQ(refused.code, E_FAIL);
    EXPECT_EQ(refused.source.str(), L"TOLVEX.ConfigFE");
    EXPECT_NE(refused.description.str().find(L"otra.db"), std::wstring::npos);
}

TEST_F(LateBound, answers_broken_calls)
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
TEST_F(LateBound, gives_texts_back_into_the_hosts_variables)
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

// As scripts have them, with a default property: a font's is its name.
ComPtr<IDispatch> object_with_default_value()
{
    wchar_t name[] = L"Arial";
    FONTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.lpstrName = name;
    ComPtr<IDispatch> font;
    OleCreateFontIndirect(&description, IID_PPV_ARGS(&font));
    return font;
}

TEST_F(LateBound, reads_values_and_references_of_every_type)
{
    const auto addenda = create<IDispatch>(L"TOLVEX.Addenda"), named = object_with_default_value();
    Bstr rfc(L"R"), text(L"1");
    Variant rama(L"3"), fraction(1.5);
    short i2 = 1;
    LONG i4 = 1;
    double r8 = 1;
    CY cy{};
    cy.int64 = 10000;
    DECIMAL decimal{};
    decimal.Lo64 = 1;
    VARIANT yes = of_type(VT_BOOL, nullptr);
    yes.boolVal = VARIANT_TRUE;
    for (VARIANT padre : {VARIANT(rama), VARIANT(fraction), yes, of_type(VT_EMPTY, nullptr),
                          reference(VT_I2, &i2), reference(VT_I4, &i4), reference(VT_R8, &r8),
                          reference(VT_CY, &cy), reference(VT_BSTR, &text), reference(VT_DECIMAL, &decimal)})
        for (VARIANT receiver : {reference(VT_BSTR, &rfc), of_type(VT_DISPATCH, named.Get()), padre})
            EXPECT_EQ(invoke(addenda.Get(), 1, {padre, reference(VT_VARIANT, &rama), receiver}).outcome, S_OK)
                << padre.vt << ' ' << receiver.vt;
    IDispatch* nothing = nullptr;
    EXPECT_EQ(
        invoke(addenda.Get(), 1, {reference(VT_DISPATCH, &nothing), rama, reference(VT_BSTR, &rfc)}).code,
        run_time_error(91));
    EXPECT_EQ(rama.vt, VT_BSTR); // only a parameter that gives something back changes the host's variable
}

} // namespace
