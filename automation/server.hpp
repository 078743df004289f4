// The component as a whole: how long it must stay loaded, and the type library that it carries.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace tolvex::automation::server {

void object_created() noexcept;
void object_destroyed() noexcept;
// From the first call of a method on, the session state belongs to the process: the component stays.
void session_in_use() noexcept;

// Full path of the component. Throws Error.
std::wstring path();
// Description of an interface, from the component's own type library: registered or not.
HRESULT type_information(REFIID interface_id, ITypeInfo** found) noexcept;

} // namespace tolvex::automation::server
