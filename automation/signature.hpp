// From the signature of a C++ method to an automation method: the types of its parameters, and the two
// functions that hosts reach it by. For
//
//   bool GeneraDocto::GetDatosSucursal(std::int16_t vlnEmpresa, std::int16_t vlnSucursal);
//
// the table of surface.cpp says no more than the names and a line of help,
//
//   method<&GeneraDocto::GetDatosSucursal>(L"GetDatosSucursal",
//       L"Carga la sucursal que emite y su certificado", {{L"vlnEmpresa"}, {L"vlnSucursal"}})
//
// and gets a Method with two parameters of type VT_I2, the result VT_BOOL, and these two:
//
//   HRESULT __stdcall early(Object* self, SHORT* vlnEmpresa, SHORT* vlnSucursal, VARIANT_BOOL* result)
//   {
//       *result = self->implementation.GetDatosSucursal(*vlnEmpresa, *vlnSucursal);
//   }
//   HRESULT late(Object& self, VARIANT* arguments, VARIANT& result)
//   {
//       return early(&self, &arguments[0].iVal, &arguments[1].iVal, &result.boolVal);
//   }
//
// `early` stands in the interface's function table; it also checks the pointers and lets no exception out.
// `late` is for dispatch.cpp, which has given each argument exactly the type of its parameter by then.
//
// The rule: Argument<P> says how a parameter of C++ type P travels (what the host points to, its automation
// type, both conversions), Result<R> the same for a result. A new type in a signature is a new
// specialisation; a method whose types do not fit is a free function in surface.cpp that takes the object
// first.
#pragma once

#include "automation/call_log.hpp"
#include "automation/component.hpp"
#include "automation/description.hpp"
#include "automation/failures.hpp"
#include "automation/object.hpp"
#include "automation/variants.hpp"

#include <functional>
#include <tuple>

namespace tolvex::automation {

// --- how each C++ parameter travels ---

// Raw is what the host points to; the argument converts to what the method takes.
template <class Parameter>
struct Argument;

template <class Raw_, VARTYPE Type>
struct Travels
{
    using Raw = Raw_;
    static constexpr VARTYPE type = Type;
    static constexpr bool written = false;
};

template <>
struct Argument<const Text&> : Travels<BSTR, VT_BSTR>
{
    explicit Argument(BSTR raw) : text(text_of(raw)) {}
    operator const Text&() const { return text; }
    Text text;
};

// Gives the method's text back to the host, also when the method ends with an error.
template <>
struct Argument<Text&> : Travels<BSTR, VT_BSTR>
{
    static constexpr bool written = true;
    explicit Argument(BSTR& raw) : text(text_of(raw)), raw(raw) {}
    ~Argument() { SysReAllocStringLen(&raw, wide(text), static_cast<UINT>(text.size())); }
    Argument(const Argument&) = delete;
    Argument& operator=(const Argument&) = delete;
    operator Text&() { return text; }
    Text text;
    BSTR& raw;
};

template <>
struct Argument<std::int16_t> : Travels<SHORT, VT_I2>
{
    explicit Argument(SHORT raw) : value(raw) {}
    operator std::int16_t() const { return value; }
    std::int16_t value;
};

template <>
struct Argument<std::int32_t> : Travels<LONG, VT_I4>
{
    explicit Argument(LONG raw) : value(raw) {}
    operator std::int32_t() const { return value; }
    std::int32_t value;
};

template <>
struct Argument<bool> : Travels<VARIANT_BOOL, VT_BOOL>
{
    explicit Argument(VARIANT_BOOL raw) : value(raw != VARIANT_FALSE) {}
    operator bool() const { return value; }
    bool value;
};

template <>
struct Argument<Currency> : Travels<CY, VT_CY>
{
    explicit Argument(CY raw) : value(Currency::from_scaled(raw.int64)) {}
    operator Currency() const { return value; }
    Currency value;
};

template <>
struct Argument<Date> : Travels<DATE, VT_DATE>
{
    explicit Argument(DATE raw) : value{raw} {}
    operator Date() const { return value; }
    Date value;
};

template <>
struct Argument<const VARIANT&> : Travels<VARIANT, VT_VARIANT>
{
    explicit Argument(const VARIANT& raw) : value(raw) {}
    operator const VARIANT&() const { return value; }
    const VARIANT& value;
};

// --- how each C++ result travels ---

// The result of a method that gives a variant and never puts anything in it.
struct Empty
{};

// `Out` is what a host passes to receive the result: one thing or nothing.
template <class Value>
struct Result;

template <>
struct Result<void>
{
    using Out = std::tuple<>;
    static constexpr VARTYPE type = VT_EMPTY;
    template <class Call>
    static void give(Call call)
    {
        call();
    }
};

template <>
struct Result<Empty>
{
    using Out = std::tuple<VARIANT>;
    static constexpr VARTYPE type = VT_VARIANT;
    template <class Call>
    static void give(Call call, VARIANT& out)
    {
        VariantInit(&out);
        call();
    }
};

template <>
struct Result<bool>
{
    using Out = std::tuple<VARIANT_BOOL>;
    static constexpr VARTYPE type = VT_BOOL;
    template <class Call>
    static void give(Call call, VARIANT_BOOL& out)
    {
        out = VARIANT_FALSE;
        if (call()) out = VARIANT_TRUE;
    }
};

template <>
struct Result<Text>
{
    using Out = std::tuple<BSTR>;
    static constexpr VARTYPE type = VT_BSTR;
    template <class Call>
    static void give(Call call, BSTR& out)
    {
        out = nullptr;
        out = new_bstr(call());
    }
};

// --- the signature ---

// A member function, or a free function that takes the object first.
template <class Function>
struct Signature;

template <class Object_, class Value_, class... Parameters_>
struct Signature<Value_ (Object_::*)(Parameters_...)>
{
    using Implementation = Object_;
    using Value = Value_;
    using Parameters = std::tuple<Parameters_...>;
};

template <class Object_, class Value_, class... Parameters_>
struct Signature<Value_ (*)(Object_&, Parameters_...)> : Signature<Value_ (Object_::*)(Parameters_...)>
{};

template <auto function, class Value, class Parameters, class Out>
struct Entry;

template <auto function, class Value, class... Parameters, class... Out>
struct Entry<function, Value, std::tuple<Parameters...>, std::tuple<Out...>>
{
    static HRESULT STDMETHODCALLTYPE early(Object* self, typename Argument<Parameters>::Raw*... raw,
                                           Out*... out)
    {
        if ((!raw || ...) || (!out || ...)) return E_POINTER;
        component::session_in_use();
        return call_system(self->described, [&] {
            using Implementation = typename Signature<decltype(function)>::Implementation;
            auto& implementation = *static_cast<Implementation*>(self->implementation.get());
            const auto call = [&] {
                return std::invoke(function, implementation, Argument<Parameters>(*raw)...);
            };
            logged(self->described, reinterpret_cast<EntryPoint>(&early),
                   {Travelling{Argument<Parameters>::type, raw}...},
                   {Travelling{Result<Value>::type, out}...}, [&] { Result<Value>::give(call, *out...); });
        });
    }

