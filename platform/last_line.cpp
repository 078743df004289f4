#include "platform/last_line.hpp"

#include "core/code_pages.hpp"
#include "core/text.hpp"
#include "platform/files.hpp"

#include <algorithm>

namespace tolvex {

Text last_line(TextView path)
{
    Text content = text_of_bytes(files::read(path));
    if (content.ends_with(u"\r\n")) content.pop_back();
    if (content.ends_with(u'\r')) content.pop_back();
    const auto end_of_previous = content.rfind(u'\r');
    if (end_of_previous == Text::npos) return content;
    const bool with_line_feed = content[std::min(end_of_previous + 1, content.size() - 1)] == u'\n';
    return content.substr(end_of_previous + (with_line_feed ? 2 : 1));
}

} // namespace tolvex
