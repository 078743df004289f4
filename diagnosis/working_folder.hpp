// The folder that documents are issued in: whether it takes files, and whether openssl seals there.
#pragma once

#include "diagnosis/observation.hpp"
#include "platform/signature.hpp"

namespace tolvex {

// Whose key has to be there.
struct Sealer
{
    const Certificate* certificate = nullptr; // null when it cannot be read
    Text number;
    Date day; // of the documents: it decides their digest
};

void look_at_working_folder(const Text& folder, const Sealer& sealer, const Tell& tell);

} // namespace tolvex
