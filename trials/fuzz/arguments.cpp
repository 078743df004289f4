// A host may pass anything as an argument: it arrives as a value of the parameter's type, or the call fails
// as documented with nothing changed. Only what the method gives back is written, as a text; nothing stays
// allocated.
#include "automation/signature.hpp"
#include "automation/surface.hpp"
#include "trials/fuzz/require.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <deque>

namespace {

using namespace tolvex;
using namespace tolvex::automation;

// --- the component's side: a method with a parameter of each kind of the public surface ---

constexpr char16_t given_back[] = u"devuelto";

bool is_documented(int number)
{
    return number == numbers::overflow || number == numbers::type_mismatch ||
           number == numbers::object_not_set || number == numbers::invalid_use_of_null;
}

void read_as_boolean(const VARIANT& value)
{
    try {
        as_boolean(value, L"valor");
    } catch (const Error& error) {
        require(is_documented(error.number()));
    }
}

struct Taker
{
    Text take(const Text& text, Text& written, std::int16_t, std::int32_t, bool, Currency, Date date,
              const VARIANT& value)
    {
        require(std::isfinite(date.days));
        read_as_boolean(value);
        written = given_back;
        return text;
    }
};

const Class& taker()
{
    static const Class described_taker = described<Taker>(L"Taker", L"", CLSID_NULL, IID_NULL,
                                                          {method<&Taker::take>(L"take", L"",
                                                                                {{L"texto", L""},
                                                                                 {L"escrito"},
                                                                                 {L"corto", 1},
                                                                                 {L"largo", 2},
                                                                                 {L"bandera", false},
                                                                                 {L"importe", 3},
                                                                                 {L"fecha"},
                                                                                 {L"valor", L"0"}})});
    return described_taker;
}

const std::vector<Parameter>& parameters() { return taker().methods.front().parameters; }

void require_every_kind_of_the_surface()
{
    for (const Class& each : surface())
        for (const Method& method : each.methods)
            for (const Parameter& parameter : method.parameters)
                require(std::any_of(parameters().begin(), parameters().end(), [&](const Parameter& ours) {
                    return ours.type == parameter.type && ours.written == parameter.written;
                }));
}

// --- what a host passes ---

class Recipe
{
public:
    Recipe(const std::uint8_t* bytes, std::size_t size) : next_(bytes), end_(bytes + size) {}

    std::uint8_t byte() { return next_ == end_ ? 0 : *next_++; }
    void fill(void* place, std::size_t size)
    {
        std::generate_n(static_cast<std::uint8_t*>(place), size, [this] { return byte(); });
    }

private:
    const std::uint8_t *next_, *const end_;
};

// An object of the host, whose default value is what one of its variables holds.
class HostObject : public IDispatch
{
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override
    {
        const bool known = wanted == IID_IUnknown || wanted == IID_IDispatch;
        *found = known ? this : nullptr;
        return known ? (AddRef(), S_OK) : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                     UINT*) override
    {
        return default_value && result ? VariantCopy(result, default_value) : DISP_E_MEMBERNOTFOUND;
    }

    ULONG references = 0;
    VARIANT* default_value = nullptr;
};

bool is_array(VARTYPE type) { return (type & (VT_ARRAY | VT_BYREF)) == VT_ARRAY; }

SAFEARRAY* any_array(VARTYPE type, Recipe& recipe)
{
    const auto element = static_cast<VARTYPE>(type & ~VT_ARRAY);
    return SafeArrayCreateVector(element, 0, recipe.byte() % 4); // null for what arrays cannot hold
}

// The variables of the host that a call sees. Pointers are good or null: nobody can look behind others.
class Variables
{
public:
    explicit Variables(Recipe& recipe) : recipe_(recipe) {}
    ~Variables()
    {
        for (VARIANT& variable : all_)
            is_array(variable.vt) ? SafeArrayDestroy(variable.parray) : VariantClear(&variable);
        require(object_.references == 0);
    }
    Variables(const Variables&) = delete;

    VARIANT* any(int depth = 0)
    {
        VARIANT* const variable = of_type(any_type(), depth);
        if (variable->vt == VT_I4 || variable->vt == VT_BSTR) object_.default_value = variable;
        return variable;
    }

