// A folder into which other programs drop flat files, and where each of them goes:
//
//   en_proceso    while it is issued, with its journal (NAME.avance) beside it
//   procesados    all of it was issued
//   rechazados    nothing, or not all of it, was issued
//
// In the last two NAME.reporte.txt tells what became of it. Whatever ends the program, no document is issued
// twice: the journal tells on disk which document was begun and which was issued.
#pragma once

#include "flat_file/flat_file.hpp"
#include "platform/file_turn.hpp"

#include <map>
#include <optional>

namespace tolvex {

class Inbox
{
public:
    // Makes the three folders. Throws Error 5 when another process has the folder as its inbox, 75 when it
    // cannot be one.
    explicit Inbox(const Text& folder);

    struct File
    {
        Text name, path;
        std::size_t next_line = 1; // where what is not issued yet begins
        std::size_t in_doubt =
            0; // the line of a document that was begun, and may be issued or not; 0 for none
    };

    // The next file, which is then in process: first what an earlier run left there, then any whose size has
    // stayed for a second (one that is still written to is left alone). Nothing when there is none.
    std::optional<File> take();

    // A document that ends on that line is begun, and is issued.
    void begin(const File& file, std::size_t line);
    void issued(const File& file, std::size_t line, const IssuedDocument& document);

    // The file is done with.
    void settle(const File& file, bool is_processed, const Text& report);

private:
    Text in_process(const Text& name) const { return folder_ + u"\\en_proceso\\" + name; }
    Text journal_of(const Text& name) const { return in_process(name) + u".avance"; }
    File with_journal(const Text& name) const;
    bool is_complete(const Text& name);
    Text free_name(const Text& folder, const Text& name) const;

    const Text folder_;
    std::unique_ptr<FileTurn> turn_;
    struct Look
    {
        std::uint64_t size;
        std::int64_t moment; // at which it was first seen of that size, in milliseconds running
    };
    std::map<Text, Look> looks_; // at the files that are not complete yet
};

} // namespace tolvex
