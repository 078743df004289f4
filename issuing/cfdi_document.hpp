// The CFDI 3.0 document of the tax authority, built in memory and saved in the Facturas folder.
#pragma once

#include "issuing/document_values.hpp"
#include "platform/xml_document.hpp"

namespace tolvex {

// Builds and saves the document of the stored lines nIdFe; document.xml_path then names the file. False on
// any error, which leaves an older file of that name as it was.
bool write_comprobante(Session& session, DocumentValues& document, const Text& nIdFe, bool es_nota_credito,
                       bool genera_addenda);

} // namespace tolvex
