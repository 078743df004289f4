#include "flat_file/lines.hpp"

#include "core/code_pages.hpp"
#include "core/utf8.hpp"
#include "platform/files.hpp"

namespace tolvex {

namespace {

Text decoded(const std::string& bytes)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (!is_valid_utf8(bytes)) return from_windows_1252(bytes);
    return to_text(std::string_view(bytes).substr(bytes.starts_with(mark) ? mark.size() : 0));
}

} // namespace

std::vector<Text> lines_of_file(const Text& path)
{
    std::vector<Text> lines = split(decoded(files::read(path)), u'\n');
    for (Text& line : lines)
        if (line.ends_with(u'\r')) line.pop_back();
    if (lines.back().empty()) lines.pop_back();
    return lines;
}

bool is_skipped(const Text& line) { return trim(line).empty() || line.starts_with(u'#'); }

} // namespace tolvex
