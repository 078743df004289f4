// The XML file of a stored document: in Facturas under its name or, when a later document has taken the name,
// in Facturas\Anteriores with its date in the name.
#pragma once

#include "rebuilding/rebuilt_document.hpp"

namespace tolvex {

struct DocumentFile
{
    enum class State
    {
        right,     // what the rows say, an addenda left aside
        different, // this document's, by its seal, but it says something else
        no_xml,    // a file under its name that is no XML
        another,   // only another document's under its name
        missing
    };
    State state = State::missing;
    Text path; // as documented; empty when it is missing
    std::vector<Text> differences;
};

// Looks for it under the working folder of the issue's session, gRutaDeArchivos. Throws Error when a file
// cannot be read.
DocumentFile find_file(const StoredIssue& issue, const RebuiltDocument& document);

// Whether a file under its name holds its seal or its date: all that can be told when the rows give no
// document.
bool has_file_of_its_own(const StoredIssue& issue, const DocumentValues& values);

} // namespace tolvex
