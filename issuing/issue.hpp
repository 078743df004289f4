// Issues the staged document: the one road that every invoice and credit note takes.
#pragma once

#include "issuing/issue_options.hpp"
#include "session/session.hpp"

namespace tolvex {

// How far the rows of a document got.
enum class Stored
{
    nothing,
    partly, // the header row, without all of the others
    wholly
};

struct IssueResult
{
    bool issued = false; // every step succeeded, the XML file included
    Text sello;          // empty when openssl failed, which ends nothing
    Text xml_path;       // as documented, with backslashes; empty unless issued
    Stored stored = Stored::nothing;
};

// A failing step ends the call; what was stored before it stays, and the last error tells it. vlnFactura
// receives the folio when it is taken from the counter. One issue at a time: see Turn.
IssueResult issue_document(Session& session, Text& vlnFactura, const IssueOptions& options);

} // namespace tolvex
