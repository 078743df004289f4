// The CFDI 3.0 document of the tax authority, built in memory and saved in the Facturas folder.
#pragma once

#include "issuing/document_values.hpp"
#include "platform/xml_document.hpp"
#include "tolvex/root_layout.hpp"

namespace tolvex {

// A stored line as the document shows it.
struct Concepto
{
    Text unidad, descripcion;
    Currency cantidad, valorUnitario, importe;
};

// From a row of FE_VENTAS_RESUMEN_DET. Throws Error for an amount that is Null or no number.
Concepto read_concepto(const Recordset& line);

// Builds and saves the document of the stored lines nIdFe. Path of its file, as documented; empty on any
// error, which leaves an older file of that name as it was.
Text write_comprobante(Session& session, const DocumentValues& document, const Text& nIdFe,
                       bool genera_addenda);

// The bytes that it saves for these lines, without an addenda. Throws Error for a value that XML does not
// allow.
std::string comprobante_bytes(const Session& session, const DocumentValues& document,
                              const std::vector<Concepto>& conceptos, RootLayout layout);

// The name of its file, without ".xml": series and folio number.
Text comprobante_name(const DocumentValues& document);

} // namespace tolvex
