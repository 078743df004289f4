#include "platform/messages.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

// Nobody sees the windows of a service: a box would wait there for ever.
bool somebody_sees_windows()
{
    USEROBJECTFLAGS flags{};
    GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr);
    return flags.dwFlags & WSF_VISIBLE;
}

WORD event_kind(MessageStyle style)
{
    switch (style) {
    case MessageStyle::critical:
        return EVENTLOG_ERROR_TYPE;
    case MessageStyle::information:
        return EVENTLOG_INFORMATION_TYPE;
    default:
        return EVENTLOG_WARNING_TYPE;
    }
}

// Where an administrator looks for what a service says.
void write_to_event_log(const Text& text, const Text& title, MessageStyle style)
{
    const HANDLE log = RegisterEventSourceW(nullptr, wide(Text(component_title)));
    if (!log) return;
    const Text whole = title + u": " + text;
    const wchar_t* lines[] = {wide(whole)};
    ReportEventW(log, event_kind(style), 0, 0, nullptr, 1, 0, lines, nullptr);
    DeregisterEventSource(log);
}

} // namespace

void show_message_natively(const Text& text, const Text& title, MessageStyle style)
{
    if (somebody_sees_windows())
        MessageBoxW(GetActiveWindow(), wide(text), wide(title),
                    MB_OK | MB_TASKMODAL | static_cast<UINT>(style));
    else
        write_to_event_log(text, title, style);
}

} // namespace tolvex
