#include "platform/windows/screen.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

bool somebody_sees_windows()
{
    USEROBJECTFLAGS flags{};
    GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr);
    return flags.dwFlags & WSF_VISIBLE;
}

} // namespace tolvex
