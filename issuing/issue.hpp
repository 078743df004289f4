// Issues the staged document: the one road that every invoice and credit note takes.
#pragma once

#include "issuing/document_values.hpp"

namespace tolvex {

struct IssueOptions
{
    bool CtrlFolioInterno = false;     // take the folio from the range's counter
    Text vlTipoDocumento = u"ingreso"; // in any letter case; anything else is a credit note
    std::int16_t vlTasaDeIva = 16;     // percent
    bool vlGeneraAddenda = true;
};

// True only when every step succeeded, the XML file included. A failing step ends the call; what was stored
// before it stays. vlnFactura receives the folio when it is taken from the counter.
bool issue_document(Session& session, DocumentValues& document, Text& vlnFactura,
                    const IssueOptions& options);

} // namespace tolvex
