// An automation object: one of the six classes behind its dual interface.
#pragma once

#include "automation/component.hpp"
#include "automation/description.hpp"

namespace tolvex::automation {

// Says that calls leave error information.
class ErrorSupport : public ISupportErrorInfo
{
public:
    explicit ErrorSupport(Object& owner) : owner_(owner) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interface_id, void** found) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID interface_id) override;

private:
    Object& owner_;
};

// COM sees an object through the table of functions that its first member points to.
struct Object
{
    explicit Object(const Class& described);
    Object(const Object&) = delete;

    // For a reference that this component holds itself (ComPtr); hosts come through the table.
    ULONG AddRef();
    ULONG Release();

    const EntryPoint* functions;
    const Class& described;
    std::shared_ptr<void> implementation;
    LONG references = 0; // whoever holds it counts itself
    ErrorSupport error_support{*this};
    component::Use use;
};

// The seven functions that every dual interface starts with; the last two are in dispatch.cpp.
HRESULT STDMETHODCALLTYPE query_interface(Object* self, REFIID interface_id, void** found);
ULONG STDMETHODCALLTYPE add_ref(Object* self);
ULONG STDMETHODCALLTYPE release(Object* self);
HRESULT STDMETHODCALLTYPE get_type_info_count(Object* self, UINT* count);
HRESULT STDMETHODCALLTYPE get_type_info(Object* self, UINT index, LCID locale, ITypeInfo** found);
HRESULT STDMETHODCALLTYPE get_ids_of_names(Object* self, REFIID reserved, LPOLESTR* names, UINT count,
                                           LCID locale, DISPID* ids);
HRESULT STDMETHODCALLTYPE invoke(Object* self, DISPID id, REFIID reserved, LCID locale, WORD flags,
                                 DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* exception,
                                 UINT* argument_at_fault);

// Those seven, then the early entry of each method.
std::vector<EntryPoint> function_table(const std::vector<Method>& methods);

} // namespace tolvex::automation
