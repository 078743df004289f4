// Issues the staged document: the one road that every invoice and credit note takes.
#pragma once

#include "issuing/issue_options.hpp"
#include "session/session.hpp"

namespace tolvex {

struct IssueResult
{
    bool issued = false; // every step succeeded, the XML file included
    Text sello;          // empty when openssl failed, which ends nothing
    Text xml_path;       // as documented, with backslashes; empty unless issued
};

// A failing step ends the call; what was stored before it stays. vlnFactura receives the folio when it is
// taken from the counter.
IssueResult issue_document(Session& session, Text& vlnFactura, const IssueOptions& options);

} // namespace tolvex
