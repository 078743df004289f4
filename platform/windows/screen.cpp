#include "platform/windows/screen.hpp"

#include "platform/windows/windows.hpp"

namespace tolvex {

bool somebody_sees_windows()
{
    USEROBJECTFLAGS flags{};
    GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr);
    return flags.dwFlags & WSF_VISIBLE;
}

void require_a_screen()
{
    if (somebody_sees_windows()) return;
    throw Error(numbers::not_available,
                u"Las ventanas de TOLVEX no se pueden mostrar: nadie ve las ventanas de este proceso");
}

} // namespace tolvex
