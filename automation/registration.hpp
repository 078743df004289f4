// Where hosts find the component: its entries in the registry, for the machine or for the current user.
#pragma once

namespace tolvex::automation {

enum class Scope
{
    machine,
    user
};

// Writes all entries; after an error none is left. Throws Error with the code of the operating system.
void register_for(Scope scope);
// Removes all entries. What the component of the other bitness shares with this one stays as long as that is
// registered.
void unregister_for(Scope scope);

} // namespace tolvex::automation
