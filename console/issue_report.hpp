// What emite says of the files that it checks and issues: for a person or, with --json, for a program.
#pragma once

#include "console/progress_line.hpp"
#include "flat_file/flat_file.hpp"

namespace tolvex::console {

class IssueReport
{
public:
    explicit IssueReport(bool as_json);

    void issued(const IssuedDocument& document);
    void line_done(std::size_t line, std::size_t lines) { progress_.show(line, lines); }
    // What a review found: faults and warnings, in the order of their lines.
    void found(const Text& file, const Review& review);
    // Why a file ended before its end, with how far it got and the order that goes on.
    void stopped(const Text& file, const FlatFileResult& result);
    void failed(const Text& file, const Text& reason);
    // Count, time and rate of all files.
    void summarize();

private:
    void tell(const char* kind, const Text& file, const LineFinding& finding);

    const bool as_json_;
    ProgressLine progress_;
    std::int64_t start_;
    std::size_t count_ = 0;
};

} // namespace tolvex::console
