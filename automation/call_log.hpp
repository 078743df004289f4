// The methods that a host calls, in the log while one is kept: a line with the arguments when a call begins,
// and one with its result, its error and how long it took when it ends.
#pragma once

#include "automation/description.hpp"
#include "core/errors.hpp"
#include "platform/log.hpp"

namespace tolvex::automation {

// A value as it travels: its automation type and where it is.
struct Travelling
{
    VARTYPE type;
    const void* place;
};

class CallLog
{
public:
    CallLog(const Class& called, EntryPoint early, std::vector<Travelling> arguments);
    // The arguments that the method has written are told again.
    void ended(const std::vector<Travelling>& results, const Text& error) const;

private:
    const Method& method_;
    const Text name_;
    const std::vector<Travelling> arguments_;
    const std::int64_t start_;
};

// A call whose arguments do not fit the method, which then does not begin.
void log_refused_call(const Class& called, const Method& method, const Text& reason) noexcept;

template <class Operation>
void logged(const Class& called, EntryPoint early, std::initializer_list<Travelling> arguments,
            std::initializer_list<Travelling> results, Operation call)
{
    if (!log_is_kept()) return call();
    const CallLog log(called, early, arguments);
    try {
        call();
    } catch (const std::exception& error) {
        log.ended({}, words_of(error));
        throw;
    }
    log.ended(results, last_error());
}

} // namespace tolvex::automation
