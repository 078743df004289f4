// The component as a module in its host's process: where it lies, how long it must stay loaded, and the type
// library that it carries.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <string>

namespace tolvex::automation::component {

// A member of everything that a host holds: the component stays as long as there is one.
class Use
{
public:
    Use() noexcept;
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use();
};

// The host's own wish to keep the component, counted apart.
void lock(bool locked) noexcept;
// From the first call of a method on, the session state belongs to the process: the component stays.
void session_in_use() noexcept;
bool can_unload() noexcept;

// Full path of the component. Throws Error.
std::wstring path();
// Description of an interface, from the component's own type library: registered or not.
HRESULT type_information(REFIID interface_id, ITypeInfo** found) noexcept;

} // namespace tolvex::automation::component
