// What a host may choose about one issue.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex {

struct IssueOptions
{
    bool CtrlFolioInterno = false;     // take the folio from the range's counter
    Text vlTipoDocumento = u"ingreso"; // in any letter case; anything else is a credit note
    std::int16_t vlTasaDeIva = 16;     // percent
    bool vlGeneraAddenda = true;
    // Not for the documented methods, which take a seal that an earlier failure left.
    bool discards_old_work_files = false;
};

} // namespace tolvex
