// Issues the documents of a flat file: one record a line, fields separated by "|" (docs/archivo-plano.md).
#pragma once

#include "flat_file/review.hpp"
#include "session/opening.hpp"

#include <functional>

namespace tolvex {

struct IssuedDocument
{
    Text series, folio, nID, total;
    Text xml_path; // as documented, with backslashes
    Text warning;  // what did not keep it from being issued; empty for nothing
    std::int64_t milliseconds;
    std::size_t line; // of its EMITE
};

// What a caller may want to hear while a file is issued.
struct FlatFileEvents
{
    std::function<void(std::size_t line)> begins; // a document, at its EMITE
    std::function<void(const IssuedDocument&)> issued;
    std::function<void(std::size_t line, std::size_t lines)> line_done;
    std::function<bool()> must_stop; // asked after each document
};

struct FlatFileResult
{
    std::vector<IssuedDocument> documents;
    Text failure;              // empty when every record went through; else the line and the reason
    std::size_t next_line = 1; // where what is not issued yet begins

    // Series and folio of each document, joined by ",".
    Text series_and_folios() const;
    // How far a file got that stopped: count, last folio, line to go on from.
    Text progress() const;
};

// Issues every document of the lines over the shared connection, up to the first that fails: a file should
// have been reviewed before.
FlatFileResult issue_flat_file_records(Session& session, const Lines& lines, const FlatFileOptions& options,
                                       const FlatFileEvents& events);

// Reviews and issues a file on a connection of its own, which is closed at the end while the shared one stays
// as it was; a failure is shown in a message. Returns series_and_folios().
Text issue_flat_file(Session& session, const Text& folder, const Text& name, const ConnectionData& data);

} // namespace tolvex
