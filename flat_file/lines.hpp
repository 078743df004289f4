// The lines of a flat file, whatever system wrote it.
#pragma once

#include "flat_file/encoding.hpp"

#include <optional>
#include <vector>

namespace tolvex {

class Lines
{
public:
    // Lines end at LF or CR LF; a mark of UTF-8 at the start and an end-of-file sign of DOS at the end are no
    // text. Without an encoding it is found out, or Error 5 tells what the file is instead.
    explicit Lines(std::string bytes, std::optional<Encoding> encoding = {});
    Lines(const Lines&) = delete;

    std::size_t count() const { return lines_.size(); }
    // Counted from 1.
    Text text(std::size_t line) const { return decoded(bytes(line), encoding_); }
    // The first byte of the line that is no UTF-8 where the file is, as a letter of the line; 0 when all is
    // well.
    std::size_t bad_letter(std::size_t line) const;

private:
    std::string_view bytes(std::size_t line) const { return lines_[line - 1]; }

    const std::string bytes_;
    const Encoding encoding_;
    std::vector<std::string_view> lines_;
};

// Lines of blanks, of empty values only (as spreadsheets write them), and those that begin with "#", hold no
// record.
bool is_skipped(const Text& line);

} // namespace tolvex
