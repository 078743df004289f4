#include "flat_file/lines.hpp"

#include "core/utf8.hpp"

namespace tolvex {

namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr char end_of_file_of_dos = '\x1A';

std::string_view without_marks(std::string_view bytes)
{
    if (bytes.starts_with(utf8_mark)) bytes.remove_prefix(utf8_mark.size());
    while (bytes.ends_with(end_of_file_of_dos)) bytes.remove_suffix(1);
    return bytes;
}

} // namespace

Lines::Lines(std::string bytes, std::optional<Encoding> encoding)
    : bytes_(std::move(bytes)), encoding_(encoding ? *encoding : encoding_of(bytes_))
{
    for (std::string_view rest = without_marks(bytes_); !rest.empty();) {
        const auto end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        if (line.ends_with('\r')) line.remove_suffix(1);
        lines_.push_back(line);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
}

std::size_t Lines::bad_letter(std::size_t line) const
{
    if (encoding_ != Encoding::utf8) return 0;
    std::size_t letter = 1;
    for (std::string_view rest = bytes(line); !rest.empty(); ++letter) {
        const std::size_t length = utf8_length(rest);
        if (length == 0) return letter;
        rest.remove_prefix(length);
    }
    return 0;
}

bool is_skipped(const Text& line)
{
    return line.find_first_not_of(u" |\t") == Text::npos || line.starts_with(u'#');
}

} // namespace tolvex
