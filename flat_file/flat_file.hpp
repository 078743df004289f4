// Issues the documents of a flat file: one record a line, fields separated by "|" (docs/archivo-plano.md).
#pragma once

#include "session/opening.hpp"

#include <functional>

namespace tolvex {

struct IssuedDocument
{
    Text series, folio;
    Text xml_path; // as documented, with backslashes
    Text warning;  // what did not keep it from being issued; empty for nothing
};

// What a caller may want to hear while a file is issued.
struct FlatFileEvents
{
    std::function<void(const IssuedDocument&)> issued;
    std::function<void(std::size_t line, std::size_t lines)> line_done;
};

struct FlatFileResult
{
    std::vector<IssuedDocument> documents;
    Text failure; // empty when every record went through; else the line and the reason

    // Series and folio of each document, joined by ",".
    Text series_and_folios() const;
};

// Issues every document of the file over the shared connection, up to the first record or document that
// fails.
FlatFileResult issue_flat_file_records(Session& session, const Text& path, const FlatFileEvents& events);

// The same on a connection of its own, which is closed at the end while the shared one stays as it was; a
// failure is shown in a message. Returns series_and_folios().
Text issue_flat_file(Session& session, const Text& folder, const Text& name, const ConnectionData& data);

} // namespace tolvex