    const std::deque<VARIANT>& all() const { return all_; }

private:
    // Mostly one that there is.
    VARTYPE any_type()
    {
        const std::uint8_t base = recipe_.byte(), flags = recipe_.byte();
        if (flags == 0xFF) return static_cast<VARTYPE>(base << 8 | recipe_.byte());
        return static_cast<VARTYPE>(base % 39 | (flags & 1 ? VT_BYREF : 0) |
                                    (flags % 16 == 2 ? VT_ARRAY : 0));
    }

    VARIANT* of_type(VARTYPE type, int depth)
    {
        VARIANT& variable = all_.emplace_back();
        recipe_.fill(&variable, sizeof(DECIMAL)); // what values lie in, in both bitnesses
        variable.vt = type;
        if (type & VT_BYREF)
            refer(variable, static_cast<VARTYPE>(type & ~VT_BYREF), depth);
        else if (type == VT_BSTR)
            variable.bstrVal = any_text();
        else if (is_array(type))
            variable.parray = any_array(type, recipe_);
        else if (type == VT_DISPATCH || type == VT_UNKNOWN)
            variable.pdispVal = any_object();
        else if (type == VT_RECORD)
            variable.pvRecord = nullptr, variable.pRecInfo = nullptr;
        return &variable;
    }

    // To nothing, to itself, or to another variable.
    void refer(VARIANT& variable, VARTYPE type, int depth)
    {
        const std::uint8_t kind = recipe_.byte();
        variable.pRecInfo = nullptr;
        if (kind % 16 == 0) {
            variable.byref = nullptr;
        } else if (type == VT_VARIANT) {
            variable.pvarVal = depth < 3 && kind % 16 != 1 ? any(depth + 1) : &variable;
        } else {
            VARIANT* const target = of_type(type, depth);
            variable.byref = type == VT_DECIMAL ? static_cast<void*>(target) : &target->llVal;
        }
    }

    BSTR any_text()
    {
        static constexpr wchar_t often[] = L"0123456789-+.,/: $eE%()aA";
        const std::uint8_t length = recipe_.byte() % 32;
        if (length == 31) return nullptr;
        const BSTR text = SysAllocStringLen(nullptr, length);
        for (std::uint8_t i = 0; i < length; ++i) {
            const std::uint8_t one = recipe_.byte();
            text[i] = one < 200 ? often[one % (std::size(often) - 1)] : static_cast<wchar_t>(one * 257);
        }
        return text;
    }

    IDispatch* any_object()
    {
        if (recipe_.byte() % 4 == 0) return nullptr;
        object_.AddRef();
        return &object_;
    }

    Recipe& recipe_;
    std::deque<VARIANT> all_;
    HostObject object_;
};

// --- the call ---

struct HostCall
{
    // One argument in a few is a wild one: the first that does not fit ends a call.
    HostCall(Recipe& recipe, Variables& variables)
    {
        const std::uint8_t shape = recipe.byte();
        const std::size_t count = shape < 200 ? parameters().size() : shape % (parameters().size() + 2);
        for (std::size_t i = 0; i < count; ++i)
            arguments.push_back(recipe.byte() < 128 ? VARIANT{} : *variables.any());
        if (shape >= 230) named.resize(shape % 4);
        for (DISPID& name : named) name = static_cast<signed char>(recipe.byte());
    }

    HRESULT make(Object& object)
    {
        DISPPARAMS call{arguments.data(), named.data(), static_cast<UINT>(arguments.size()),
                        static_cast<UINT>(named.size())};
        return invoke(&object, 1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, &result, &exception,
                      &at_fault);
    }

