// Which records there are, by their numbers or by what a person calls them.
#pragma once

#include "session/session.hpp"

namespace tolvex {

// Whether there is a company of that number. Throws Error.
bool ExisteEmpresa(Session& session, std::int16_t company);

// Each gives the record's number, 0 when there is none; of several the lowest. Throws Error.
std::int16_t find_company(Session& session, const Text& rfc);
std::int16_t find_branch(Session& session, std::int16_t company, const Text& name);
// By the certificate's own number, cSerie_Certificado.
std::int16_t find_certificate(Session& session, std::int16_t company, const Text& certificate_number);
// By kind ("FACTURAS", "NOTAS DE CREDITO"), series and first folio.
std::int16_t find_folio_range(Session& session, std::int16_t company, const Text& kind, const Text& series,
                              const Text& first_folio);

} // namespace tolvex
