// Parameters of every type with every kind of wrong argument: an error, never a crash. One argument is wrong
// at a time, so that no method gets as far as doing anything.
#include "client.hpp"

#include <gtest/gtest.h>

#include <limits>

namespace {

struct WrongArgument
{
    const char* name;
    VARIANT value;
    int error;               // the number it gives
    bool for_text = true;    // wrong for a text too
    bool for_boolean = true; // and for a Boolean, or a variant that is read as one
};

VARIANT decimal_with_too_many_places()
{
    VARIANT made = of_type(VT_DECIMAL, nullptr);
    made.decVal.Lo64 = 1;
    made.decVal.scale = 253;
    return made;
}

std::vector<WrongArgument> wrong_arguments()
{
    static const auto object = create<IDispatch>(L"TOLVEX.Addenda"); // has no default value
    static ComPtr<ICreateErrorInfo> without_dispatch;
    if (!without_dispatch) CreateErrorInfo(without_dispatch.GetAddressOf());
    static SAFEARRAY* bytes = SafeArrayCreateVector(VT_UI1, 0, 4);
    static const Variant words(L"abc");
    static VARIANT loop = reference(VT_VARIANT, &loop);
    static VARIANT nowhere = reference(VT_I2, nullptr), to_nowhere = reference(VT_VARIANT, &nowhere);
    return {
        {"Null", of_type(VT_NULL, nullptr), 94},
        {"arreglo", of_type(VT_ARRAY | VT_UI1, bytes), 13},
        {"arreglo por referencia", reference(VT_ARRAY | VT_UI1, &bytes), 13},
        {"arreglo nulo", of_type(VT_ARRAY | VT_VARIANT, nullptr), 13},
        {"objeto", of_type(VT_DISPATCH, object.Get()), 13},
        {"objeto sin despacho", of_type(VT_UNKNOWN, without_dispatch.Get()), 13},
        {"Nothing", of_type(VT_DISPATCH, nullptr), 91},
        {"valor de error", of_type(VT_ERROR, nullptr), 13},
        {"registro", of_type(VT_RECORD, nullptr), 13},
        {"tipo desconocido", of_type(0x777, nullptr), 13},
        {"tipo desconocido por referencia", reference(0x123, nullptr), 13},
        {"texto nulo por referencia", reference(VT_BSTR, nullptr), 13},
        {"entero nulo por referencia", reference(VT_I2, nullptr), 13},
        {"decimal nulo por referencia", reference(VT_DECIMAL, nullptr), 13},
        {"decimal con demasiadas posiciones", decimal_with_too_many_places(), 13},
        {"variante nula", reference(VT_VARIANT, nullptr), 13},
        {"variante que se contiene", loop, 13},
        {"entero nulo detrás de dos variantes", reference(VT_VARIANT, &to_nowhere), 13},
        {"texto que no es número", words, 13, false},
        {"número enorme", Variant(1e300), 6, false, false},
        {"infinito", Variant(std::numeric_limits<double>::infinity()), 6},
        {"no es número", Variant(std::numeric_limits<double>::quiet_NaN()), 6},
    };
}

// Where a parameter of a type stands.
struct Place
{
    VARTYPE type;
    const wchar_t* class_name;
    DISPID method;
    std::size_t parameters, place;
};

constexpr Place places[] = {
    {VT_BSTR, L"TOLVEX.Cliente", 1, 26, 0},    {VT_I2, L"TOLVEX.Cliente", 1, 26, 15},
    {VT_DATE, L"TOLVEX.Cliente", 1, 26, 17},   {VT_CY, L"TOLVEX.Cliente", 1, 26, 19},
    {VT_BOOL, L"TOLVEX.GeneraDocto", 4, 5, 1}, {VT_VARIANT, L"TOLVEX.GeneraDocto", 6, 7, 5},
    {VT_I4, L"TOLVEX.Addenda", 3, 5, 0}};

bool is_wrong_for(const WrongArgument& argument, VARTYPE type)
{
    if (type == VT_BSTR) return argument.for_text;
    if (type == VT_BOOL || type == VT_VARIANT) return argument.for_boolean;
    return true;
}

TEST(WrongArguments, are_an_error_for_every_type_of_parameter)
{
    const Apartment apartment;
    for (const Place& place : places) {
        const auto object = create<IDispatch>(place.class_name);
        for (const WrongArgument& wrong : wrong_arguments()) {
            if (!is_wrong_for(wrong, place.type)) continue;
            std::vector<VARIANT> arguments(place.parameters, of_type(VT_EMPTY, nullptr));
            arguments[place.parameters - 1 - place.place] = wrong.value;
            const Answer answer = invoke(object.Get(), place.method, arguments);
            EXPECT_EQ(answer.outcome, DISP_E_EXCEPTION);
            EXPECT_EQ(answer.code, run_time_error(wrong.error)) << wrong.name << " for type " << place.type;
        }
    }
}

} // namespace