    static HRESULT late(Object& self, VARIANT* arguments, VARIANT& result)
    {
        return late_with(self, arguments, result, std::index_sequence_for<Parameters...>());
    }

    template <std::size_t... i>
    static HRESULT late_with(Object& self, [[maybe_unused]] VARIANT* arguments, VARIANT& result,
                             std::index_sequence<i...>)
    {
        return early(&self, payload<typename Argument<Parameters>::Raw>(arguments[i])...,
                     payload<Out>(result)...);
    }
};

// --- the entries of the table ---

template <class... Parameters>
void add_types(std::vector<Parameter>& parameters, std::tuple<Parameters...>*)
{
    [[maybe_unused]] auto parameter = parameters.begin();
    ((parameter->type = Argument<Parameters>::type, (parameter++)->written = Argument<Parameters>::written),
     ...);
}

template <auto function, class Result_>
Method entry(const wchar_t* name, const wchar_t* help, std::vector<Parameter> parameters)
{
    using Parameters = typename Signature<decltype(function)>::Parameters;
    add_types(parameters, static_cast<Parameters*>(nullptr));
    using Called = Entry<function, Result_, Parameters, typename Result<Result_>::Out>;
    return {name,
            help,
            std::move(parameters),
            Result<Result_>::type,
            reinterpret_cast<EntryPoint>(&Called::early),
            &Called::late};
}

template <auto function, class Result_ = typename Signature<decltype(function)>::Value, std::size_t count>
Method method(const wchar_t* name, const wchar_t* help, const Parameter (&parameters)[count])
{
    static_assert(count == std::tuple_size_v<typename Signature<decltype(function)>::Parameters>,
                  "one name for every parameter of the method");
    static_assert(count <= most_parameters);
    return entry<function, Result_>(name, help, {parameters, parameters + count});
}

template <auto function, class Result_ = typename Signature<decltype(function)>::Value>
Method method(const wchar_t* name, const wchar_t* help)
{
    return entry<function, Result_>(name, help, {});
}

template <class Implementation>
Class described(const wchar_t* name, const wchar_t* description, const CLSID& class_id,
                const IID& interface_id, std::vector<Method> methods)
{
    const auto create = [] { return std::shared_ptr<void>(std::make_shared<Implementation>()); };
    std::vector<EntryPoint> functions = function_table(methods);
    return {name, description, class_id, interface_id, create, std::move(methods), std::move(functions)};
}

} // namespace tolvex::automation
