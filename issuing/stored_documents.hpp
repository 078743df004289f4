// What can be done with documents already stored: cancel, delete, and ask a range for its next folio.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// True when the statement ran, whether or not a document has that folio. NotadeCredito chooses the kind.
bool CancelaFacturaElectronica(Session& session, const Text& FolioDocto, Date FechaCancelacion,
                               std::int16_t Empresa, std::int16_t Sucursal, bool NotadeCredito);
// Deletes the documents with that folio, whatever their kind, receiver and lines first.
bool BorraFacturaElectronica(Session& session, std::int16_t Empresa, std::int16_t Sucursal,
                             const Text& FolioDocto);
// Next folio of the range numbered Caja into FolioFactura; "0" and false when it is used up or missing. Reads
// the counter without advancing it. Throws Error when the database fails.
bool fgObtenFolioFactura(Session& session, const Text& Caja, Text& FolioFactura);

} // namespace tolvex
