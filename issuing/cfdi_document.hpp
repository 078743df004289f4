// The CFDI 3.0 document of the tax authority, built in memory and saved in the Facturas folder.
#pragma once

#include "issuing/document_values.hpp"
#include "platform/xml_document.hpp"

namespace tolvex {

// Builds and saves the document of the stored lines nIdFe. Path of its file, as documented; empty on any
// error, which leaves an older file of that name as it was.
Text write_comprobante(Session& session, const DocumentValues& document, const Text& nIdFe,
                       bool genera_addenda);

} // namespace tolvex
