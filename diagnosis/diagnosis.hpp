// What keeps documents from being issued, or soon will: looked at in the order in which issuing needs it.
#pragma once

#include "diagnosis/observation.hpp"
#include "session/session.hpp"

namespace tolvex {

// Whose documents: of a company and a branch, of all where they are 0.
struct Diagnosed
{
    std::int16_t company = 0, branch = 0;
    Text folder = {}; // the working folder; empty for the one that each certificate was registered with
};

// Tells how each thing stands: database, companies, branches, certificates, working folders with openssl and
// key, folio ranges, XML files. Seals a text of its own and leaves nothing behind. What a check itself could
// not find out is told as wrong.
void diagnose(Session& session, const Diagnosed& diagnosed, Date today, const Tell& tell);

} // namespace tolvex
