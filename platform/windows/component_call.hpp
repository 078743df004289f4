// How threads of a host share the component: one at a time. Every way in (a method, a message to a window of
// ours) is a ComponentCall; a thread inside may come in again, through a window or an object.
#pragma once

#include <cfenv>

namespace tolvex {

// While it lives the thread is the only one inside, and calculates as the system does: with whole precision,
// rounding to the nearest, whatever the host has set (graphics libraries cut the floating-point unit down to
// 24 bits). The host's own setting comes back with its end.
class ComponentCall
{
public:
    ComponentCall() noexcept;
    ~ComponentCall();
    ComponentCall(const ComponentCall&) = delete;

private:
    std::fenv_t arithmetic_of_host_;
};

// While it lives, within a call, other threads may come in: a person reads a message or fills in a form.
class Interlude
{
public:
    Interlude() noexcept;
    ~Interlude();
    Interlude(const Interlude&) = delete;

private:
    int depth_;
};

} // namespace tolvex
