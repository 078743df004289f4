#include "platform/windows/component_call.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

namespace {

// It waits without looking at messages: whoever is inside calls nothing of the host's meanwhile, so nobody
// who waits can be waited for.
class Door
{
public:
    Door() { InitializeCriticalSection(&lock_); }

    void enter(int times = 1)
    {
        EnterCriticalSection(&lock_);
        depth_ += times;
        while (--times > 0) EnterCriticalSection(&lock_);
    }

    void leave(int times = 1)
    {
        depth_ -= times;
        while (times-- > 0) LeaveCriticalSection(&lock_);
    }

    // Of the thread inside, who alone may ask.
    int depth() const { return depth_; }

private:
    CRITICAL_SECTION lock_;
    int depth_ = 0;
};

Door& door()
{
    static auto& one = *new Door; // calls may come until the process ends
    return one;
}

} // namespace

ComponentCall::ComponentCall() noexcept
{
    door().enter();
    std::fegetenv(&arithmetic_of_host_);
    std::fesetenv(FE_DFL_ENV);
}

ComponentCall::~ComponentCall()
{
    std::fesetenv(&arithmetic_of_host_);
    door().leave();
}

Interlude::Interlude() noexcept : depth_(door().depth()) { door().leave(depth_); }

Interlude::~Interlude()
{
    if (depth_ > 0) door().enter(depth_);
    std::fesetenv(FE_DFL_ENV);
}

} // namespace tolvex
