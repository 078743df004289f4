// A flat file looked over before its first document is issued: all that would stop it half-way, line by line.
#pragma once

#include "flat_file/lines.hpp"
#include "session/session.hpp"

namespace tolvex {

struct LineFinding
{
    std::size_t line;
    Text text;

    Text in_words() const; // "Línea 7: …"
};

struct Review
{
    static constexpr std::size_t most_findings = 1000; // kept; all are counted

    std::vector<LineFinding> faults;   // nothing is issued while there is one
    std::vector<LineFinding> warnings; // what should be looked at
    std::size_t fault_count = 0, warning_count = 0, document_count = 0;
};

struct FlatFileOptions
{
    Text folder = u".";        // the working folder of documents that name none: the file's own
    std::size_t from_line = 1; // of lines before it only EMISOR records count
    bool plain_text = false;   // typographic signs in their plain form (plain_text.hpp)
};

// What the database does not answer is a fault too.
Review review_flat_file(const Session& session, const Lines& lines, const FlatFileOptions& options);

// Whether the line holds a record that counts.
bool counts(const Text& text, std::size_t line, const FlatFileOptions& options);

} // namespace tolvex
