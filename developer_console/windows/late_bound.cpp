#include "developer_console/windows/late_bound.hpp"

#include "core/dates.hpp"
#include "core/numbers.hpp"
#include "platform/clock.hpp"

#include <algorithm>

namespace tolvex::developer_console {

namespace {

Variant of_date(const Text& typed)
{
    Variant date;
    date.date = (typed.empty() ? local_now() : to_date(typed)).days;
    date.vt = VT_DATE;
    return date;
}

// As a script would pass it: a whole number that has room is one, any other a double.
Variant of_number(const Text& digits)
{
    const double number = to_number(digits);
    const auto whole = static_cast<LONG>(std::clamp(number, -2147483647.0, 2147483647.0));
    if (whole == number) return Variant(whole);
    Variant made;
    made.dblVal = number;
    made.vt = VT_R8;
    return made;
}

Variant value_of(const Argument& argument)
{
    switch (argument.kind) {
    case Argument::Kind::number:
        return of_number(argument.value);
    case Argument::Kind::boolean:
        return Variant(argument.value == u"True");
    case Argument::Kind::date:
        return of_date(argument.value);
    default:
        return Variant(argument.value);
    }
}

// Null is an empty text.
Text text_of(BSTR text) { return text ? from_wide(text) : Text(); }

Text text_of(const VARIANT& value)
{
    if (value.vt == VT_BOOL) return value.boolVal ? u"True" : u"False";
    return value.vt == VT_BSTR ? text_of(value.bstrVal) : Text();
}

// What the component left as error information: a C++ or .NET host reads it, a script cannot.
Text error_information()
{
    ComPtr<IErrorInfo> information;
    BSTR description = nullptr;
    if (GetErrorInfo(0, &information) == S_OK) information->GetDescription(&description);
    const Text words = text_of(description);
    SysFreeString(description);
    return words;
}

// What a raised error says; frees it.
Text words_of(EXCEPINFO& raised, HRESULT failure)
{
    const Text words = raised.bstrDescription ? text_of(raised.bstrDescription)
                                              : system_message(static_cast<DWORD>(failure));
    for (const BSTR text : {raised.bstrDescription, raised.bstrSource, raised.bstrHelpFile})
        SysFreeString(text);
    return words;
}

// Arguments in the order in which IDispatch takes them, the last one first; the variable by reference.
struct Passed
{
    explicit Passed(const Call& call)
    {
        for (auto argument = call.arguments.rbegin(); argument != call.arguments.rend(); ++argument) {
            values.push_back(value_of(*argument));
            if (argument->kind == Argument::Kind::variable) refer_to_variable();
        }
        parameters.rgvarg = values.data();
        parameters.cArgs = static_cast<UINT>(values.size());
    }

    void refer_to_variable()
    {
        variable = std::move(values.back());
        values.back().vt = VT_VARIANT | VT_BYREF;
        values.back().pvarVal = &variable;
    }

    std::vector<Variant> values;
    Variant variable;
    DISPPARAMS parameters{};
};

Outcome invoke(IDispatch& object, const Call& call)
{
    Text name(call.method);
    LPOLESTR names[] = {wide(name)};
    DISPID id = 0;
    check(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), u"GetIDsOfNames");

    Passed passed(call);
    Variant result;
    EXCEPINFO raised{};
    SetErrorInfo(0, nullptr);
    const HRESULT failure = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                          &passed.parameters, &result, &raised, nullptr);
    Outcome outcome;
    outcome.raised = FAILED(failure);
    outcome.error = outcome.raised ? words_of(raised, failure) : error_information();
    outcome.result = text_of(result);
    outcome.variable = text_of(passed.variable);
    return outcome;
}

} // namespace

Outcome LateBoundComponent::call(const Call& call)
try {
    return invoke(object_of(call.class_name), call);
} catch (const std::exception& error) {
    Outcome outcome;
    outcome.raised = true;
    outcome.error = tolvex::words_of(error);
    return outcome;
}

IDispatch& LateBoundComponent::object_of(TextView class_name)
{
    ComPtr<IDispatch>& object = objects_[class_name];
    if (object) return *object.Get();
    const Text id = u"TOLVEX." + Text(class_name);
    CLSID class_id{};
    HRESULT failure = CLSIDFromProgID(wide(id), &class_id);
    if (SUCCEEDED(failure))
        failure = CoCreateInstance(class_id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&object));
    if (FAILED(failure))
        throw Error(failure,
                    u"No se pudo crear " + id + u" (" + system_message(static_cast<DWORD>(failure)) +
                        u"). Registre el TOLVEX.dll de los mismos bits que esta consola con regsvr32.");
    return *object.Get();
}

} // namespace tolvex::developer_console
