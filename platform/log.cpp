#include "platform/log.hpp"

#include "core/display_patterns.hpp"
#include "platform/clock.hpp"

#include <cstdio>

namespace tolvex {

namespace {

const Text& file()
{
    static const auto& name = *new Text(log_file_of_environment());
    return name;
}

Text in_one_line(TextView text)
{
    Text line;
    for (const char16_t c : text) {
        if (c == u'\r')
            line += u"\\r";
        else if (c == u'\n')
            line += u"\\n";
        else
            line += c < u' ' ? u' ' : c;
    }
    return line;
}

Text moment()
{
    char milliseconds[8];
    std::snprintf(milliseconds, sizeof milliseconds, ".%03d", millisecond_of_now());
    return format(local_now(), u"yyyy-mm-dd hh:mm:ss") + to_text(milliseconds);
}

} // namespace

bool log_is_kept() { return !file().empty(); }

void log(TextView line)
{
    if (log_is_kept())
        append_to_log(file(),
                      to_utf8(moment() + u" " + process_and_thread() + u" " + in_one_line(line) + u"\r\n"));
}

} // namespace tolvex
