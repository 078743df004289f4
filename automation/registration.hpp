// Where hosts find the component: its entries in the registry, for the machine or for the current user.
#pragma once

namespace tolvex::automation {

enum class Scope
{
    machine,
    user
};

// Writes all entries; after an error none of them is left. Throws Error with the system's code.
void register_for(Scope scope);
// Removes the entries that name this file: those of a copy elsewhere that registered itself since stay, as
// does what the component of the other bitness shares with this one.
void unregister_for(Scope scope);

} // namespace tolvex::automation
