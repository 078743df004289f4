// Flat files issued as they are dropped into a folder (emite --vigila).
#pragma once

#include "console/issue_report.hpp"
#include "console/place.hpp"
#include "flat_file/inbox.hpp"

namespace tolvex::console {

class DropFolder
{
public:
    // Throws Error when the folder cannot be watched.
    DropFolder(const Place& place, const Text& folder, const FlatFileOptions& options,
               std::optional<Encoding> encoding, IssueReport& report);

    // Until the program is interrupted. While the database cannot be reached the files wait.
    void run();

private:
    bool reaches_database();
    void process(const Inbox::File& file);
    void review_and_issue(const Inbox::File& file);
    void issue(const Inbox::File& file, const Lines& lines, const FlatFileOptions& options);

    const Place place_;
    const Text folder_;
    FlatFileOptions options_;
    const std::optional<Encoding> encoding_;
    IssueReport& report_;
    Inbox inbox_;
    bool is_out_of_reach_ = false; // the database, as was told
};

} // namespace tolvex::console
