// Errors at the boundary: whatever goes wrong inside reaches the host as a result code with error
// information.
#pragma once

#include "automation/description.hpp"
#include "platform/windows/component_call.hpp"

namespace tolvex::automation {

// Before a call: no error information.
void begin_call() noexcept;
// After a call that returned normally: what the method left as the last error is left as error information.
void report_trapped(const Class& source);
// Inside a catch block: the exception as a result code, with error information from "TOLVEX.<Class>".
HRESULT report_exception(const Class& source) noexcept;

// What the component does for a host without its session: no exception passes it.
template <class Operation>
HRESULT guard(const Class& source, Operation operation) noexcept
{
    begin_call();
    try {
        operation();
        return S_OK;
    } catch (...) {
        return report_exception(source);
    }
}

// The one way from the host into the system and back, a thread at a time.
template <class Operation>
HRESULT call_system(const Class& source, Operation operation) noexcept
{
    return guard(source, [&] {
        const ComponentCall call;
        operation();
        report_trapped(source);
    });
}

// The same for a failure of a late-bound call: the error information moves into the exception record that
// such hosts read; without error information the code itself is the answer.
HRESULT as_late_failure(HRESULT failure, EXCEPINFO* exception) noexcept;

} // namespace tolvex::automation
