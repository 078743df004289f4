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
    Text identifier;     // nID of its row; empty unless issued
    Text xml_path;       // as documented, with backslashes; empty unless issued
    Stored stored = Stored::nothing;
};

// The number in a folio. Deliberate: it starts at the first "0" of a zero-padded one, so A00123 is 123 and
// 120 is 0. Throws Error 13 when there is none.
double folio_number(TextView folio);

// A failing step ends the call; what was stored before it stays, and the last error tells it. vlnFactura
// receives the folio when it is taken from the counter. One issue at a time: see Turn.
IssueResult issue_document(Session& session, Text& vlnFactura, const IssueOptions& options);

} // namespace tolvex
