#include "platform/messages.hpp"

#include "platform/terminal.hpp"
#include "platform/windows/batch_programs.hpp"
#include "platform/windows/component_call.hpp"
#include "platform/windows/screen.hpp"
#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

WORD event_kind(MessageIcon icon)
{
    switch (icon) {
    case MessageIcon::critical:
        return EVENTLOG_ERROR_TYPE;
    case MessageIcon::information:
        return EVENTLOG_INFORMATION_TYPE;
    default:
        return EVENTLOG_WARNING_TYPE;
    }
}

// Where an administrator looks for what a service says.
void write_to_event_log(const Message& message)
{
    const HANDLE log = RegisterEventSourceW(nullptr, wide(Text(component_title)));
    if (!log) return;
    const Text whole = message.title + u": " + message.text;
    const wchar_t* lines[] = {wide(whole)};
    ReportEventW(log, event_kind(message.icon), 0, 0, nullptr, 1, 0, lines, nullptr);
    DeregisterEventSource(log);
}

} // namespace

MessageAnswer show_natively(const Message& message)
{
    if (programs_run_in_console()) return terminal::show(message);
    if (somebody_sees_windows()) {
        const Interlude until_it_is_read;
        const UINT style = static_cast<UINT>(message.icon) | static_cast<UINT>(message.buttons);
        return static_cast<MessageAnswer>(
            MessageBoxW(GetActiveWindow(), wide(message.text), wide(message.title), style | MB_TASKMODAL));
    }
    write_to_event_log(message);
    return message.buttons == MessageButtons::ok ? MessageAnswer::ok : MessageAnswer::no;
}

} // namespace tolvex
