// The class factory and the five functions that the component exports (TOLVEX.def).
#include "automation/object.hpp"
#include "automation/registration.hpp"
#include "automation/surface.hpp"

#include <atomic>
#include <new>

#include <olectl.h>

namespace tolvex::automation {

namespace {

// Makes the objects of one class.
class Factory final : public IClassFactory
{
public:
    explicit Factory(const Class& described) : described_(described) {}

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
        const ComPtr<Object> object(new Object(described_));
        return query_interface(object.Get(), interface_id, created);
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override
    {
        component::lock(lock);
        return S_OK;
    }

private:
    const Class& described_;
    std::atomic<long> references_ = 0; // whoever holds it counts itself
    component::Use use_;
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

} // namespace tolvex::automation

using namespace tolvex::automation;
using tolvex::ComPtr;

extern "C" {

HRESULT STDAPICALLTYPE DllGetClassObject(REFCLSID class_id, REFIID interface_id, void** found)
try {
    if (!found) return E_POINTER;
    *found = nullptr;
    const Class* described = class_with(class_id);
    if (!described) return CLASS_E_CLASSNOTAVAILABLE;
    const ComPtr<Factory> factory(new Factory(*described));
    return factory->QueryInterface(interface_id, found);
} catch (...) {
    return E_OUTOFMEMORY;
}

HRESULT STDAPICALLTYPE DllCanUnloadNow() { return component::can_unload() ? S_OK : S_FALSE; }

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
