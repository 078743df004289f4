// Every parameter of every public method with every kind of wrong argument, late and
// early: an error, never a crash. One argument is wrong at a time, so that no method gets as far as doing
// anything.
#include "surface.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

struct WrongArgument
{
    const char* name;
    VARIANT value;
    int error;               // the number it gives
    bool for_text = true;    // wrong for a text too
    bool for_boolean = true; // and for a Boolean, or a variant that is read as one
};

std::vector<WrongArgument> wrong_arguments()
{
    static const auto object = create<IDispatch>(L"TOLVEX.Addenda"); // has no default value
    static ComPtr<ICreateErrorInfo> without_dispatch;
    if (!without_dispatch) CreateErrorInfo(without_dispatch.GetAddressOf());
    static SAFEARRAY* bytes = SafeArrayCreateVector(VT_UI1, 0, 4);
    static const Variant words(L"abc");
    static VARIANT loop = reference(VT_VARIANT, &loop);
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
        {"variante nula", reference(VT_VARIANT, nullptr), 13},
        {"variante que se contiene", loop, 13},
        {"texto que no es número", words, 13, false},
        {"número enorme", Variant(1e300), 6, false, false},
        {"infinito", Variant(std::numeric_limits<double>::infinity()), 6},
        {"no es número", Variant(std::numeric_limits<double>::quiet_NaN()), 6},
    };
}

bool is_wrong_for(const WrongArgument& argument, const std::string& type)
{
    if (type == "text") return argument.for_text;
    if (type == "Boolean" || type == "variant") return argument.for_boolean;
    return true;
}

struct Method
{
    std::string name; // with its class
    DISPID id;
    std::vector<std::string> types;
    bool has_result;
};

Method method_of(const std::string& line, DISPID id)
{
    const auto open = line.find('('), close = line.rfind(')');
    Method method{line.substr(0, open), id, {}, line.substr(close) != ") none"};
    std::istringstream parameters(line.substr(open + 1, close - open - 1));
    for (std::string parameter; std::getline(parameters >> std::ws, parameter, ',');) {
        std::string name, type;
        std::istringstream(parameter) >> name >> type;
        method.types.push_back(type);
    }
    return method;
}

void calls_late(IDispatch* object, const Method& method)
{
    for (std::size_t wrong = 0; wrong < method.types.size(); ++wrong) {
        for (const WrongArgument& kind : wrong_arguments()) {
            if (!is_wrong_for(kind, method.types[wrong])) continue;
            std::vector<VARIANT> arguments(method.types.size(), of_type(VT_EMPTY, nullptr));
            arguments[arguments.size() - 1 - wrong] = kind.value;
            const Answer answer = invoke(object, method.id, arguments);
            EXPECT_EQ(answer.outcome, DISP_E_EXCEPTION);
            EXPECT_EQ(answer.code, run_time_error(kind.error))
                << method.name << ", argument " << wrong << ": " << kind.name;
        }
    }
}

// Calls the method through its table of functions with a null pointer in one place, the result's included.
void calls_early(IDispatch* object, const Method& method)
{
    const std::size_t pointers = method.types.size() + method.has_result;
    const ULONG_PTR offset = (methods_of_dispatch + static_cast<ULONG_PTR>(method.id) - 1) * sizeof(void*);
    LONGLONG zeros[4] = {};
    for (std::size_t null = 0; null < pointers; ++null) {
        std::vector<VARIANT> values(pointers, reference(VT_I4, zeros));
        std::vector<VARIANT*> addresses;
        std::vector<VARTYPE> types(pointers, VT_BYREF | VT_I4);
        values[null].byref = nullptr;
        for (VARIANT& value : values) addresses.push_back(&value);
        Variant outcome;
        const HRESULT called = DispCallFunc(object, offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(pointers),
                                            types.data(), addresses.data(), &outcome);
        EXPECT_EQ(called, S_OK);
        EXPECT_EQ(outcome.scode, E_POINTER) << method.name << ", null pointer " << null;
    }
}

ComPtr<IDispatch> dual_interface_of(IDispatch* object)
{
    ComPtr<ITypeInfo> type;
    ComPtr<IDispatch> dual;
    TYPEATTR* attributes = nullptr;
    object->GetTypeInfo(0, LOCALE_NEUTRAL, type.GetAddressOf());
    type->GetTypeAttr(&attributes);
    EXPECT_EQ(object->QueryInterface(attributes->guid, reinterpret_cast<void**>(dual.GetAddressOf())), S_OK);
    type->ReleaseTypeAttr(attributes);
    return dual;
}

TEST(WrongArguments, are_an_error_in_every_place_of_every_method)
{
    const Apartment apartment;
    std::string last_class;
    DISPID id = 0;
    for (const std::string& line : surface_lines()) {
        const std::string class_name = line.substr(0, line.find('.'));
        id = class_name == last_class ? id + 1 : 1;
        last_class = class_name;
        const auto object =
            create<IDispatch>((L"TOLVEX." + std::wstring(class_name.begin(), class_name.end())).c_str());
        const Method method = method_of(line, id);
        calls_late(object.Get(), method);
        calls_early(dual_interface_of(object.Get()).Get(), method);
    }
}

} // namespace
