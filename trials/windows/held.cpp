#include "trials/held.hpp"

#include "tests/windows/held.hpp"

namespace tolvex::trials {

Held held()
{
    return {::held::private_mebibytes(),
            {{"handles", ::held::handles()},
             {"GDI objects", ::held::gdi_objects()},
             {"windows", ::held::windows()}}};
}

} // namespace tolvex::trials
