// Every parameter of every public method with every kind of wrong argument, late and early: an error, never a
// crash. One argument is wrong at a time, so that no method gets as far as doing anything.
#include "described.hpp"

#include <limits>

namespace {

// A host object without a default value.
struct PlainObject final : IDispatch
{
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** found) override
    {
        *found = id == IID_IUnknown || id == IID_IDispatch ? this : nullptr;
        return *found ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override
    {
        return DISP_E_MEMBERNOTFOUND;
    }
};

PlainObject plain_object;
SAFEARRAY* bytes = nullptr;

VARIANT of_type(VARTYPE type, void* value)
{
    VARIANT made;
    VariantInit(&made);
    made.vt = type;
    made.byref = value;
    return made;
}

VARIANT of_number(double value)
{
    VARIANT made = of_type(VT_R8, nullptr);
    made.dblVal = value;
    return made;
}

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
    static BSTR words = SysAllocString(L"abc");
    VARIANT other_error = of_type(VT_ERROR, nullptr);
    other_error.scode = E_FAIL;
    return {
        {"Null", of_type(VT_NULL, nullptr), 94},
        {"arreglo", of_type(VT_ARRAY | VT_UI1, bytes), 13},
        {"arreglo por referencia", of_type(VT_ARRAY | VT_BYREF | VT_UI1, &bytes), 13},
        {"arreglo nulo", of_type(VT_ARRAY | VT_VARIANT, nullptr), 13},
        {"objeto", of_type(VT_DISPATCH, &plain_object), 13},
        {"objeto sin despacho", of_type(VT_UNKNOWN, static_cast<IUnknown*>(&plain_object)), 13},
        {"Nothing", of_type(VT_DISPATCH, nullptr), 91},
        {"valor de error", other_error, 13},
        {"registro", of_type(VT_RECORD, nullptr), 13},
        {"tipo desconocido", of_type(0x777, nullptr), 13},
        {"referencia nula", of_type(VT_BYREF | VT_BSTR, nullptr), 13},
        {"variante nula", of_type(VT_BYREF | VT_VARIANT, nullptr), 13},
        {"texto que no es número", of_type(VT_BSTR, words), 13, false},
        {"número enorme", of_number(1e300), 6, false, false},
        {"infinito", of_number(std::numeric_limits<double>::infinity()), 6},
        {"no es número", of_number(std::numeric_limits<double>::quiet_NaN()), 6},
    };
}

bool is_wrong_for(const WrongArgument& argument, VARTYPE type)
{
    if (type == VT_BSTR) return argument.for_text;
    if (type == VT_BOOL || type == VT_VARIANT) return argument.for_boolean;
    return true;
}

void calls_late(IDispatch* object, const DescribedClass& described, const DescribedMethod& method)
{
    for (std::size_t wrong = 0; wrong < method.parameters.size(); ++wrong) {
        for (const WrongArgument& kind : wrong_arguments()) {
            if (!is_wrong_for(kind, method.parameters[wrong].type)) continue;
            std::vector<VARIANT> arguments(method.parameters.size(), of_type(VT_EMPTY, nullptr));
            arguments[arguments.size() - 1 - wrong] = kind.value;
            DISPPARAMS call{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
            EXCEPINFO exception{};
            UINT at_fault = 99;
            Variant result;
            const HRESULT outcome = object->Invoke(method.id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                                   &call, &result, &exception, &at_fault);
            const std::string what =
                shown(described.name + L"." + method.name + L"(" + method.parameters[wrong].name + L") ") +
                kind.name + ": " + shown(outcome) + " " + shown(exception.scode);
            expect(outcome == DISP_E_EXCEPTION && exception.scode == run_time_error(kind.error), what,
                   __LINE__);
            SysFreeString(exception.bstrSource);
            SysFreeString(exception.bstrDescription);
        }
    }
}

// Calls the method through its table of functions with a null pointer in one place, the result's included.
void calls_early(IDispatch* object, const DescribedClass& described, const DescribedMethod& method)
{
    const std::size_t pointers = method.parameters.size() + (method.result == VT_EMPTY ? 0 : 1);
    LONGLONG zeros[4] = {};
    for (std::size_t null = 0; null < pointers; ++null) {
        std::vector<VARIANT> values(pointers);
        std::vector<VARIANT*> addresses;
        std::vector<VARTYPE> types(pointers, VT_BYREF | VT_I4);
        for (std::size_t i = 0; i < pointers; ++i) {
            values[i] = of_type(VT_BYREF | VT_I4, i == null ? nullptr : zeros);
            addresses.push_back(&values[i]);
        }
        Variant outcome;
        const HRESULT called =
            DispCallFunc(object, method.offset, CC_STDCALL, VT_ERROR, static_cast<UINT>(pointers),
                         types.data(), addresses.data(), &outcome);
        const std::string what = shown(described.name + L"." + method.name) + " con puntero nulo " +
                                 shown(null) + ": " + shown(outcome.scode);
        expect(called == S_OK && outcome.scode == E_POINTER, what, __LINE__);
    }
}

} // namespace

int main()
{
    const Apartment apartment;
    bytes = SafeArrayCreateVector(VT_UI1, 0, 4);
    for (const DescribedClass& described : described_classes()) {
        const auto dispatch = create<IDispatch>((L"TOLVEX." + described.name).c_str());
        Owned<IDispatch> dual;
        EXPECT_EQ(dispatch->QueryInterface(described.interface_id, reinterpret_cast<void**>(dual.out())),
                  S_OK);
        for (const DescribedMethod& method : described.methods) {
            calls_late(dispatch.get(), described, method);
            calls_early(dual.get(), described, method);
        }
    }
    return end_of_checks();
}
