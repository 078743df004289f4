// Documents that have no XML file of their name.
#pragma once

#include "diagnosis/observation.hpp"
#include "session/session.hpp"

namespace tolvex {

// Of a company and a branch, of all where they are 0; in the folder, or in the one of each certificate.
struct SoughtFiles
{
    std::int16_t company = 0, branch = 0;
    Text folder;
};

// Tells how many. What the files say is not looked at. Throws Error when the database fails.
void look_at_missing_files(Session& session, const SoughtFiles& sought, const Tell& tell);

} // namespace tolvex
