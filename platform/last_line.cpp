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

void restore_line_feeds(TextView path)
{
    if (path.empty() || !files::exists(path)) return;
    const std::string written = files::read(path);
    std::string restored;
    restored.reserve(written.size());
    for (std::size_t i = 0; i < written.size(); ++i)
        if (written[i] != '\r' || i + 1 == written.size() || written[i + 1] != '\n') restored += written[i];
    if (restored != written) files::write(path, restored);
}

} // namespace tolvex
