// Late-bound calls: names to identifiers, and the arguments that a host gives to the values that a method
// takes.
#include "automation/call_log.hpp"
#include "automation/failures.hpp"
#include "automation/object.hpp"
#include "automation/variants.hpp"

#include <array>

namespace tolvex::automation {

namespace {

bool same_name(const wchar_t* a, const wchar_t* b)
{
    return CompareStringOrdinal(a, -1, b, -1, TRUE) == CSTR_EQUAL;
}

const Method* find_method(const Class& described, const wchar_t* name)
{
    for (const Method& method : described.methods)
        if (same_name(method.name, name)) return &method;
    return nullptr;
}

DISPID find_parameter(const Method& method, const wchar_t* name)
{
    for (std::size_t i = 0; i < method.parameters.size(); ++i)
        if (same_name(method.parameters[i].name, name)) return static_cast<DISPID>(i);
    return DISPID_UNKNOWN;
}

const Method* method_with(const Class& described, DISPID id)
{
    const bool exists = id >= 1 && static_cast<std::size_t>(id) <= described.methods.size();
    return exists ? &described.methods[static_cast<std::size_t>(id - 1)] : nullptr;
}

// The arguments of one call, in the order of the parameters and of their types.
class Arguments
{
public:
    explicit Arguments(const Method& method) : method_(method), count_(method.parameters.size()) {}

    // Finds the argument of every parameter: the positional ones stand last to first, after the named ones.
    HRESULT assign(const DISPPARAMS& call, UINT& at_fault)
    {
        if (call.cArgs > count_) return DISP_E_BADPARAMCOUNT;
        if (call.cNamedArgs > call.cArgs) return E_INVALIDARG;
        if ((call.cArgs > 0 && !call.rgvarg) || (call.cNamedArgs > 0 && !call.rgdispidNamedArgs))
            return E_POINTER;
        call_ = &call;
        for (UINT i = 0; i < call.cArgs - call.cNamedArgs; ++i) given_[i] = &call.rgvarg[call.cArgs - 1 - i];
        for (UINT i = 0; i < call.cNamedArgs; ++i) {
            const auto position = static_cast<std::size_t>(call.rgdispidNamedArgs[i]);
            if (position >= count_ || given_[position]) {
                at_fault = i;
                return DISP_E_PARAMNOTFOUND;
            }
            given_[position] = &call.rgvarg[i];
        }
        return S_OK;
    }

    bool misses_one() const
    {
        for (std::size_t i = 0; i < count_; ++i)
            if (omitted(i) && !method_.parameters[i].is_optional()) return true;
        return false;
    }

    // Throws Error for an argument that does not fit its parameter; at_fault is then its place in the call.
    void convert(UINT& at_fault)
    {
        for (std::size_t i = 0; i < count_; ++i) {
            const Parameter& parameter = method_.parameters[i];
            if (omitted(i)) {
                values_[i] = default_of(parameter);
                continue;
            }
            at_fault = static_cast<UINT>(given_[i] - call_->rgvarg);
            if (parameter.written) require_writable(*given_[i], parameter);
            values_[i] = coerced(*given_[i], parameter.type, parameter.name);
        }
    }

    VARIANT* values() { return values_.data(); }

    // Into the host's variables, which take the type of the parameter.
    void write_back()
    {
        for (std::size_t i = 0; i < count_; ++i)
            if (method_.parameters[i].written && !omitted(i)) write(*given_[i], values_[i]);
    }

private:
    bool omitted(std::size_t i) const { return !given_[i] || is_omitted(*given_[i]); }

    // A typed variable of the host must have the type that comes back; better said before anything is done.
    static void require_writable(const VARIANT& argument, const Parameter& parameter)
    {
        const VARIANT& target = referred(argument);
        if (V_ISBYREF(&target) && target.vt != (VT_BYREF | parameter.type))
            throw wrong_variable(parameter.name);
    }

    static void write(const VARIANT& argument, Variant& value)
    {
        auto& target = const_cast<VARIANT&>(referred(argument));
        if (target.vt == (VT_BYREF | VT_BSTR))
            std::swap(*target.pbstrVal, value.bstrVal);
        else if (&target != &argument)
            std::swap(target, static_cast<VARIANT&>(value));
    }

    const Method& method_;
    const std::size_t count_;
    const DISPPARAMS* call_ = nullptr;
    std::array<const VARIANT*, most_parameters> given_{}; // null where the call has no argument
    std::array<Variant, most_parameters> values_;
};

// A call whose arguments do not fit, which the log is told.
HRESULT refused(const Class& called, const Method& method, HRESULT reason)
{
    log_refused_call(called, method, system_message(static_cast<DWORD>(reason)));
    return reason;
}

HRESULT call(Object& self, const Method& method, const DISPPARAMS& given, VARIANT& result, UINT& at_fault)
{
    Arguments arguments(method);
    HRESULT outcome = arguments.assign(given, at_fault);
    if (FAILED(outcome)) return refused(self.described, method, outcome);
    if (arguments.misses_one()) return refused(self.described, method, DISP_E_PARAMNOTOPTIONAL);
    outcome = guard(self.described, [&] {
        try {
            arguments.convert(at_fault);
        } catch (const Error& error) {
            log_refused_call(self.described, method, error.description());
            throw;
        }
    });
    if (FAILED(outcome)) return outcome;
    outcome = method.late(self, arguments.values(), result);
    arguments.write_back();
    if (SUCCEEDED(outcome) && method.result != VT_VARIANT) result.vt = method.result;
    return outcome;
}

} // namespace

HRESULT STDMETHODCALLTYPE get_ids_of_names(Object* self, REFIID reserved, LPOLESTR* names, UINT count, LCID,
                                           DISPID* ids)
{
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids) return E_POINTER;
    if (count == 0) return E_INVALIDARG;
    const Method* method = names[0] ? find_method(self->described, names[0]) : nullptr;
    ids[0] = method ? static_cast<DISPID>(method - self->described.methods.data()) + 1 : DISPID_UNKNOWN;
    bool all_known = method != nullptr;
    for (UINT i = 1; i < count; ++i) {
        ids[i] = method && names[i] ? find_parameter(*method, names[i]) : DISPID_UNKNOWN;
        all_known = all_known && ids[i] != DISPID_UNKNOWN;
    }
    return all_known ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT STDMETHODCALLTYPE invoke(Object* self, DISPID id, REFIID reserved, LCID, WORD flags,
                                 DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                 UINT* argument_at_fault)
{
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    const Method* method = method_with(self->described, id);
    if (!method || !(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
    if (!arguments) return E_POINTER;

    begin_call();
    Variant given_result;
    UINT at_fault = 0;
    const HRESULT outcome = call(*self, *method, *arguments, given_result, at_fault);
    if (argument_at_fault) *argument_at_fault = at_fault;
    if (FAILED(outcome)) return as_late_failure(outcome, exception);
    if (result) *result = given_result.release();
    return S_OK;
}

} // namespace tolvex::automation
