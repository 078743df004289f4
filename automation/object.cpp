#include "automation/object.hpp"

namespace tolvex::automation {

namespace {

template <class Function>
EntryPoint entry_point(Function function)
{
    return reinterpret_cast<EntryPoint>(function);
}

} // namespace

Object::Object(const Class& described)
    : functions(described.functions.data()), described(described), implementation(described.create())
{}

std::vector<EntryPoint> function_table(const std::vector<Method>& methods)
{
    std::vector<EntryPoint> table = {entry_point(query_interface), entry_point(add_ref),
                                     entry_point(release),         entry_point(get_type_info_count),
                                     entry_point(get_type_info),   entry_point(get_ids_of_names),
                                     entry_point(invoke)};
    for (const Method& method : methods) table.push_back(method.early);
    return table;
}

HRESULT STDMETHODCALLTYPE query_interface(Object* self, REFIID interface_id, void** found)
{
    if (!found) return E_POINTER;
    *found = nullptr;
    if (interface_id == IID_IUnknown || interface_id == IID_IDispatch ||
        interface_id == self->described.interface_id)
        *found = self;
    else if (interface_id == IID_ISupportErrorInfo)
        *found = &self->error_support;
    else
        return E_NOINTERFACE;
    add_ref(self);
    return S_OK;
}

ULONG STDMETHODCALLTYPE add_ref(Object* self)
{
    return static_cast<ULONG>(InterlockedIncrement(&self->references));
}

ULONG STDMETHODCALLTYPE release(Object* self)
{
    const LONG left = InterlockedDecrement(&self->references);
    if (left == 0) delete self;
    return static_cast<ULONG>(left);
}

ULONG Object::AddRef() { return add_ref(this); }

ULONG Object::Release() { return release(this); }

HRESULT STDMETHODCALLTYPE get_type_info_count(Object*, UINT* count)
{
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE get_type_info(Object* self, UINT index, LCID, ITypeInfo** found)
{
    if (!found) return E_POINTER;
    *found = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return component::type_information(self->described.interface_id, found);
}

HRESULT ErrorSupport::QueryInterface(REFIID interface_id, void** found)
{
    return query_interface(&owner_, interface_id, found);
}

ULONG ErrorSupport::AddRef() { return add_ref(&owner_); }

ULONG ErrorSupport::Release() { return release(&owner_); }

HRESULT ErrorSupport::InterfaceSupportsErrorInfo(REFIID interface_id)
{
    const bool supported = interface_id == owner_.described.interface_id || interface_id == IID_IDispatch;
    return supported ? S_OK : S_FALSE;
}

} // namespace tolvex::automation
