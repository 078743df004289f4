// Loads the issuer's company, branch, certificate and folio range into the session, and takes counter folios.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// Each loads one row into its group of the session; false when there is no row, which leaves the group as it
// was. An error half-way leaves the members before it updated; company and certificate then still give true.
bool load_company(Session& session, std::int16_t vlnEmpresa);
bool load_branch(Session& session, std::int16_t vlnEmpresa, std::int16_t vlnSucursal);
// The certificate number is the branch's, gnCertificado.
bool load_certificate(Session& session, std::int16_t vlnEmpresa);
// The range is looked up by its number alone. An error is shown in a message and gives false.
bool fgCargaDatosFolio(Session& session, const Text& folio_range);

// Next folio of the branch's range, whose counter is advanced; 0 on an error or without a range.
std::int16_t fgSiguienteFolio(Session& session, std::int16_t vlnEmpresa, std::int16_t vlnSucursal);

} // namespace tolvex