    std::vector<VARIANT> arguments; // last first
    std::vector<DISPID> named;
    Variant result;
    EXCEPINFO exception{};
    UINT at_fault = 0;
};

void require_documented(HRESULT outcome, HostCall& call)
{
    if (outcome != DISP_E_EXCEPTION) {
        require(outcome == DISP_E_BADPARAMCOUNT || outcome == DISP_E_PARAMNOTOPTIONAL ||
                outcome == DISP_E_PARAMNOTFOUND || (outcome == E_INVALIDARG && !call.named.empty()));
        return;
    }
    const Text description = text_of(call.exception.bstrDescription);
    SysFreeString(call.exception.bstrSource);
    SysFreeString(call.exception.bstrDescription);
    require(HRESULT_FACILITY(call.exception.scode) == FACILITY_CONTROL &&
            is_documented(HRESULT_CODE(call.exception.scode)));
    require(call.at_fault < call.arguments.size());
    require(description.find(u"argumento ") != Text::npos);
}

bool is_given_back(const VARIANT& variable)
{
    return variable.vt == VT_BSTR && text_of(variable.bstrVal) == given_back;
}

// How many variables are other than before; each of them must be what the method gives back.
std::ptrdiff_t written(const std::deque<VARIANT>& before, const std::deque<VARIANT>& after)
{
    std::ptrdiff_t count = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (std::memcmp(&before[i], &after[i], sizeof(VARIANT)) == 0) continue;
        require(is_given_back(after[i]));
        ++count;
    }
    return count;
}

void call_once(Object& object, Recipe recipe)
{
    Variables variables(recipe);
    HostCall call(recipe, variables);
    const std::vector<VARIANT> arguments = call.arguments;
    const std::deque<VARIANT> before = variables.all();
    const HRESULT outcome = call.make(object);
    require(std::memcmp(arguments.data(), call.arguments.data(), arguments.size() * sizeof(VARIANT)) == 0);
    const std::ptrdiff_t count = written(before, variables.all());
    if (FAILED(outcome)) {
        require(count == 0);
        require_documented(outcome, call);
        return;
    }
    require(call.result.vt == VT_BSTR);
    if (!call.named.empty()) return;
    const VARIANT& target = call.arguments[call.arguments.size() - 2]; // of the second parameter
    require(count == (V_ISBYREF(&target) ? 1 : 0));
    const VARIANT& text = call.arguments.back();
    if (text.vt == VT_BSTR) require(text_of(text.bstrVal) == text_of(call.result.bstrVal));
}

// --- what stays allocated ---

// Told of every block that the system's allocator gives and takes back: texts, arrays, error information.
class BlockCount : public IMallocSpy
{
public:
    BlockCount()
    {
        // Freed texts are kept for later otherwise.
        system_function<void(WINAPI*)()>(L"oleaut32", "SetOaNoCache")();
        require(SUCCEEDED(CoRegisterMallocSpy(this)));
    }

    long count = 0;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** found) override
    {
        *found = wanted == IID_IUnknown || wanted == IID_IMallocSpy ? this : nullptr;
        return *found ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    SIZE_T STDMETHODCALLTYPE PreAlloc(SIZE_T size) override { return size; }
    void* STDMETHODCALLTYPE PostAlloc(void* block) override { return count += block != nullptr, block; }
    void* STDMETHODCALLTYPE PreFree(void* block, BOOL) override { return count -= block != nullptr, block; }
    void STDMETHODCALLTYPE PostFree(BOOL) override {}
    SIZE_T STDMETHODCALLTYPE PreRealloc(void* block, SIZE_T size, void** given, BOOL) override
    {
        count -= block != nullptr;
        *given = block;
        return size;
    }
    void* STDMETHODCALLTYPE PostRealloc(void* block, BOOL) override
    {
        return count += block != nullptr, block;
    }
    void* STDMETHODCALLTYPE PreGetSize(void* block, BOOL) override { return block; }
    SIZE_T STDMETHODCALLTYPE PostGetSize(SIZE_T size, BOOL) override { return size; }
    void* STDMETHODCALLTYPE PreDidAlloc(void* block, BOOL) override { return block; }
    int STDMETHODCALLTYPE PostDidAlloc(void*, BOOL, int actual) override { return actual; }
    void STDMETHODCALLTYPE PreHeapMinimize() override {}
    void STDMETHODCALLTYPE PostHeapMinimize() override {}
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    static Object object(taker());
    static BlockCount blocks;
    static const bool prepared = (require_every_kind_of_the_surface(), call_once(object, {nullptr, 0}), true);
    const long before = blocks.count;
    call_once(object, {bytes, size});
    SetErrorInfo(0, nullptr);
    require(prepared && blocks.count == before);
    return 0;
}
