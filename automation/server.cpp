#include "automation/server.hpp"

#include "automation/object.hpp"
#include "automation/registration.hpp"
#include "core/errors.hpp"

#include <atomic>
#include <new>

#include <olectl.h>

extern "C" IMAGE_DOS_HEADER __ImageBase; // where this module lies in memory

namespace tolvex::automation {

namespace {

std::atomic<long> objects = 0;
std::atomic<long> locks = 0;
std::atomic<bool> session_used = false;

// Makes the objects of one class.
class Factory final : public IClassFactory
{
public:
    explicit Factory(const Class& described) : described_(described) { server::object_created(); }
    ~Factory() { server::object_destroyed(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interface_id, void** found) override
    {
        if (!found) return E_POINTER;
        const bool known = interface_id == IID_IUnknown || interface_id == IID_IClassFactory;
        *found = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references_); }

    ULONG STDMETHODCALLTYPE Release() override
    {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID interface_id, void** created) override
    try {
        if (!created) return E_POINTER;
        *created = nullptr;
        if (outer) return CLASS_E_NOAGGREGATION;
        auto* object = new Object(described_);
        const HRESULT outcome = query_interface(object, interface_id, created);
        release(object);
        return outcome;
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        locks += lock ? 1 : -1;
        return S_OK;
    }

private:
    const Class& described_;
    std::atomic<long> references_ = 1;
};

const Class* class_with(REFCLSID class_id)
{
    for (const Class& described : surface())
        if (described.class_id == class_id) return &described;
    return nullptr;
}

// A step of the registration as the result code that regsvr32 shows.
template <class Step>
HRESULT registering(Step step) noexcept
try {
    step();
    return S_OK;
} catch (const Error& error) {
    return error.number() < 0 ? error.number() : SELFREG_E_CLASS;
} catch (...) {
    return E_OUTOFMEMORY;
}

} // namespace

namespace server {

void object_created() noexcept { ++objects; }

void object_destroyed() noexcept { --objects; }

void session_in_use() noexcept { session_used = true; }

std::wstring path()
{
    std::wstring buffer(32768, L'\0'); // the longest path there is
    const auto module = reinterpret_cast<HMODULE>(&__ImageBase);
    const DWORD length = GetModuleFileNameW(module, buffer.data(), static_cast<DWORD>(buffer.size()));
    if (length == 0) throw Error(HRESULT_FROM_WIN32(GetLastError()), u"No se conoce la ruta del componente");
    buffer.resize(length);
    return buffer;
}

HRESULT type_information(REFIID interface_id, ITypeInfo** found) noexcept
try {
    ITypeLib* library = nullptr;
    HRESULT outcome = LoadTypeLibEx(path().c_str(), REGKIND_NONE, &library);
    if (FAILED(outcome)) return outcome;
    outcome = library->GetTypeInfoOfGuid(interface_id, found);
    library->Release();
    return outcome;
} catch (...) {
    return E_OUTOFMEMORY;
}

} // namespace server

} // namespace tolvex::automation

using namespace tolvex::automation;

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** found)
try {
    if (!found) return E_POINTER;
    *found = nullptr;
    const Class* described = class_with(class_id);
    if (!described) return CLASS_E_CLASSNOTAVAILABLE;
    auto* factory = new Factory(*described);
    const HRESULT outcome = factory->QueryInterface(interface_id, found);
    factory->Release();
    return outcome;
} catch (...) {
    return E_OUTOFMEMORY;
}

HRESULT STDAPICALLTYPE DllCanUnloadNow()
{
    return objects == 0 && locks == 0 && !session_used ? S_OK : S_FALSE;
}

HRESULT STDAPICALLTYPE DllRegisterServer()
{
    return registering([] { register_for(Scope::machine); });
}

HRESULT STDAPICALLTYPE DllUnregisterServer()
{
    return registering([] { unregister_for(Scope::machine); });
}

// "user" (regsvr32 /n /i:user) registers for the current user alone, without administrator rights.
HRESULT STDAPICALLTYPE DllInstall(BOOL install, LPCWSTR command)
{
    const bool for_user = command && CompareStringOrdinal(command, -1, L"user", -1, TRUE) == CSTR_EQUAL;
    const Scope scope = for_user ? Scope::user : Scope::machine;
    return registering([=] { install ? register_for(scope) : unregister_for(scope); });
}

} // extern "C"
